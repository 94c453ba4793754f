// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace quillbar {
namespace {

constexpr int kRowHeight = 28;

/// The same list, as one number a line: the row that the line belongs to.
std::vector<std::size_t> linesOf(std::size_t count, const std::vector<RowLayout::Detail>& details) {
    std::vector<std::size_t> lines;
    for (std::size_t row = 0; row < count; ++row) {
        lines.insert(lines.end(), kRowHeight, row);
        for (const RowLayout::Detail& detail : details) {
            if (detail.row == row && detail.height > 0) {
                lines.insert(lines.end(), static_cast<std::size_t>(detail.height), row);
            }
        }
    }
    return lines;
}

RowLayout layoutOf(std::size_t count, std::vector<RowLayout::Detail> details = {}) {
    RowLayout layout(kRowHeight);
    layout.setRowCount(count);
    layout.setDetails(std::move(details));
    return layout;
}

TEST(RowLayoutTest, rowsFollowOneAnother) {
    const RowLayout layout = layoutOf(3);
    EXPECT_EQ(layout.height(), 84);
    EXPECT_EQ(layout.top(2), 56);
    EXPECT_EQ(layout.bottom(2), 84);
    EXPECT_EQ(layout.rowAt(55), 1U);
    EXPECT_EQ(layout.rowAt(56), 2U);
}

TEST(RowLayoutTest, aDetailPushesDownWhatFollows) {
    const RowLayout layout = layoutOf(3, {{.row = 1, .height = 210}});
    EXPECT_EQ(layout.top(1), 28);
    EXPECT_EQ(layout.bottom(1), 266);
    EXPECT_EQ(layout.top(2), 266);
    EXPECT_EQ(layout.rowAt(265), 1U);
    EXPECT_EQ(layout.height(), 294);
}

TEST(RowLayoutTest, nothingLiesInAnEmptyList) {
    const RowLayout layout = layoutOf(0);
    EXPECT_EQ(layout.height(), 0);
    EXPECT_EQ(layout.rowAt(0), std::nullopt);
    EXPECT_EQ(layout.rowsWithin(-10, 1000), RowLayout::Range{});
    EXPECT_TRUE(layout.isConsistent()) << layout.brokenRule();
}

TEST(RowLayoutTest, nothingLiesOutsideTheList) {
    const RowLayout layout = layoutOf(2);
    EXPECT_EQ(layout.rowAt(-1), std::nullopt);
    EXPECT_EQ(layout.rowAt(56), std::nullopt);
    EXPECT_EQ(layout.rowsWithin(56, 100), RowLayout::Range{});
    EXPECT_EQ(layout.rowsWithin(10, 10), RowLayout::Range{});
}

TEST(RowLayoutTest, detailsOfRowsThatAreGoneGoWithThem) {
    RowLayout layout = layoutOf(5, {{.row = 4, .height = 10}, {.row = 1, .height = 20}});
    EXPECT_EQ(layout.details().front().row, 1U);
    layout.setRowCount(3);
    EXPECT_EQ(layout.details(), (std::vector<RowLayout::Detail>{{.row = 1, .height = 20}}));
    layout.setDetails({{.row = 3, .height = 10}, {.row = 2, .height = 0}});
    EXPECT_TRUE(layout.details().empty());
}

TEST(RowLayoutTest, agreesWithCountingLines) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 300; ++round) {
        const std::size_t count = random() % 30;
        std::vector<RowLayout::Detail> details;
        for (std::size_t row = random() % 20; row < 30 && details.size() < 3;
             row += 1 + random() % 5) {
            details.push_back({.row = row, .height = static_cast<int>(random() % 230)});
        }
        std::shuffle(details.begin(), details.end(), random);
        const RowLayout layout = layoutOf(count, details);
        const auto lines = linesOf(count, details);
        ASSERT_TRUE(layout.isConsistent()) << layout.brokenRule();
        ASSERT_EQ(layout.height(), static_cast<int>(lines.size()));
        for (std::size_t line = 0; line < lines.size(); ++line) {
            ASSERT_EQ(layout.rowAt(static_cast<int>(line)), lines[line]);
        }
        if (lines.empty()) {
            continue;
        }
        const std::size_t from = random() % lines.size();
        const std::size_t to = from + random() % (lines.size() - from);
        const auto range = layout.rowsWithin(static_cast<int>(from) - (from == 0 ? 9 : 0),
                                             static_cast<int>(to) + 1);
        ASSERT_EQ(range.first, lines[from]);
        ASSERT_EQ(range.end, lines[to] + 1);
    }
}

TEST(RowLayoutTest, aRangeHoldsItsFirstAndNotItsEnd) {
    constexpr RowLayout::Range kRange{.first = 2, .end = 4};
    EXPECT_TRUE(kRange.contains(2));
    EXPECT_TRUE(kRange.contains(3));
    EXPECT_FALSE(kRange.contains(1));
    EXPECT_FALSE(kRange.contains(4));
}

}  // namespace
}  // namespace quillbar
