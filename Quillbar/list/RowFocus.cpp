// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowFocus.h"

#include "Quillbar/widgets/TextScale.h"

#include <QKeyEvent>
#include <QPoint>
#include <QWidget>

#include <algorithm>

namespace quillbar {

namespace {

bool takesTab(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isVisible()
           && widget.isEnabled();
}

bool isMenuKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu
           || (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

}  // namespace

// The current row

std::optional<std::size_t> RowFocus::indexOfCurrent() const {
    return m_current ? m_stage.places.indexOf(*m_current) : std::nullopt;
}

std::size_t RowFocus::currentIndex() const {
    const auto index = indexOfCurrent();
    return index ? *index : m_stage.places.layout().rowAt(m_stage.scroll.offset()).value_or(0);
}

void RowFocus::note(const std::string& id, Qt::FocusReason reason) {
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
        m_reason = reason;
    }
    if (id != m_current) {
        m_current = id;
        // The row that had the focus before may have kept its widget only for that.
        m_stage.update();
    }
}

void RowFocus::followIds(std::optional<std::size_t> wasAt) {
    if (!wasAt || indexOfCurrent()) {
        return;
    }
    const std::vector<std::string>& ids = m_stage.places.ids();
    if (ids.empty()) {
        m_current.reset();
    } else {
        m_current = ids[std::min(*wasAt, ids.size() - 1)];
    }
}

void RowFocus::giveBack() {
    if (m_stage.places.ids().empty()) {
        // When a row with the focus is hidden, Qt passes the focus on as the Tab key does, with a
        // ring.
        focusOutside(true, m_reason);
        return;
    }
    const RowWidgets::Slot* const slot = m_current ? m_stage.widgets.find(*m_current) : nullptr;
    if (slot != nullptr) {
        slot->widget->setFocus(m_reason);
    }
}

void RowFocus::focusOn(const std::string& id, Qt::FocusReason reason) {
    if (const auto index = m_stage.places.indexOf(id)) {
        focusRow(*index, reason);
    }
}

void RowFocus::focusRow(std::size_t index, Qt::FocusReason reason) {
    const RowPlaces& places = m_stage.places;
    if (index >= places.ids().size()) {
        return;
    }
    // Scrolling to the row gives it a widget.
    const int top = places.top(index);
    m_stage.scroll.reveal(top, top + places.layout().rowHeight());
    if (const RowWidgets::Slot* const slot = m_stage.widgets.find(places.ids()[index])) {
        slot->widget->setFocus(reason);
    }
}

// Details, and what lies outside

void RowFocus::leaveDetails(const std::optional<std::string>& but) {
    const QWidget* const focus = m_stage.focused();
    for (const RowDetails::Entry& entry : m_stage.details.entries()) {
        if (entry.id != but && focus != nullptr && entry.frame->isAncestorOf(focus)) {
            focusRow(m_stage.places.indexOf(entry.id).value_or(0), m_reason);
        }
    }
}

std::vector<QWidget*> RowFocus::stopsInDetail() const {
    std::vector<QWidget*> stops;
    for (const RowDetails::Entry& entry : m_stage.details.entries()) {
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

void RowFocus::focusInDetail(QWidget* stop, Qt::FocusReason reason) {
    const int top = stop->mapTo(&m_stage.view, QPoint(0, 0)).y() + m_stage.scroll.offset();
    m_stage.scroll.reveal(top, top + stop->height());
    stop->setFocus(reason);
}

bool RowFocus::focusOutside(bool next, Qt::FocusReason reason) {
    // Rows and details come and go, so their order in the window's focus chain is not theirs on the
    // screen.
    QWidget* const list = &m_stage.view;
    QWidget* widget = list;
    do {
        widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    } while (widget != list && (list->isAncestorOf(widget) || !takesTab(*widget)));
    if (widget == list) {
        return false;
    }
    widget->setFocus(reason);
    return true;
}

bool RowFocus::goOn(bool next) {
    const Qt::FocusReason reason = next ? Qt::TabFocusReason : Qt::BacktabFocusReason;
    const std::vector<QWidget*> stops = stopsInDetail();
    const auto here = std::find(stops.begin(), stops.end(), m_stage.focused());
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

void RowFocus::enter(Qt::FocusReason reason) {
    const std::vector<QWidget*> stops = stopsInDetail();
    if (reason == Qt::BacktabFocusReason && !stops.empty()) {
        focusInDetail(stops.back(), reason);
    } else {
        focusRow(currentIndex(), reason);
    }
}

// Keys

bool RowFocus::press(const QKeyEvent& event) {
    // Keys that a detail has not accepted are not for the rows.
    if (!m_stage.isRowFocused()) {
        return false;
    }
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (isMenuKey(event)) {
        openMenu();
        return true;
    }
    if (modifiers == Qt::AltModifier) {
        return pressWithAlt(event);
    }
    if (modifiers != Qt::NoModifier) {
        return false;
    }
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        if (!event.isAutoRepeat()) {
            m_stage.content.activate(std::string(*m_current));
        }
        return true;
    }
    return moveCurrent(event.key());
}

bool RowFocus::moveCurrent(int key) {
    const std::size_t here = currentIndex();
    const std::size_t last = m_stage.places.ids().size() - 1;
    const auto page = static_cast<std::size_t>(
        std::max(1, m_stage.view.height() / m_stage.places.layout().rowHeight() - 1));
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

bool RowFocus::pressWithAlt(const QKeyEvent& event) {
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!isEnter || !m_stage.content.openForm) {
        return moveRow(event.key());
    }
    if (!event.isAutoRepeat()) {
        const std::size_t index = currentIndex();
        focusRow(index, m_reason);
        m_stage.content.openForm(std::string(m_stage.places.ids()[index]));
    }
    return true;
}

bool RowFocus::moveRow(int key) {
    if ((key != Qt::Key_Up && key != Qt::Key_Down) || !m_stage.content.canMove(*m_current)) {
        return false;
    }
    const std::size_t here = currentIndex();
    if (key == Qt::Key_Up && here > 0) {
        m_stage.content.drag.moved(std::string(*m_current), here - 1);
    } else if (key == Qt::Key_Down && here + 1 < m_stage.places.ids().size()) {
        m_stage.content.drag.moved(std::string(*m_current), here + 2);
    }
    focusRow(currentIndex(), Qt::TabFocusReason);
    return true;
}

void RowFocus::openMenu() {
    const std::size_t index = currentIndex();
    focusRow(index, m_reason);
    const RowWidgets::Slot* const slot = m_stage.widgets.find(m_stage.places.ids()[index]);
    if (slot != nullptr && m_stage.content.openMenu) {
        const QPoint corner(TextScale::length(m_stage.view, TableRow::kPadding),
                            slot->widget->height());
        m_stage.content.openMenu(std::string(slot->id), slot->widget->mapToGlobal(corner));
    }
}

}  // namespace quillbar
