// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/RowList.h"

#include "Quillbar/RowAccessibility.h"

#include <QHideEvent>
#include <QRect>
#include <QResizeEvent>
#include <QShowEvent>

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace quillbar {

namespace {

// The window system counts a pointer that stands still as over the row that has moved away from
// under it, and so may have no entry to tell of when the pointer comes there again.
void trackPointerOver(ListRow& row) {
    row.setMouseTracking(true);
    for (QWidget* const each : row.findChildren<QWidget*>()) {
        each->setMouseTracking(true);
    }
}

}  // namespace

RowList::RowList(RowListContent content, int detailHeight, QWidget* parent)
    : QWidget(parent)
    , m_content(std::move(content))
    , m_details(
          *this,
          detailHeight,
          m_content.makeDetail,
          [this] {
              layOutDetails();
              holdAnchor();
              synchronize();
          },
          [this] {
              m_anchor.reset();
              m_content.settled();
          })
    , m_drag(*this, m_content.drag, [this] {
        layOutDetails();
        synchronize();
    }) {
    RowAccessibility::install();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
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
    return {0, std::min(m_preferredHeight, m_layout.rowHeight())};
}

// What is shown

void RowList::setIds(std::vector<std::string> ids) {
    if (ids == m_ids) {
        return;
    }
    const std::optional<std::size_t> currentAt =
        m_current ? indexOf(*m_current) : std::optional<std::size_t>();
    m_ids = std::move(ids);
    setFocusPolicy(m_ids.empty() ? Qt::NoFocus : Qt::TabFocus);
    m_layout.setRowCount(m_ids.size());
    m_drag.followIds();
    if (currentAt && !indexOf(*m_current)) {
        replaceLostCurrent(*currentAt);
    }
    std::vector<std::string> lost;
    for (const RowDetails::Entry& entry : m_details.entries()) {
        if (!indexOf(entry.id)) {
            lost.push_back(entry.id);
        }
    }
    for (const std::string& id : lost) {
        m_details.drop(id);
    }
    layOutDetails();
    setOffset(m_offset);
    if (!isVisible() && m_ids.empty() && slotOf(focused()) != nullptr) {
        // Shown again, the list is at its first row.
        setFocus(m_focusReason);
    }
    synchronize();
}

void RowList::setExpanded(const std::optional<std::string>& id) {
    const std::optional<std::size_t> index = id ? indexOf(*id) : std::optional<std::size_t>();
    const QWidget* const focus = focused();
    for (const RowDetails::Entry& entry : m_details.entries()) {
        if (entry.id != id && focus != nullptr && entry.frame->isAncestorOf(focus)) {
            focusRow(indexOf(entry.id).value_or(0), m_focusReason);
        }
    }
    m_anchor.reset();
    if (index && slotOf(*id) != nullptr) {
        m_anchor = Anchor{.id = *id, .y = topOf(*index) - m_offset};
    }
    m_details.open(
        index ? id : std::nullopt,
        isVisible() ? RowDetails::Transition::animated : RowDetails::Transition::immediate);
}

QWidget* RowList::detail(const std::string& id) const {
    for (const RowDetails::Entry& entry : m_details.entries()) {
        if (entry.id == id) {
            return entry.frame;
        }
    }
    return nullptr;
}

void RowList::refresh(const std::string& id) {
    const Slot* const slot = slotOf(id);
    if (slot != nullptr && isVisible()) {
        present(*slot);
    }
}

void RowList::refreshAll() {
    if (!isVisible()) {
        return;
    }
    for (const Slot& slot : m_slots) {
        present(slot);
    }
}

ListRow* RowList::row(const std::string& id) const {
    const Slot* const slot = slotOf(id);
    return slot == nullptr ? nullptr : slot->widget;
}

std::optional<std::size_t> RowList::indexOf(const std::string& id) const {
    const auto found = std::find(m_ids.begin(), m_ids.end(), id);
    if (found == m_ids.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - m_ids.begin());
}

const RowList::Slot* RowList::slotOf(const QObject* widget) const {
    const auto found = std::find_if(m_slots.begin(), m_slots.end(), [widget](const Slot& slot) {
        return slot.widget == widget;
    });
    return found == m_slots.end() ? nullptr : &*found;
}

const RowList::Slot* RowList::slotOf(const std::string& id) const {
    const auto found = std::find_if(
        m_slots.begin(), m_slots.end(), [&id](const Slot& slot) { return slot.id == id; });
    return found == m_slots.end() ? nullptr : &*found;
}

// Where it is scrolled to

int RowList::topOf(std::size_t index) const {
    return m_layout.top(m_drag.positionOf(index));
}

int RowList::bottomOf(std::size_t index) const {
    return m_layout.bottom(m_drag.positionOf(index));
}

int RowList::topInView(const Slot& slot) const {
    return slot.id == m_drag.lifted() ? m_drag.liftedTop() : topOf(slot.index) - m_offset;
}

int RowList::greatestOffset() const {
    return std::max(0, m_layout.height() - height());
}

void RowList::setOffset(int offset) {
    m_offset = std::clamp(offset, 0, greatestOffset());
}

void RowList::layOutDetails() {
    std::vector<RowLayout::Detail> details;
    for (const RowDetails::Entry& entry : m_details.entries()) {
        if (const auto index = indexOf(entry.id)) {
            details.push_back({.row = m_drag.positionOf(*index), .height = entry.height});
        }
    }
    m_layout.setDetails(std::move(details));
}

void RowList::holdAnchor() {
    const auto index = m_anchor ? indexOf(m_anchor->id) : std::optional<std::size_t>();
    if (!index) {
        setOffset(m_offset);
        return;
    }
    const int top = topOf(*index);
    const int toSeeItsDetail = bottomOf(*index) - height();
    setOffset(std::min(top, std::max(top - m_anchor->y, toSeeItsDetail)));
}

// The widgets

void RowList::synchronize() {
    if (!isVisible()) {
        return;
    }
    if (m_drag.findPlace()) {
        layOutDetails();
    }
    const bool hadFocus = slotOf(focused()) != nullptr;
    const std::vector<std::size_t> wanted = wantedRows();
    retireAllBut(wanted);
    fill(wanted);
    place();
    if (hadFocus) {
        giveFocusBack();
    }
    for (ListRow* const spare : m_spare) {
        spare->hide();
    }
    followPointer();
}

std::vector<std::size_t> RowList::wantedRows() const {
    const auto inView = m_layout.rowsWithin(m_offset, m_offset + height());
    const std::size_t first = inView.first - std::min(inView.first, kMargin);
    const std::size_t end = std::min(inView.end + kMargin, m_ids.size());
    std::vector<std::size_t> wanted;
    for (std::size_t position = first; position < end; ++position) {
        wanted.push_back(m_drag.indexAt(position));
    }
    const auto keep = [&](const std::optional<std::string>& id) {
        const auto index = id ? indexOf(*id) : std::optional<std::size_t>();
        if (index && std::find(wanted.begin(), wanted.end(), *index) == wanted.end()) {
            wanted.push_back(*index);
        }
    };
    // The rows that have the focus and the pointer keep their widgets wherever they are.
    if (slotOf(focused()) != nullptr) {
        keep(m_current);
    }
    keep(m_drag.lifted());
    return wanted;
}

void RowList::retireAllBut(const std::vector<std::size_t>& wanted) {
    std::unordered_map<std::string_view, std::size_t> indexes;
    for (const std::size_t index : wanted) {
        indexes.emplace(m_ids[index], index);
    }
    std::erase_if(m_slots, [&](Slot& slot) {
        const auto found = indexes.find(slot.id);
        if (found == indexes.end()) {
            m_spare.push_back(slot.widget);
            return true;
        }
        if (found->second != slot.index) {
            slot.index = found->second;
            present(slot);
        }
        return false;
    });
}

void RowList::fill(const std::vector<std::size_t>& wanted) {
    for (const std::size_t index : wanted) {
        const std::string& id = m_ids[index];
        if (slotOf(id) != nullptr) {
            continue;
        }
        ListRow* widget = nullptr;
        if (m_spare.empty()) {
            widget = m_content.makeRow(this);
            widget->installEventFilter(this);
            trackPointerOver(*widget);
        } else {
            widget = m_spare.back();
            m_spare.pop_back();
        }
        m_slots.push_back({.id = id, .index = index, .widget = widget});
        present(m_slots.back());
    }
}

void RowList::place() {
    const int rowHeight = m_layout.rowHeight();
    for (const Slot& slot : m_slots) {
        slot.widget->setGeometry(0, topInView(slot), width(), rowHeight);
        slot.widget->show();
        tint(slot);
    }
    for (const RowDetails::Entry& entry : m_details.entries()) {
        const auto index = indexOf(entry.id);
        if (index && entry.height > 0) {
            const int top = topOf(*index) + rowHeight - m_offset;
            entry.frame->setGeometry(0, top, width(), entry.height);
            entry.frame->show();
        } else {
            entry.frame->hide();
        }
    }
    m_drag.raise();
}

void RowList::present(const Slot& slot) const {
    slot.widget->present(slot.id, slot.index);
    tint(slot);
}

void RowList::tint(const Slot& slot) const {
    // The tints stay where they are when rows make room for one that is dragged.
    if (m_content.drag.moved) {
        slot.widget->setAlternate(m_drag.positionOf(slot.index) % 2 == 1);
    }
}

void RowList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    holdAnchor();
    synchronize();
}

