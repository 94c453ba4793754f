// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <vector>

class QPainter;
class QRectF;

namespace quillbar {

/// A choice of one: a row with a mark for each title, and room at its end for a sample of what is
/// chosen. The Tab key stops at the list once; the arrow keys choose within it, and so do a click,
/// Space and Enter. For screen readers it is a group of radio buttons.
class ChoiceList final : public QWidget {
public:
    /// The height of a row, in points at a text size of 100 %.
    static constexpr int kRowHeight = 28;

    /// The first title is selected. `name` is what is chosen, for screen readers.
    ChoiceList(const QString& name, const std::vector<QString>& titles, QWidget* parent = nullptr);

    /// The position of the selected title.
    [[nodiscard]] std::size_t selection() const noexcept { return m_selection; }
    /// Selects a title of the list, without calling `onSelect`.
    void setSelection(std::size_t index);
    /// Gives the focus to the row that is selected.
    void focusSelection(Qt::FocusReason reason);

    /// Called when the user selects another title.
    std::function<void(std::size_t index)> onSelect;
    /// Draws the sample of a title into the rectangle, which ends where the row does. The painter's
    /// unit is a point at a text size of 100 %. Null for none.
    std::function<void(QPainter& painter, const QRectF& rectangle, std::size_t index)> drawSample;

private:
    class Row;

    void select(std::size_t index);
    void updateTabStop();

    // Children, owned by Qt.
    std::vector<Row*> m_rows;
    std::size_t m_selection = 0;
};

}  // namespace quillbar
