// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowList.h"

#include "Quillbar/list/RowAccessibility.h"
#include "Quillbar/widgets/TextScale.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QEvent>
#include <QFocusEvent>
#include <QHideEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPoint>
#include <QRect>
#include <QResizeEvent>
#include <QShowEvent>
#include <QWheelEvent>

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace quillbar {

RowList::RowList(RowListContent content, int detailHeight, QWidget* parent)
    : QWidget(parent)
    , m_stage{.view = *this,
              .content = std::move(content),
              .update = [this] { synchronize(); },
              .widgets = RowWidgets([this] { return makeRow(); }),
              .details = makeDetails(detailHeight)} {
    RowAccessibility::install();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    TextScale::follow(*this, [this, detailHeight] {
        m_stage.setHeights(TextScale::length(*this, TableRow::kHeight),
                           TextScale::length(*this, detailHeight));
        updateGeometry();
    });
}

ListRow* RowList::makeRow() {
    ListRow* const row = m_stage.content.makeRow(this);
    row->installEventFilter(this);
    return row;
}

RowDetails RowList::makeDetails(int detailHeight) {
    return RowDetails(
        *this,
        detailHeight,
        m_stage.content.makeDetail,
        [this] {
            m_stage.details.layOut(m_stage.places);
            m_stage.scroll.followDetails();
            synchronize();
        },
        [this] {
            m_stage.scroll.releaseAnchor();
            if (m_stage.content.settled) {
                m_stage.content.settled();
            }
        });
}

void RowList::setPreferredHeight(int height) {
    if (height != m_preferredHeight) {
        m_preferredHeight = height;
        updateGeometry();
    }
}

QSize RowList::sizeHint() const {
    return {0, m_preferredHeight};
}

QSize RowList::minimumSizeHint() const {
    return {0, std::min(m_preferredHeight, rowLayout().rowHeight())};
}

// What is shown

void RowList::setIds(std::vector<std::string> ids) {
    RowPlaces& places = m_stage.places;
    if (ids == places.ids()) {
        return;
    }
    const std::optional<std::size_t> currentAt = m_focus.indexOfCurrent();
    places.setIds(std::move(ids));
    const bool isEmpty = places.ids().empty();
    setFocusPolicy(isEmpty ? Qt::NoFocus : Qt::TabFocus);
    m_drag.followIds();
    m_focus.followIds(currentAt);
    m_stage.details.dropGone(places);
    m_stage.details.layOut(places);
    m_stage.scroll.followRows();
    if (!isVisible() && isEmpty && m_stage.isRowFocused()) {
        // The list itself takes the focus: shown again, it passes it to its first row.
        setFocus(m_focus.reason());
    }
    synchronize();
}

void RowList::setExpanded(const std::optional<std::string>& id) {
    const bool isThere = id && m_stage.places.indexOf(*id);
    m_focus.leaveDetails(id);
    m_stage.scroll.releaseAnchor();
    if (isThere && row(*id) != nullptr) {
        m_stage.scroll.anchor(*id);
    }
    m_stage.details.open(
        isThere ? id : std::nullopt,
        isVisible() ? RowDetails::Transition::animated : RowDetails::Transition::immediate);
}

void RowList::refresh(const std::string& id) {
    const Slot* const slot = m_stage.widgets.find(id);
    if (slot != nullptr && isVisible()) {
        present(*slot);
    }
}

void RowList::refreshAll() {
    if (!isVisible()) {
        return;
    }
    for (const Slot& slot : m_stage.widgets.all()) {
        present(slot);
    }
}

void RowList::present(const Slot& slot) const {
    slot.widget->present(slot.id, slot.index);
    tint(slot);
}

void RowList::tint(const Slot& slot) const {
    // The tints do not move when rows make room for one that is dragged.
    if (m_stage.content.drag.moved) {
        slot.widget->setAlternate(m_stage.places.positionOf(slot.index) % 2 == 1);
    }
}

ListRow* RowList::row(const std::string& id) const {
    const Slot* const slot = m_stage.widgets.find(id);
    return slot == nullptr ? nullptr : slot->widget;
}

void RowList::scrollToSee(const std::string& id) {
    if (const auto index = m_stage.places.indexOf(id)) {
        const int top = m_stage.places.top(*index);
        m_stage.scroll.reveal(top, std::min(m_stage.places.bottom(*index), top + height()));
    }
}

// The widgets

void RowList::synchronize() {
    if (!isVisible()) {
        return;
    }
    m_drag.findPlace();
    const bool hadFocus = m_stage.isRowFocused();
    m_stage.widgets.assign(wantedRows(), m_stage.places.ids());
    place();
    if (hadFocus) {
        m_focus.giveBack();
    }
    m_stage.widgets.hideSpare();
    followPointer();
}

std::vector<std::size_t> RowList::wantedRows() const {
    const RowPlaces& places = m_stage.places;
    const auto inView = places.layout().rowsWithin(scrollOffset(), scrollOffset() + height());
    const std::size_t first = inView.first - std::min(inView.first, kMargin);
    const std::size_t end = std::min(inView.end + kMargin, places.ids().size());
    std::vector<std::size_t> wanted;
    for (std::size_t position = first; position < end; ++position) {
        wanted.push_back(places.indexAt(position));
    }
    const auto keep = [&](const std::optional<std::string>& id) {
        const auto index = id ? places.indexOf(*id) : std::nullopt;
        if (index && std::find(wanted.begin(), wanted.end(), *index) == wanted.end()) {
            wanted.push_back(*index);
        }
    };
    // The row with the focus and the row that is dragged keep their widgets wherever they are.
    if (m_stage.isRowFocused()) {
        keep(m_focus.current());
    }
    keep(m_drag.lifted());
    return wanted;
}

int RowList::topInView(const Slot& slot) const {
    return slot.id == m_drag.lifted() ? m_drag.liftedTop()
                                      : m_stage.places.top(slot.index) - scrollOffset();
}

void RowList::place() {
    for (const Slot& slot : m_stage.widgets.all()) {
        slot.widget->setGeometry(0, topInView(slot), width(), rowLayout().rowHeight());
        slot.widget->show();
        tint(slot);
    }
    for (const RowDetails::Entry& entry : m_stage.details.entries()) {
        const auto index = m_stage.places.indexOf(entry.id);
        if (index && entry.height > 0) {
            const int top = m_stage.places.top(*index) + rowLayout().rowHeight() - scrollOffset();
            entry.frame->setGeometry(0, top, width(), entry.height);
            entry.frame->show();
        } else {
            entry.frame->hide();
        }
    }
    m_fade.follow(m_stage.scroll.further());
    m_drag.raise();
}

void RowList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_stage.scroll.followView();
}

