// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/PriceTicks.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<double> ticks(double lower, double upper, int most = 5) {
    return PriceTicks::within({lower, upper}, most);
}

std::vector<std::string> texts(double lower, double upper) {
    std::vector<std::string> texts;
    for (const double price : ticks(lower, upper)) {
        texts.push_back(PriceFormatter::price(price));
    }
    return texts;
}

TEST(PriceTicksTest, areRoundPrices) {
    EXPECT_THAT(ticks(99.6, 110.4), ElementsAre(100, 105, 110));
    EXPECT_THAT(ticks(99.6, 110.4, 6), ElementsAre(100, 102, 104, 106, 108, 110));
    EXPECT_THAT(texts(66'950, 68'123), ElementsAre("67,000.00", "67,500.00", "68,000.00"));
    EXPECT_THAT(ticks(49.75, 50.25), ElementsAre(49.8, 49.9, 50, 50.1, 50.2));
    EXPECT_THAT(texts(0.00001201, 0.00001266), ElementsAre("0.0000122", "0.0000124", "0.0000126"));
}

TEST(PriceTicksTest, areTheDoublesOfTheirDecimals) {
    EXPECT_THAT(ticks(0.1, 0.7), ElementsAre(0.2, 0.4, 0.6));
    EXPECT_THAT(ticks(0.3, 0.7), ElementsAre(0.3, 0.4, 0.5, 0.6, 0.7));
}

TEST(PriceTicksTest, includeBothEnds) {
    EXPECT_THAT(ticks(0, 105), ElementsAre(0, 50, 100));
    EXPECT_THAT(ticks(10, 20), ElementsAre(10, 15, 20));
}

TEST(PriceTicksTest, areNeverMoreThanFit) {
    for (int most = 1; most <= 9; ++most) {
        for (double upper = 1.01; upper < 2000; upper *= 1.07) {
            EXPECT_LE(ticks(1, upper, most).size(), static_cast<std::size_t>(most)) << upper;
        }
    }
}

TEST(PriceTicksTest, areTwoAtLeastWhereFiveFit) {
    for (double upper = 1.01; upper < 2000; upper *= 1.07) {
        EXPECT_GE(ticks(1, upper, 5).size(), 2U) << upper;
    }
}

TEST(PriceTicksTest, markNothingButZeroOfACoinWithoutAPrice) {
    EXPECT_THAT(ticks(0, std::numeric_limits<double>::min()), ElementsAre(0));
}

TEST(PriceTicksTest, copeWithVerySmallAndVeryLargePrices) {
    EXPECT_THAT(ticks(1e-290, 3e-290), ElementsAre(1e-290, 1.5e-290, 2e-290, 2.5e-290, 3e-290));
    EXPECT_THAT(ticks(1e300, 3e300), ElementsAre(1e300, 1.5e300, 2e300, 2.5e300, 3e300));
}

TEST(PriceTicksTest, areNoneWherePricesCannotBeTold) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THAT(ticks(1, kInfinity), IsEmpty());
    EXPECT_THAT(ticks(kNaN, 2), IsEmpty());
    EXPECT_THAT(ticks(1, kNaN), IsEmpty());
    EXPECT_THAT(ticks(2, 1), IsEmpty());
    EXPECT_THAT(ticks(5, 5), IsEmpty());
    EXPECT_THAT(ticks(-1, 5), IsEmpty());
    EXPECT_THAT(ticks(1e300, std::nextafter(1e300, kInfinity)), IsEmpty());
}

}  // namespace
}  // namespace quillbar
