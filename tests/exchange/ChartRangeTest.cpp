// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ChartRange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {

using ::testing::ElementsAre;

TEST(ChartRangeTest, listsItsCasesInTheirOrder) {
    EXPECT_THAT(kChartRanges, ElementsAre(ChartRange::day, ChartRange::week, ChartRange::month));
}

TEST(ChartRangeTest, describesADay) {
    EXPECT_EQ(rawValue(ChartRange::day), "day");
    EXPECT_EQ(displayName(ChartRange::day), "1D");
    EXPECT_EQ(interval(ChartRange::day), "5m");
    EXPECT_EQ(limit(ChartRange::day), 288);
    EXPECT_EQ(timeToLive(ChartRange::day), Seconds(300));
}

TEST(ChartRangeTest, describesAWeek) {
    EXPECT_EQ(rawValue(ChartRange::week), "week");
    EXPECT_EQ(displayName(ChartRange::week), "1W");
    EXPECT_EQ(interval(ChartRange::week), "1h");
    EXPECT_EQ(limit(ChartRange::week), 168);
    EXPECT_EQ(timeToLive(ChartRange::week), Seconds(1800));
}

TEST(ChartRangeTest, describesAMonth) {
    EXPECT_EQ(rawValue(ChartRange::month), "month");
    EXPECT_EQ(displayName(ChartRange::month), "1M");
    EXPECT_EQ(interval(ChartRange::month), "4h");
    EXPECT_EQ(limit(ChartRange::month), 180);
    EXPECT_EQ(timeToLive(ChartRange::month), Seconds(7200));
}

TEST(ChartRangeTest, isMadeFromItsRawValuesAlone) {
    for (const ChartRange range : kChartRanges) {
        EXPECT_EQ(chartRange(rawValue(range)), range);
    }
    for (const char* const text : {"Week", "", "1W", "week ", "year"}) {
        EXPECT_EQ(chartRange(text), std::nullopt) << text;
    }
}

}  // namespace quillbar
