// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace quillbar {

void RowLayout::setRowCount(std::size_t count) {
    m_rowCount = count;
    std::erase_if(m_details, [count](const Detail& detail) { return detail.row >= count; });
}

void RowLayout::setDetails(std::vector<Detail> details) {
    std::erase_if(details, [this](const Detail& detail) {
        return detail.height <= 0 || detail.row >= m_rowCount;
    });
    std::sort(details.begin(), details.end(), [](const Detail& left, const Detail& right) {
        return left.row < right.row;
    });
    m_details = std::move(details);
}

int RowLayout::height() const {
    return top(m_rowCount);
}

int RowLayout::top(std::size_t row) const {
    int edge = static_cast<int>(row) * m_rowHeight;
    for (const Detail& detail : m_details) {
        if (detail.row < row) {
            edge += detail.height;
        }
    }
    return edge;
}

int RowLayout::bottom(std::size_t row) const {
    return top(row + 1);
}

std::optional<std::size_t> RowLayout::rowAt(int y) const {
    if (y < 0) {
        return std::nullopt;
    }
    // Without the details that end above the line, only rows are left above it.
    int line = y;
    for (const Detail& detail : m_details) {
        const int start = (static_cast<int>(detail.row) + 1) * m_rowHeight;
        if (line < start) {
            break;
        }
        if (line < start + detail.height) {
            return detail.row;
        }
        line -= detail.height;
    }
    const auto row = static_cast<std::size_t>(line / m_rowHeight);
    return row < m_rowCount ? std::optional(row) : std::nullopt;
}

RowLayout::Range RowLayout::rowsWithin(int top, int bottom) const {
    const int from = std::max(top, 0);
    const int to = std::min(bottom, height());
    if (from >= to) {
        return {};
    }
    return {.first = rowAt(from).value_or(0), .end = rowAt(to - 1).value_or(0) + 1};
}

std::string RowLayout::brokenRule() const {
    for (std::size_t each = 1; each < m_details.size(); ++each) {
        if (m_details[each - 1].row >= m_details[each].row) {
            return fmt::format("detail {} is not below the one before", each);
        }
    }
    int edge = 0;
    for (std::size_t row = 0; row < m_rowCount; ++row) {
        if (top(row) != edge) {
            return fmt::format("row {} begins at {}, not at {}", row, top(row), edge);
        }
        edge = bottom(row);
        if (edge - top(row) < m_rowHeight) {
            return fmt::format("row {} is {} high", row, edge - top(row));
        }
        if (rowAt(top(row)) != row || rowAt(edge - 1) != row) {
            return fmt::format("row {} is not found at its own edges", row);
        }
    }
    if (edge != height()) {
        return fmt::format("the rows end at {}, not at {}", edge, height());
    }
    if (rowAt(-1) || rowAt(height())) {
        return "a row is found outside the list";
    }
    return {};
}

}  // namespace quillbar
