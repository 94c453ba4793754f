// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/RowList.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPoint>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

// How a `RowList` follows the keyboard, the wheel and the pointer.
namespace quillbar {

namespace {

constexpr double kNotch = 120;

bool takesTab(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isVisible()
           && widget.isEnabled();
}

// How far the event turns the list, in points; upwards is positive.
double turnedBy(const QWheelEvent& event) {
    // Under X11 the pixels of the event are what the driver says, which is not pixels.
    const bool hasPixels =
        !event.pixelDelta().isNull() && QGuiApplication::platformName() != QStringLiteral("xcb");
    if (hasPixels) {
        return event.pixelDelta().y();
    }
    return event.angleDelta().y() / kNotch * QApplication::wheelScrollLines() * TableRow::kHeight;
}

bool isMenuKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu
           || (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

}  // namespace

// Scrolling

void RowList::scrollTo(int offset) {
    // From here on the user, not the row that was opened, says what stays in view.
    m_anchor.reset();
    setOffset(offset);
    synchronize();
}

void RowList::scrollToSee(const std::string& id) {
    if (const auto index = indexOf(id)) {
        const int top = topOf(*index);
        reveal(top, std::min(bottomOf(*index), top + height()));
    }
}

void RowList::reveal(int top, int bottom) {
    if (top < m_offset) {
        scrollTo(top);
    } else if (bottom > m_offset + height()) {
        scrollTo(bottom - height());
    }
}

void RowList::wheelEvent(QWheelEvent* event) {
    m_turned += turnedBy(*event);
    const double whole = std::trunc(m_turned);
    m_turned -= whole;
    scrollTo(m_offset - static_cast<int>(whole));
    event->accept();
}

// The pointer

void RowList::followPointer() {
    if (const auto& lifted = m_drag.lifted()) {
        hoverOnly(row(*lifted));
        return;
    }
    // Nobody tells a row that it has moved away from under a pointer that stands still.
    if (!underMouse() || QApplication::activePopupWidget() != nullptr) {
        return;
    }
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    const auto under = std::find_if(m_slots.begin(), m_slots.end(), [&](const Slot& slot) {
        return rect().contains(pointer) && slot.widget->geometry().contains(pointer);
    });
    hoverOnly(under == m_slots.end() ? nullptr : under->widget);
}

void RowList::hoverOnly(const QObject* row) {
    for (const Slot& slot : m_slots) {
        slot.widget->setHovering(row != nullptr && slot.widget == row);
    }
}

void RowList::notePointer(const QObject* row, const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseMove:
        // With a button held the row has the pointer wherever it is.
        if (static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton) {
            break;
        }
        [[fallthrough]];
    case QEvent::Enter:
        hoverOnly(row);
        break;
    case QEvent::Leave:
        // It may be another row that the pointer was over last, or is over by now.
        hoverOnly(nullptr);
        followPointer();
        break;
    default:
        break;
    }
}

void RowList::leaveEvent(QEvent* event) {
    hoverOnly(nullptr);
    QWidget::leaveEvent(event);
}

// What its parts are told

bool RowList::eventFilter(QObject* watched, QEvent* event) {
    if (const Slot* const slot = slotOf(watched)) {
        if (m_drag.follow(slot->id, *event)) {
            return true;
        }
        if (event->type() == QEvent::FocusIn) {
            noteFocus(std::string(slot->id), static_cast<QFocusEvent*>(event)->reason());
        } else {
            notePointer(watched, *event);
        }
    } else if (event->type() == QEvent::Move) {
        if (m_drag.lifted()) {
            synchronize();
        }
        followPointer();
    }
    return QWidget::eventFilter(watched, event);
}

// The focus

QWidget* RowList::focused() const {
    // Of this window, whether or not it is the active one.
    return window()->focusWidget();
}

void RowList::noteFocus(const std::string& id, Qt::FocusReason reason) {
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
        m_focusReason = reason;
    }
    if (id != m_current) {
        m_current = id;
        // The row left behind may have had a widget for its focus alone.
        synchronize();
    }
}

void RowList::replaceLostCurrent(std::size_t lostIndex) {
    if (m_ids.empty()) {
        m_current.reset();
    } else {
        m_current = m_ids[std::min(lostIndex, m_ids.size() - 1)];
    }
}

void RowList::giveFocusBack() {
    if (m_ids.empty()) {
        // Hidden with the focus, the row would hand it on as the Tab key does, with a ring.
        focusOutside(true, m_focusReason);
        return;
    }
    const Slot* const slot = m_current ? slotOf(*m_current) : nullptr;
    if (slot != nullptr) {
        slot->widget->setFocus(m_focusReason);
    }
}

std::size_t RowList::currentIndex() const {
    const auto index = m_current ? indexOf(*m_current) : std::optional<std::size_t>();
    return index ? *index : m_layout.rowAt(m_offset).value_or(0);
}

void RowList::focusRow(std::size_t index, Qt::FocusReason reason) {
    if (index >= m_ids.size()) {
        return;
    }
    // Its widget is made by scrolling to it.
    reveal(topOf(index), topOf(index) + m_layout.rowHeight());
    if (const Slot* const slot = slotOf(m_ids[index])) {
        slot->widget->setFocus(reason);
    }
}

