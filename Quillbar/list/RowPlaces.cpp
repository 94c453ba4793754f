// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowPlaces.h"

#include <algorithm>
#include <utility>

namespace quillbar {

void RowPlaces::setIds(std::vector<std::string> ids) {
    m_ids = std::move(ids);
    m_layout.setRowCount(m_ids.size());
}

std::optional<std::size_t> RowPlaces::indexOf(const std::string& id) const {
    const auto found = std::find(m_ids.begin(), m_ids.end(), id);
    if (found == m_ids.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - m_ids.begin());
}

void RowPlaces::setGap(std::size_t from, std::size_t to) {
    if (from != m_from || to != m_to) {
        m_from = from;
        m_to = to;
        layOutDetails();
    }
}

std::size_t RowPlaces::positionOf(std::size_t index) const {
    if (index == m_from) {
        return m_to;
    }
    const std::size_t amongOthers = index > m_from ? index - 1 : index;
    return amongOthers >= m_to ? amongOthers + 1 : amongOthers;
}

std::size_t RowPlaces::indexAt(std::size_t position) const {
    if (position == m_to) {
        return m_from;
    }
    const std::size_t amongOthers = position > m_to ? position - 1 : position;
    return amongOthers >= m_from ? amongOthers + 1 : amongOthers;
}

void RowPlaces::setDetails(std::vector<RowLayout::Detail> details) {
    m_details = std::move(details);
    layOutDetails();
}

void RowPlaces::layOutDetails() {
    std::vector<RowLayout::Detail> details = m_details;
    for (RowLayout::Detail& detail : details) {
        detail.row = positionOf(detail.row);
    }
    m_layout.setDetails(std::move(details));
}

std::string RowPlaces::brokenRule() const {
    return m_layout.rowCount() == m_ids.size()
               ? m_layout.brokenRule()
               : "the layout has another number of rows than there are ids";
}

}  // namespace quillbar
