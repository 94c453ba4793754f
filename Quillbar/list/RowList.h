// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowDrag.h"
#include "Quillbar/list/RowFocus.h"
#include "Quillbar/list/RowStage.h"
#include "Quillbar/widgets/ScrollFade.h"

#include <QSize>
#include <QWidget>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// A list that scrolls and shows no bar; a fade at an edge says that there is more. It has widgets
/// only for the rows that can be seen and a few more, so ten thousand rows cost as much as twenty.
///
/// One row is current and has the focus: the arrows, Page Up and Down, Home and End move it and
/// scroll, Enter activates it, Enter with Alt opens the form that belongs to it, the Menu key or
/// Shift+F10 asks for its menu, Alt with an arrow moves the row itself where rows can be dragged.
/// Tab goes on into the open detail, then out of the list. The focus stays with its row when the
/// order changes, and passes to the neighbour when the row goes. When the last row goes, the focus
/// passes to the widget after the list, for the reason by which the row got it. The scroll position
/// does not change by itself, except that while the pointer is over the list the rows stay where
/// they are on the screen (`ScreenHold`).
class RowList final : public QWidget {
public:
    /// How many rows beyond either edge have a widget.
    static constexpr std::size_t kMargin = 2;

    /// `detailHeight` is in points at a text size of 100 %.
    RowList(RowListContent content, int detailHeight, QWidget* parent = nullptr);

    /// The height that the list asks its layout for, which is also its greatest. With less, down to
    /// the height of one row, it scrolls.
    void setPreferredHeight(int height);
    [[nodiscard]] int preferredHeight() const noexcept { return m_preferredHeight; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Shows these items, in this order. The ids differ from one another. A detail whose id is not
    /// among them is removed at once.
    void setIds(std::vector<std::string> ids);
    [[nodiscard]] const std::vector<std::string>& ids() const noexcept {
        return m_stage.places.ids();
    }

    /// Opens the detail of that id, if it is on the list, and closes any other. Both are animated
    /// while the list is shown. The row of that id stays where it is on the screen, as far as its
    /// detail can be seen.
    void setExpanded(const std::optional<std::string>& id);
    [[nodiscard]] bool isMoving() const { return m_stage.details.isMoving(); }
    /// The detail of that id; null when there is none.
    [[nodiscard]] QWidget* detail(const std::string& id) const { return m_stage.details.frame(id); }

    /// If the row of that id has a widget, calls its `present` again. Does nothing while the list
    /// is not shown.
    void refresh(const std::string& id);
    /// The same for every row that has a widget.
    void refreshAll();

    /// The widget of that id; null when it has none because it cannot be seen. Valid until the list
    /// changes or scrolls.
    [[nodiscard]] ListRow* row(const std::string& id) const;
    /// How many rows have a widget.
    [[nodiscard]] std::size_t widgetCount() const noexcept { return m_stage.widgets.all().size(); }

    /// The line of the list at the upper edge of the view.
    [[nodiscard]] int scrollOffset() const noexcept { return m_stage.scroll.offset(); }
    /// Scrolls there, as far as the list goes.
    void scrollTo(int offset) { m_stage.scroll.scrollTo(offset); }
    /// Scrolls as little as is needed to see the row with its detail, or as much of it as fits.
    /// Does nothing for a row that is not in the list.
    void scrollToSee(const std::string& id);

    /// Gives the focus to the row of that id, scrolled to where it can be seen. Nothing for a row
    /// that is not in the list.
    void focusOn(const std::string& id, Qt::FocusReason reason) { m_focus.focusOn(id, reason); }
    /// The row that has the focus, or gets it next; absent before it first had any.
    [[nodiscard]] const std::optional<std::string>& current() const noexcept {
        return m_focus.current();
    }

    /// The rows in the order in which they are shown. While one is dragged, this is not the order
    /// of the ids.
    [[nodiscard]] const RowLayout& rowLayout() const noexcept { return m_stage.places.layout(); }
    /// The row that is being dragged; absent while none is.
    [[nodiscard]] const std::optional<std::string>& lifted() const noexcept {
        return m_drag.lifted();
    }
    /// Whether exactly the rows that can be seen have a widget, and each is in its place. Widgets
    /// are not checked while the list is not shown.
    [[nodiscard]] bool isConsistent() const { return brokenRule().empty(); }
    /// The first rule that is broken, for a test to show; empty when none is.
    [[nodiscard]] std::string brokenRule() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    using Slot = RowWidgets::Slot;

    [[nodiscard]] ListRow* makeRow();
    [[nodiscard]] RowDetails makeDetails(int detailHeight);
    [[nodiscard]] int topInView(const Slot& slot) const;

    void synchronize();
    [[nodiscard]] std::vector<std::size_t> wantedRows() const;
    void place();
    void present(const Slot& slot) const;
    void tint(const Slot& slot) const;
    void followPointer();
    void notePointer(const QObject* row, const QEvent& event);

    int m_preferredHeight = TableRow::kHeight;
    RowStage m_stage;
    RowFocus m_focus{m_stage};
    ScrollFade m_fade{*this};
    // Last: deleting it sends the list an event, for which the list looks among its rows.
    RowDrag m_drag{m_stage};
};

}  // namespace quillbar