std::vector<QWidget*> RowList::stopsInDetail() const {
    std::vector<QWidget*> stops;
    for (const RowDetails::Entry& entry : m_details.entries()) {
        if (entry.to == 0) {
            continue;
        }
        for (QWidget* const widget : entry.frame->findChildren<QWidget*>()) {
            if (takesTab(*widget)) {
                stops.push_back(widget);
            }
        }
    }
    return stops;
}

void RowList::focusInDetail(QWidget* stop, Qt::FocusReason reason) {
    const int top = stop->mapTo(this, QPoint(0, 0)).y() + m_offset;
    reveal(top, top + stop->height());
    stop->setFocus(reason);
}

bool RowList::focusOutside(bool next, Qt::FocusReason reason) {
    // Rows and details come and go, so their place in the window's own order means nothing.
    QWidget* widget = this;
    do {
        widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    } while (widget != this && (isAncestorOf(widget) || !takesTab(*widget)));
    if (widget == this) {
        return false;
    }
    widget->setFocus(reason);
    return true;
}

bool RowList::focusNextPrevChild(bool next) {
    const Qt::FocusReason reason = next ? Qt::TabFocusReason : Qt::BacktabFocusReason;
    const std::vector<QWidget*> stops = stopsInDetail();
    const auto here = std::find(stops.begin(), stops.end(), focused());
    if (here == stops.end()) {
        if (next && !stops.empty()) {
            focusInDetail(stops.front(), reason);
            return true;
        }
        return focusOutside(next, reason);
    }
    if (next) {
        if (here + 1 == stops.end()) {
            return focusOutside(next, reason);
        }
        focusInDetail(*(here + 1), reason);
    } else if (here == stops.begin()) {
        focusRow(currentIndex(), reason);
    } else {
        focusInDetail(*(here - 1), reason);
    }
    return true;
}

void RowList::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    const std::vector<QWidget*> stops = stopsInDetail();
    if (event->reason() == Qt::BacktabFocusReason && !stops.empty()) {
        focusInDetail(stops.back(), event->reason());
    } else {
        focusRow(currentIndex(), event->reason());
    }
}

// Keys

void RowList::keyPressEvent(QKeyEvent* event) {
    // Keys that a detail has left over say nothing to the rows.
    const bool isOnRow = slotOf(focused()) != nullptr;
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isPlain = modifiers == Qt::NoModifier;
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isOnRow && isMenuKey(*event)) {
        openMenuOfCurrent();
    } else if (isOnRow && isPlain && isEnter) {
        if (!event->isAutoRepeat()) {
            m_content.activate(std::string(*m_current));
        }
    } else if (isOnRow && modifiers == Qt::AltModifier && moveRow(event->key())) {
        event->accept();
    } else if (!isOnRow || !isPlain || !moveCurrent(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

bool RowList::moveCurrent(int key) {
    const std::size_t here = currentIndex();
    const std::size_t last = m_ids.size() - 1;
    const auto page = static_cast<std::size_t>(std::max(1, height() / m_layout.rowHeight() - 1));
    std::size_t target = 0;
    switch (key) {
    case Qt::Key_Up:
        target = here - std::min<std::size_t>(here, 1);
        break;
    case Qt::Key_Down:
        target = std::min(here + 1, last);
        break;
    case Qt::Key_PageUp:
        target = here - std::min(here, page);
        break;
    case Qt::Key_PageDown:
        target = std::min(here + page, last);
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = last;
        break;
    default:
        return false;
    }
    focusRow(target, Qt::TabFocusReason);
    return true;
}

bool RowList::moveRow(int key) {
    if ((key != Qt::Key_Up && key != Qt::Key_Down) || !m_drag.canMove(*m_current)) {
        return false;
    }
    const std::size_t here = currentIndex();
    if (key == Qt::Key_Up && here > 0) {
        m_drag.move(std::string(*m_current), here - 1);
    } else if (key == Qt::Key_Down && here + 1 < m_ids.size()) {
        m_drag.move(std::string(*m_current), here + 2);
    }
    focusRow(currentIndex(), Qt::TabFocusReason);
    return true;
}

// Menus

void RowList::openMenuOfCurrent() {
    const std::size_t index = currentIndex();
    focusRow(index, m_focusReason);
    if (const Slot* const slot = slotOf(m_ids[index])) {
        const QPoint corner(TableRow::kPadding, m_layout.rowHeight());
        m_content.openMenu(std::string(slot->id), slot->widget->mapToGlobal(corner));
    }
}

void RowList::contextMenuEvent(QContextMenuEvent* event) {
    // The keys are followed as keys: some platforms send this event for them, others do not. And
    // the button that puts a row back asks for nothing else.
    if (event->reason() == QContextMenuEvent::Keyboard || m_drag.isHeld()) {
        event->accept();
        return;
    }
    const int line = event->pos().y() + m_offset;
    const auto index = m_layout.rowAt(line);
    if (!index || line >= m_layout.top(*index) + m_layout.rowHeight()) {
        event->ignore();
        return;
    }
    m_content.openMenu(std::string(m_ids[*index]), event->globalPos());
}

}  // namespace quillbar