void RowList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The list moves when a widget above it moves, and gets no event for that.
    installEventFilter(this);
    for (QWidget* each = this; !each->isWindow() && each->parentWidget() != nullptr;) {
        each = each->parentWidget();
        each->installEventFilter(this);
    }
    m_stage.scroll.hold().begin();
    synchronize();
}

void RowList::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_stage.scroll.hold().end();
    m_drag.cancel();
    if (isMoving()) {
        m_stage.details.settle();
    }
}

// The pointer

void RowList::wheelEvent(QWheelEvent* event) {
    m_stage.scroll.turn(*event);
    event->accept();
}

void RowList::followPointer() {
    if (const auto& lifted = m_drag.lifted()) {
        m_stage.widgets.hoverOnly(row(*lifted));
        return;
    }
    // Qt sends no event when a row moves away from under a pointer that stands still.
    if (!underMouse() || QApplication::activePopupWidget() != nullptr) {
        return;
    }
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    const std::vector<Slot>& rows = m_stage.widgets.all();
    const auto under = std::find_if(rows.begin(), rows.end(), [&](const Slot& slot) {
        return rect().contains(pointer) && slot.widget->geometry().contains(pointer);
    });
    m_stage.widgets.hoverOnly(under == rows.end() ? nullptr : under->widget);
}

