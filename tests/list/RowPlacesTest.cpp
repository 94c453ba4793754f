// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowPlaces.h"
#include "tests/list/NamedRow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

constexpr int kRow = 28;

struct RowPlacesTest : testing::Test {
    void SetUp() override { places.setIds(numbered(5)); }

    /// The ids by their positions.
    [[nodiscard]] std::vector<std::string> shown() const {
        std::vector<std::string> ids;
        for (std::size_t position = 0; position < places.ids().size(); ++position) {
            ids.push_back(places.ids()[places.indexAt(position)]);
        }
        return ids;
    }

    RowPlaces places{kRow};
};

TEST_F(RowPlacesTest, findsARowByItsId) {
    EXPECT_EQ(places.indexOf("3"), 3U);
    EXPECT_EQ(places.indexOf("5"), std::nullopt);
}

TEST_F(RowPlacesTest, showsALiftedRowWhereItWouldBeDropped) {
    places.setGap(1, 3);
    EXPECT_THAT(shown(), ElementsAre("0", "2", "3", "1", "4"));
    places.setGap(3, 0);
    EXPECT_THAT(shown(), ElementsAre("3", "0", "1", "2", "4"));
    places.closeGap();
    EXPECT_THAT(shown(), ElementsAre("0", "1", "2", "3", "4"));
}

TEST_F(RowPlacesTest, findsTheRowOfEachPosition) {
    for (std::size_t from = 0; from < 5; ++from) {
        for (std::size_t to = 0; to < 5; ++to) {
            places.setGap(from, to);
            for (std::size_t index = 0; index < 5; ++index) {
                EXPECT_EQ(places.indexAt(places.positionOf(index)), index) << from << " to " << to;
            }
        }
    }
}

TEST_F(RowPlacesTest, keepsADetailUnderItsRow) {
    places.setDetails({{.row = 1, .height = 100}});
    EXPECT_EQ(places.top(1), kRow);
    EXPECT_EQ(places.bottom(1), 2 * kRow + 100);
    places.setGap(1, 3);
    EXPECT_EQ(places.top(1), 3 * kRow);
    EXPECT_EQ(places.bottom(1), 4 * kRow + 100);
    EXPECT_EQ(places.top(4), 4 * kRow + 100);
    EXPECT_EQ(places.top(2), kRow);
    places.closeGap();
    EXPECT_EQ(places.top(2), 2 * kRow + 100);
}

}  // namespace
}  // namespace quillbar
