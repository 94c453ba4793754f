// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowLayout.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// Which row stands where. A row has an index, its own among the ids, and a position, at which it
/// is shown. The two are the same unless a row is lifted: its position is then the gap where it
/// would be dropped, and the other rows close up. A plain value without widgets; measures are
/// points from the top of the whole list.
class RowPlaces final {
public:
    /// No rows. `rowHeight` is positive.
    explicit RowPlaces(int rowHeight)
        : m_layout(rowHeight) {}

    /// Gives all rows another height, which is positive.
    void setRowHeight(int height) { m_layout.setRowHeight(height); }
    /// The ids differ from one another. A gap stays where it is.
    void setIds(std::vector<std::string> ids);
    [[nodiscard]] const std::vector<std::string>& ids() const noexcept { return m_ids; }
    [[nodiscard]] std::optional<std::size_t> indexOf(const std::string& id) const;

    /// The row of index `from` is lifted, and would be dropped at the position `to`.
    void setGap(std::size_t from, std::size_t to);
    void closeGap() { setGap(0, 0); }
    [[nodiscard]] std::size_t gapFrom() const noexcept { return m_from; }
    [[nodiscard]] std::size_t gapTo() const noexcept { return m_to; }
    [[nodiscard]] std::size_t positionOf(std::size_t index) const;
    [[nodiscard]] std::size_t indexAt(std::size_t position) const;

    /// What is unfolded under the rows, which are named by their indexes.
    void setDetails(std::vector<RowLayout::Detail> details);

    /// The rows by their positions.
    [[nodiscard]] const RowLayout& layout() const noexcept { return m_layout; }
    /// The edges of the row of an index; the lower one with its detail.
    [[nodiscard]] int top(std::size_t index) const { return m_layout.top(positionOf(index)); }
    [[nodiscard]] int bottom(std::size_t index) const { return m_layout.bottom(positionOf(index)); }

    /// For tests: the first rule that does not hold, in words; empty when all hold.
    [[nodiscard]] std::string brokenRule() const;

private:
    void layOutDetails();

    std::vector<std::string> m_ids;
    // Of rows named by their indexes.
    std::vector<RowLayout::Detail> m_details;
    RowLayout m_layout;
    // The lifted row's index, and the position where it would be dropped; the same without one.
    std::size_t m_from = 0;
    std::size_t m_to = 0;
};

}  // namespace quillbar