void RowList::notePointer(const QObject* row, const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseMove:
        // While a button is held, the row gets all moves, wherever the pointer is.
        if (static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton) {
            break;
        }
        [[fallthrough]];
    case QEvent::Enter:
        m_stage.widgets.hoverOnly(row);
        break;
    case QEvent::Leave:
        // The pointer may have been over another row last, or may be over another one now.
        m_stage.widgets.hoverOnly(nullptr);
        followPointer();
        break;
    default:
        break;
    }
}

void RowList::enterEvent(QEnterEvent* event) {
    // Window systems do not report every move: a new window is moved into its frame without an
    // event.
    m_stage.scroll.hold().begin();
    QWidget::enterEvent(event);
}

void RowList::leaveEvent(QEvent* event) {
    m_stage.widgets.hoverOnly(nullptr);
    m_stage.scroll.hold().pointerLeft();
    QWidget::leaveEvent(event);
}

// Events of its rows, and of the widgets above it

bool RowList::eventFilter(QObject* watched, QEvent* event) {
    if (const Slot* const slot = m_stage.widgets.find(watched)) {
        if (m_drag.follow(slot->id, *event)) {
            return true;
        }
        if (event->type() == QEvent::FocusIn) {
            m_focus.note(std::string(slot->id), static_cast<QFocusEvent*>(event)->reason());
        } else {
            notePointer(watched, *event);
        }
    } else if (event->type() == QEvent::Resize && watched == window()) {
        m_stage.scroll.hold().follow();
    } else if (event->type() == QEvent::Move) {
        m_stage.scroll.hold().follow();
        if (m_drag.lifted()) {
            synchronize();
        }
        followPointer();
    }
    return QWidget::eventFilter(watched, event);
}

// The keyboard

bool RowList::focusNextPrevChild(bool next) {
    return m_focus.goOn(next);
}

void RowList::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    m_focus.enter(event->reason());
}

void RowList::keyPressEvent(QKeyEvent* event) {
    if (!m_focus.press(*event)) {
        QWidget::keyPressEvent(event);
    }
}

void RowList::contextMenuEvent(QContextMenuEvent* event) {
    // The menu keys are handled as keys, because only some platforms send this event for them. And
    // a button that puts a dragged row back must not open a menu.
    if (event->reason() == QContextMenuEvent::Keyboard || m_drag.isHeld()) {
        event->accept();
        return;
    }
    const int line = event->pos().y() + scrollOffset();
    const auto index = rowLayout().rowAt(line);
    const bool isOnRow = index && line < rowLayout().top(*index) + rowLayout().rowHeight();
    if (!m_stage.content.openMenu || !isOnRow) {
        event->ignore();
        return;
    }
    m_stage.content.openMenu(std::string(ids()[*index]), event->globalPos());
}

// For tests

std::string RowList::brokenRule() const {
    std::string broken = m_stage.places.brokenRule();
    if (broken.empty()) {
        broken = m_stage.scroll.brokenRule();
    }
    if (!broken.empty() || !isVisible()) {
        return broken;
    }
    const auto inView = rowLayout().rowsWithin(scrollOffset(), scrollOffset() + height());
    for (std::size_t position = inView.first; position < inView.end; ++position) {
        if (row(ids()[m_stage.places.indexAt(position)]) == nullptr) {
            return fmt::format("row {} can be seen and has no widget", position);
        }
    }
    for (const Slot& slot : m_stage.widgets.all()) {
        if (slot.index >= ids().size() || ids()[slot.index] != slot.id) {
            return fmt::format("row {} shows {}", slot.index, slot.id);
        }
        const std::size_t position = m_stage.places.positionOf(slot.index);
        const bool isNear = position + kMargin >= inView.first && position < inView.end + kMargin;
        if (!isNear && slot.id != current() && slot.id != lifted()) {
            return fmt::format("row {} has a widget far from the view", slot.index);
        }
        const QRect where(0, topInView(slot), width(), rowLayout().rowHeight());
        if (slot.widget->geometry() != where || slot.widget->isHidden()) {
            return fmt::format("row {} is not in its place", slot.index);
        }
    }
    return m_stage.widgets.isAnySpareShown() ? "a row without an item is shown" : "";
}

}  // namespace quillbar
