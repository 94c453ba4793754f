// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowStage.h"

#include <Qt>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class QFocusEvent;
class QKeyEvent;
class QWidget;

namespace quillbar {

/// The current row of a list, which has the focus, and what keys do: they move the current row, and
/// they take the focus into the open detail and out of the list.
class RowFocus final {
public:
    /// The stage outlives it.
    explicit RowFocus(RowStage& stage)
        : m_stage(stage) {}

    /// The row that has the focus, or gets it next; absent before it first had any.
    [[nodiscard]] const std::optional<std::string>& current() const noexcept { return m_current; }
    [[nodiscard]] std::optional<std::size_t> indexOfCurrent() const;
    /// How the current row got the focus last.
    [[nodiscard]] Qt::FocusReason reason() const noexcept { return m_reason; }

    /// A row has got the focus.
    void note(const std::string& id, Qt::FocusReason reason);
    /// The ids have changed. If the current row, which stood at that index, is gone, its neighbour
    /// becomes the current one.
    void followIds(std::optional<std::size_t> wasAt);
    /// Gives the focus to the row of that id, scrolled to where it can be seen. Nothing for a row
    /// that is not in the list.
    void focusOn(const std::string& id, Qt::FocusReason reason);
    /// Gives the focus to the current row, which may have another widget; where no row is left, to
    /// what follows the list.
    void giveBack();
    /// If a detail has the focus, other than that of this id, its row gets it.
    void leaveDetails(const std::optional<std::string>& but);

    /// The list itself has got the focus: a row or the detail takes it.
    void enter(Qt::FocusReason reason);
    /// Does what Tab does, or Shift+Tab. Returns whether there is anything to go to.
    bool goOn(bool next);
    /// Does what a key does that no widget in the list has accepted. Returns whether it does
    /// anything.
    bool press(const QKeyEvent& event);

private:
    [[nodiscard]] std::size_t currentIndex() const;
    void focusRow(std::size_t index, Qt::FocusReason reason);
    [[nodiscard]] std::vector<QWidget*> stopsInDetail() const;
    void focusInDetail(QWidget* stop, Qt::FocusReason reason);
    bool focusOutside(bool next, Qt::FocusReason reason);
    bool moveCurrent(int key);
    bool pressWithAlt(const QKeyEvent& event);
    bool moveRow(int key);
    void openMenu();

    RowStage& m_stage;
    std::optional<std::string> m_current;
    Qt::FocusReason m_reason = Qt::OtherFocusReason;
};

}  // namespace quillbar
