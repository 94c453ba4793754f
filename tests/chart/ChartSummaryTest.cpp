// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartSummary.h"
#include "tests/chart/Candles.h"
#include "tests/model/Instants.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace quillbar {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const TimePoint kNoon = utcInstant(2026, 11, 14, 12);

ChartSummary summaryOf(const std::vector<double>& closes) {
    return ChartSummary::of(candlesThrough(closes, kNoon, std::chrono::hours(1)));
}

TEST(ChartSummaryTest, goesFromTheFirstOpenToTheLastClose) {
    EXPECT_EQ(summaryOf({100, 120, 90, 101.5}), (ChartSummary{120, 90, 1.5, 100, 101.5}));
    EXPECT_EQ(summaryOf({100, 50}).changePercent, -50);
    EXPECT_EQ(summaryOf({100}).changePercent, 0);
}

TEST(ChartSummaryTest, takesTheReachOfTheCandlesNotTheirCloses) {
    auto candles = candlesThrough({100, 101}, kNoon, std::chrono::hours(1));
    candles[0].high = 110;
    candles[1].low = 90;
    EXPECT_EQ(ChartSummary::of(candles).high, 110);
    EXPECT_EQ(ChartSummary::of(candles).low, 90);
}

TEST(ChartSummaryTest, knowsNothingWithoutCandles) {
    EXPECT_EQ(ChartSummary::of({}), ChartSummary());
    EXPECT_EQ(ChartSummary().text(), QString());
}

TEST(ChartSummaryTest, knowsNoChangeFromNothing) {
    EXPECT_EQ(summaryOf({0, 5}).changePercent, std::nullopt);
    EXPECT_EQ(summaryOf({0, 5}).text(), QStringLiteral("起始 0，最新 5.00，高 5.00，低 0"));
}

TEST(ChartSummaryTest, passesOverWhatIsNoNumber) {
    auto candles = candlesThrough({100, 102, 101}, kNoon, std::chrono::hours(1));
    candles[0].high = kNaN;
    candles[0].low = kNaN;
    EXPECT_EQ(ChartSummary::of(candles).high, 102);
    EXPECT_EQ(ChartSummary::of(candles).low, 100);
    candles[2].close = kNaN;
    EXPECT_EQ(ChartSummary::of(candles).changePercent, std::nullopt);
    EXPECT_EQ(ChartSummary::of(candles).last, std::nullopt);
    candles[0].open = kNaN;
    EXPECT_EQ(ChartSummary::of(candles).first, std::nullopt);
    EXPECT_EQ(ChartSummary::of(candles).changeTo(100), std::nullopt);
}

TEST(ChartSummaryTest, tellsTheChangeUpToAPrice) {
    EXPECT_EQ(summaryOf({100, 120}).changeTo(105), 5);
    EXPECT_EQ(summaryOf({100, 120}).changeTo(100), 0);
    EXPECT_EQ(summaryOf({0, 120}).changeTo(105), std::nullopt);
    EXPECT_EQ(summaryOf({100, 120}).changeTo(kNaN), std::nullopt);
    EXPECT_EQ(ChartSummary().changeTo(105), std::nullopt);
}

TEST(ChartSummaryTest, readsAsOneLine) {
    EXPECT_EQ(
        summaryOf({66'800, 68'000, 67'234.5}).text(),
        QStringLiteral("起始 66,800.00，最新 67,234.50，区间 +0.65%，高 68,000.00，低 66,800.00"));
}

}  // namespace
}  // namespace quillbar
