// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QStackedLayout;

namespace quillbar {

class RowList;
class SearchField;

/// The search for a coin to add, for a popover: a field, and below it what was found for what
/// stands in the field, a moment after the last keystroke. Picking a coin adds it to the watchlist,
/// then dismisses the popover.
///
/// By the keyboard: Enter in the field picks the first match, for which it waits if it must; the
/// arrow down goes to the matches, where Enter picks and typing goes on in the field.
class AddCoinView final : public QWidget {
public:
    static constexpr int kPopoverWidth = 280;
    static constexpr int kResultListHeight = 200;
    /// How long nothing has been typed before a search begins.
    static constexpr Seconds kDebounce{0.3};

    /// What stands below the field.
    enum class ResultArea { error, hint, noMatches, results };

    /// The environment, which has a sleeper, outlives the view. `dismiss` closes the popover that
    /// the view is in; it is called from the executor's queue, and never after the view has gone.
    AddCoinView(const ViewEnvironment& environment,
                std::function<void()> dismiss,
                QWidget* parent = nullptr);

    /// What is searched for, as it was typed.
    [[nodiscard]] QString query() const;
    /// The latest matches, the best first. They stay until there are others.
    [[nodiscard]] const std::vector<Coin>& results() const noexcept { return m_results; }
    /// Why the latest search failed; absent once something else is typed.
    [[nodiscard]] const std::optional<QString>& errorMessage() const noexcept {
        return m_errorMessage;
    }
    [[nodiscard]] ResultArea resultArea() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What is done with what a search finds.
    enum class Purpose { show, showAndPickFirst };

    void makeArea();
    [[nodiscard]] RowList* makeRows();
    void updateArea();

    void startSearch(Purpose purpose);
    Task<void> search(std::string query, Purpose purpose, std::uint64_t run);
    void showMatches(std::vector<Coin> matches);
    void showFailure();

    void pickFirst();
    void pick(const Coin& coin);
    // The edit outlives the view, which may have gone when the coin is there.
    static Task<void> addAndDismiss(AppState& state,
                                    Coin coin,
                                    QPointer<AddCoinView> view,
                                    std::function<void()> dismiss);

    void onQueryChange();
    void onEnter();
    bool onKeyInRows(QKeyEvent& event);
    void focusFirstRow();

    const ViewEnvironment& m_environment;
    std::function<void()> m_dismiss;
    std::vector<Coin> m_results;
    std::optional<QString> m_errorMessage;
    // Whether the latest search has not ended yet.
    bool m_isSearching = false;
    // The symbols for which an edit is under way.
    std::set<std::string> m_picked;

    SearchField* m_field;
    QStackedLayout* m_area = nullptr;
    RowList* m_rows = nullptr;
    Observation m_watchlistObservation;

    // Of the search whose outcome still counts.
    std::uint64_t m_run = 0;
    TaskScope::Handle m_search;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
