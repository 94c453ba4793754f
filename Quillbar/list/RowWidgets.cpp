// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowWidgets.h"

#include <QWidget>

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace quillbar {

namespace {

// When a row moves away from under a pointer that stands still, the window system still counts the
// pointer as over it, and may send no Enter when the pointer comes back. Moves are always sent.
void trackPointerOver(ListRow& row) {
    row.setMouseTracking(true);
    for (QWidget* const each : row.findChildren<QWidget*>()) {
        each->setMouseTracking(true);
    }
}

}  // namespace

const RowWidgets::Slot* RowWidgets::find(const QObject* widget) const {
    const auto found = std::find_if(m_slots.begin(), m_slots.end(), [widget](const Slot& slot) {
        return slot.widget == widget;
    });
    return found == m_slots.end() ? nullptr : &*found;
}

const RowWidgets::Slot* RowWidgets::find(const std::string& id) const {
    const auto found = std::find_if(
        m_slots.begin(), m_slots.end(), [&id](const Slot& slot) { return slot.id == id; });
    return found == m_slots.end() ? nullptr : &*found;
}

void RowWidgets::assign(const std::vector<std::size_t>& indexes,
                        const std::vector<std::string>& ids) {
    std::unordered_map<std::string_view, std::size_t> wanted;
    for (const std::size_t index : indexes) {
        wanted.emplace(ids[index], index);
    }
    std::erase_if(m_slots, [&](Slot& slot) {
        const auto found = wanted.find(slot.id);
        if (found == wanted.end()) {
            m_spare.push_back(slot.widget);
            return true;
        }
        if (found->second != slot.index) {
            slot.index = found->second;
            slot.widget->present(slot.id, slot.index);
        }
        return false;
    });
    for (const std::size_t index : indexes) {
        if (find(ids[index]) != nullptr) {
            continue;
        }
        ListRow* widget = nullptr;
        if (m_spare.empty()) {
            widget = m_make();
            trackPointerOver(*widget);
        } else {
            widget = m_spare.back();
            m_spare.pop_back();
        }
        m_slots.push_back({.id = ids[index], .index = index, .widget = widget});
        widget->present(ids[index], index);
    }
}

void RowWidgets::hideSpare() const {
    for (ListRow* const spare : m_spare) {
        spare->hide();
    }
}

bool RowWidgets::isAnySpareShown() const {
    return std::any_of(
        m_spare.begin(), m_spare.end(), [](ListRow* spare) { return !spare->isHidden(); });
}

void RowWidgets::hoverOnly(const QObject* row) const {
    for (const Slot& slot : m_slots) {
        slot.widget->setHovering(row != nullptr && slot.widget == row);
    }
}

}  // namespace quillbar