void RowList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The list moves with what it stands in, and hears nothing of it.
    for (QWidget* above = this; !above->isWindow(); above = above->parentWidget()) {
        above->installEventFilter(this);
    }
    synchronize();
}

void RowList::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_drag.cancel();
    if (m_details.isMoving()) {
        m_details.settle();
    }
}

// For tests

std::string RowList::brokenRule() const {
    if (std::string broken = m_layout.brokenRule(); !broken.empty()) {
        return broken;
    }
    if (m_layout.rowCount() != m_ids.size()) {
        return "the layout has another number of rows than there are ids";
    }
    if (m_offset < 0 || m_offset > greatestOffset()) {
        return fmt::format("scrolled to {} of {}", m_offset, greatestOffset());
    }
    if (!isVisible()) {
        return {};
    }
    const auto inView = m_layout.rowsWithin(m_offset, m_offset + height());
    for (std::size_t position = inView.first; position < inView.end; ++position) {
        if (slotOf(m_ids[m_drag.indexAt(position)]) == nullptr) {
            return fmt::format("row {} can be seen and has no widget", position);
        }
    }
    for (const Slot& slot : m_slots) {
        if (slot.index >= m_ids.size() || m_ids[slot.index] != slot.id) {
            return fmt::format("row {} shows {}", slot.index, slot.id);
        }
        const std::size_t position = m_drag.positionOf(slot.index);
        const bool isNear = position + kMargin >= inView.first && position < inView.end + kMargin;
        if (!isNear && slot.id != m_current && slot.id != m_drag.lifted()) {
            return fmt::format("row {} has a widget far from the view", slot.index);
        }
        const QRect where(0, topInView(slot), width(), m_layout.rowHeight());
        if (slot.widget->geometry() != where || slot.widget->isHidden()) {
            return fmt::format("row {} is not in its place", slot.index);
        }
    }
    const bool isAnySpareShown = std::any_of(
        m_spare.begin(), m_spare.end(), [](ListRow* spare) { return !spare->isHidden(); });
    return isAnySpareShown ? "a row without an item is shown" : "";
}

}  // namespace quillbar
