// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ListRow.h"
#include "Quillbar/RowDetails.h"
#include "Quillbar/RowDrag.h"
#include "Quillbar/RowLayout.h"

#include <QPoint>
#include <QSize>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// What a `RowList` asks of whoever shows it. None of it may be empty, but for what is said of
/// `drag`.
struct RowListContent final {
    /// Makes a row that shows nothing yet.
    std::function<ListRow*(QWidget* parent)> makeRow;
    /// Makes what unfolds under the row of an id.
    RowDetails::Factory makeDetail;
    /// The user chose a row by the keyboard.
    std::function<void(const std::string& id)> activate;
    /// The user asked for a row's menu, to open at that place on the screen.
    std::function<void(const std::string& id, const QPoint& position)> openMenu;
    /// A detail has come to the end of its way.
    std::function<void()> settled;
    /// For a list whose rows the user puts in order. Every other row of such a list is tinted.
    RowDrag::Purpose drag = {};
};

/// A list that scrolls and shows no bar. It holds widgets only for the rows that can be seen, and a
/// few beside them, so a list of ten thousand costs what one of twenty does.
///
/// One row is current and has the focus: the arrows, Page Up and Down, Home and End move it and
/// scroll, Enter activates it, the Menu key or Shift+F10 asks for its menu, Alt with an arrow moves
/// the row itself where rows can be dragged. Tab goes on into the open detail, then out of the
/// list. The focus stays with its row when the order changes, and passes to the neighbour when the
/// row goes; from the only row it passes to what follows the list, for the reason by which the row
/// got it. The scroll position stays where it is.
class RowList final : public QWidget {
public:
    /// How many rows beyond either edge have a widget.
    static constexpr std::size_t kMargin = 2;

    RowList(RowListContent content, int detailHeight, QWidget* parent = nullptr);

    /// The height that the list asks a layout for. It never gets more; given less, down to that of
    /// one row, it scrolls.
    void setPreferredHeight(int height);
    [[nodiscard]] int preferredHeight() const noexcept { return m_preferredHeight; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Shows these items, in this order. The ids differ from one another. The detail of an id that
    /// is not among them goes at once.
    void setIds(std::vector<std::string> ids);
    [[nodiscard]] const std::vector<std::string>& ids() const noexcept { return m_ids; }

    /// Opens the detail of that id, if it is on the list, and closes any other; moving there while
    /// the list is shown. The row of that id stays where it is on the screen, as far as its detail
    /// can be seen.
    void setExpanded(const std::optional<std::string>& id);
    [[nodiscard]] bool isMoving() const { return m_details.isMoving(); }
    /// The detail of that id; null when there is none.
    [[nodiscard]] QWidget* detail(const std::string& id) const;

    /// Has the row of that id, if it has a widget, present itself again. Nothing is done for a list
    /// that is not shown.
    void refresh(const std::string& id);
    /// The same for every row that has a widget.
    void refreshAll();

    /// The widget of that id; null when it has none because it cannot be seen. Valid until the list
    /// changes or scrolls.
    [[nodiscard]] ListRow* row(const std::string& id) const;
    /// How many rows have a widget.
    [[nodiscard]] std::size_t widgetCount() const noexcept { return m_slots.size(); }

    /// The line of the list at the upper edge of the view.
    [[nodiscard]] int scrollOffset() const noexcept { return m_offset; }
    /// Scrolls there, as far as the list goes.
    void scrollTo(int offset);
    /// Scrolls as little as it takes to see the row with its detail, or its beginning where that
    /// does not fit. Nothing for a row that is not in the list.
    void scrollToSee(const std::string& id);

    /// The row that has the focus, or gets it next; absent before it first had any.
    [[nodiscard]] const std::optional<std::string>& current() const noexcept { return m_current; }

    /// As the rows are shown: while one is dragged not by their indexes.
    [[nodiscard]] const RowLayout& rowLayout() const noexcept { return m_layout; }
    /// The row that is being dragged; absent while none is.
    [[nodiscard]] const std::optional<std::string>& lifted() const noexcept {
        return m_drag.lifted();
    }
    /// Whether the widgets are those of the rows that can be seen, each in its place. Nothing is
    /// promised of the widgets of a list that is not shown.
    [[nodiscard]] bool isConsistent() const { return brokenRule().empty(); }
    /// The first rule that does not hold, for a test to show; empty when all do.
    [[nodiscard]] std::string brokenRule() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// A row that has a widget.
    struct Slot {
        std::string id;
        std::size_t index;
        ListRow* widget;
    };
    /// A row that stays where it is on the screen while details move.
    struct Anchor {
        std::string id;
        int y;
    };

    [[nodiscard]] std::optional<std::size_t> indexOf(const std::string& id) const;
    [[nodiscard]] const Slot* slotOf(const QObject* widget) const;
    [[nodiscard]] const Slot* slotOf(const std::string& id) const;
    [[nodiscard]] int topOf(std::size_t index) const;
    [[nodiscard]] int bottomOf(std::size_t index) const;
    [[nodiscard]] int topInView(const Slot& slot) const;
    [[nodiscard]] int greatestOffset() const;

    void layOutDetails();
    void holdAnchor();
    void setOffset(int offset);
    void reveal(int top, int bottom);

    void synchronize();
    [[nodiscard]] std::vector<std::size_t> wantedRows() const;
    void retireAllBut(const std::vector<std::size_t>& wanted);
    void fill(const std::vector<std::size_t>& wanted);
    void place();
    void present(const Slot& slot) const;
    void tint(const Slot& slot) const;
    void followPointer();
    void hoverOnly(const QObject* row);
    void notePointer(const QObject* row, const QEvent& event);

    [[nodiscard]] QWidget* focused() const;
    void noteFocus(const std::string& id, Qt::FocusReason reason);
    void replaceLostCurrent(std::size_t lostIndex);
    void giveFocusBack();
    [[nodiscard]] std::size_t currentIndex() const;
    void focusRow(std::size_t index, Qt::FocusReason reason);
    [[nodiscard]] std::vector<QWidget*> stopsInDetail() const;
    void focusInDetail(QWidget* stop, Qt::FocusReason reason);
    bool focusOutside(bool next, Qt::FocusReason reason);
    bool moveCurrent(int key);
    bool moveRow(int key);
    void openMenuOfCurrent();

    RowListContent m_content;
    RowDetails m_details;
    RowLayout m_layout{TableRow::kHeight};
    int m_preferredHeight = TableRow::kHeight;
    std::vector<std::string> m_ids;
    std::vector<Slot> m_slots;
    // Hidden rows that wait for an item.
    std::vector<ListRow*> m_spare;
    std::optional<std::string> m_current;
    // How the current row got the focus last.
    Qt::FocusReason m_focusReason = Qt::OtherFocusReason;
    std::optional<Anchor> m_anchor;
    int m_offset = 0;
    // Of the wheel: what has been turned and was too little for a point.
    double m_turned = 0;
    // Last: as it goes, the list hears of what it had in it, and looks among its rows.
    RowDrag m_drag;
};

}  // namespace quillbar
