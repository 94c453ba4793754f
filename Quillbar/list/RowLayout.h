// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// Where the rows of a list stand: one under the other, all of one height, with a detail under some
/// of them. Everything costs the same for ten rows and for ten thousand. A plain value without
/// widgets; measures are points from the top of the whole list.
class RowLayout final {
public:
    /// What is unfolded under a row.
    struct Detail final {
        std::size_t row = 0;
        int height = 0;

        [[nodiscard]] bool operator==(const Detail&) const = default;
    };

    /// The rows from `first` to the one before `end`.
    struct Range final {
        std::size_t first = 0;
        std::size_t end = 0;

        [[nodiscard]] bool contains(std::size_t row) const { return row >= first && row < end; }
        [[nodiscard]] bool operator==(const Range&) const = default;
    };

    /// No rows. `rowHeight` is positive.
    explicit RowLayout(int rowHeight)
        : m_rowHeight(rowHeight) {}

    /// Gives all rows another height, which is positive.
    void setRowHeight(int height) { m_rowHeight = height; }
    /// Also drops the details of rows that are gone.
    void setRowCount(std::size_t count);
    /// The details may be in any order, at most one for each row. A detail without a height, or of
    /// a row that does not exist, is left out.
    void setDetails(std::vector<Detail> details);

    [[nodiscard]] std::size_t rowCount() const noexcept { return m_rowCount; }
    [[nodiscard]] int rowHeight() const noexcept { return m_rowHeight; }
    /// In the order of the rows.
    [[nodiscard]] const std::vector<Detail>& details() const noexcept { return m_details; }

    /// The height of everything.
    [[nodiscard]] int height() const;
    /// The upper edge of a row; `height` for the row after the last.
    [[nodiscard]] int top(std::size_t row) const;
    /// The lower edge of a row with its detail.
    [[nodiscard]] int bottom(std::size_t row) const;

    /// The row at the line `y`, counting its detail as a part of it; absent above and below all
    /// rows.
    [[nodiscard]] std::optional<std::size_t> rowAt(int y) const;
    /// The rows of which any part, or any part of their details, lies between the two lines.
    [[nodiscard]] Range rowsWithin(int top, int bottom) const;

    /// Whether the edges fit together and `rowAt` finds every row by them. Looks at every row.
    [[nodiscard]] bool isConsistent() const { return brokenRule().empty(); }
    /// The first rule that does not hold, for a test to show; empty when all do.
    [[nodiscard]] std::string brokenRule() const;

private:
    int m_rowHeight;
    std::size_t m_rowCount = 0;
    std::vector<Detail> m_details;
};

}  // namespace quillbar
