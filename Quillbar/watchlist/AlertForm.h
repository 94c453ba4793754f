// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/alerts/AlertInput.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QRect>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <variant>
#include <vector>

class QAbstractButton;
class QVBoxLayout;

namespace quillbar {

class SearchField;
class TextButton;
class ThemedLabel;

/// The price alerts of a coin, for a popover: a field for the price or the change, which begins
/// with the present price; how often it fires; a note; and the alerts that the coin has, each with
/// a button that removes it. A line below the field says what would be added, or why nothing would.
/// Enter adds the alert and closes the popover.
class AlertForm final : public QWidget {
public:
    static constexpr int kWidth = 280;
    /// The greatest height of the alerts that the coin has, beyond which they scroll.
    static constexpr int kListHeight = 120;

    /// The environment, which has alerts, outlives the form. `dismiss` closes the popover, and may
    /// delete the form.
    AlertForm(const ViewEnvironment& environment,
              Coin coin,
              std::function<void()> dismiss,
              QWidget* parent = nullptr);

    /// Opens a form in a popover at a rectangle of `view`, which owns it.
    static void open(const ViewEnvironment& environment,
                     const Coin& coin,
                     const QRect& place,
                     QWidget& view);

    [[nodiscard]] QSize sizeHint() const override;

private:
    [[nodiscard]] std::optional<Ticker> ticker() const;
    [[nodiscard]] std::optional<double> margin(const AlertInput::Line& line) const;
    void makeFields(QVBoxLayout& stack);
    void makeChoices(QVBoxLayout& stack);
    void makeList(QVBoxLayout& stack);
    [[nodiscard]] std::optional<double> seenBy(const AlertInput::Line& line) const;
    void judge();
    void refresh();
    void say(const QString& meaning, bool isWrong);
    void refreshList();
    void fitList();
    void add();

    const ViewEnvironment& m_environment;
    Coin m_coin;
    std::function<void()> m_dismiss;
    ThemedLabel* m_present = nullptr;
    SearchField* m_value = nullptr;
    /// What the value says, by the price when it was typed: nobody would look again whether the
    /// price has passed it before the alert is added.
    std::variant<AlertInput::Line, AlertInput::Problem> m_input = AlertInput::Problem::nothing;
    std::optional<Ticker> m_seen;
    ThemedLabel* m_meaning = nullptr;
    QAbstractButton* m_once = nullptr;
    QAbstractButton* m_again = nullptr;
    ThemedLabel* m_marginTitle = nullptr;
    SearchField* m_margin = nullptr;
    SearchField* m_note = nullptr;
    TextButton* m_add = nullptr;
    QWidget* m_listArea = nullptr;
    QVBoxLayout* m_list = nullptr;
    std::vector<QWidget*> m_rows;
    Observation m_alerts;
    Observation m_prices;
};

}  // namespace quillbar
