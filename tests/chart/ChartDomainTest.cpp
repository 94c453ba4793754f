// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartDomain.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

constexpr double kSmallest = 2.2250738585072014e-308;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The axis of candles with these lows and highs.
std::optional<PriceRange> axis(std::initializer_list<std::pair<double, double>> lowsAndHighs,
                               double ratio = ChartDomain::kDefaultPaddingRatio) {
    std::vector<Candle> candles;
    for (const auto& [low, high] : lowsAndHighs) {
        candles.push_back(Candle{TimePoint(), low, high, low, high});
    }
    return ChartDomain::priceRange(candles, ratio);
}

void expectAxis(std::optional<PriceRange> actual, double lower, double upper) {
    ASSERT_TRUE(actual);
    EXPECT_DOUBLE_EQ(actual->lower, lower);
    EXPECT_DOUBLE_EQ(actual->upper, upper);
}

}  // namespace

TEST(ChartDomainTest, HasNoAxisWithoutCandles) {
    EXPECT_EQ(axis({}), std::nullopt);
}

TEST(ChartDomainTest, PadsTheSpanOfTheCandles) {
    EXPECT_EQ(ChartDomain::kDefaultPaddingRatio, 0.04);
    expectAxis(axis({{100, 110}}), 99.6, 110.4);
    expectAxis(axis({{104, 106}, {100, 103}, {105, 110}, {102, 104}}), 99.6, 110.4);
    expectAxis(axis({{100, 110}}, 0), 100, 110);
}

TEST(ChartDomainTest, PadsFlatCandlesByTheirPrice) {
    expectAxis(axis({{50, 50}, {50, 50}}), 49.75, 50.25);
    expectAxis(axis({{0, 0}}), 0, kSmallest);
}

TEST(ChartDomainTest, NeverGoesBelowZero) {
    expectAxis(axis({{1, 101}}), 0, 105);
    expectAxis(axis({{-10, -5}}), 0, 0);
}

TEST(ChartDomainTest, NeverIsUpsideDown) {
    const auto inverted = axis({{100, 10}});
    expectAxis(inverted, 99.5, 99.5);
}

TEST(ChartDomainTest, PassesOverPricesThatAreNoNumbers) {
    expectAxis(axis({{100, 110}, {kNaN, kNaN}}), 99.6, 110.4);
}

}  // namespace quillbar
