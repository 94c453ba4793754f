// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/PricePath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillbar::simulator {
namespace {

Listing listing(double startPrice, int priceDigits, double dailyVolatility, int tradePeriod) {
    Listing listing;
    listing.startPrice = startPrice;
    listing.priceDigits = priceDigits;
    listing.dailyVolatility = dailyVolatility;
    listing.tradePeriod = tradePeriod;
    listing.quoteVolume = 1e6;
    listing.walkId = 0xC0FFEE;
    return listing;
}

// Many ticks a second; few ticks a day; hardly a tick a day; a trade every half minute.
std::vector<Listing> listings() {
    return {listing(67234.5, 2, 0.02, 1),
            listing(0.9998, 4, 0.0004, 1),
            listing(0.00000040, 8, 0.09, 3),
            listing(1.0, 2, 0.0004, 5),
            listing(5.432, 3, 0.0949, 30)};
}

// About the start, where two blocks meet, and in the past.
const std::vector<std::pair<std::int64_t, std::int64_t>> kWindows{{0, 0},
                                                                  {0, 1},
                                                                  {7, 8},
                                                                  {-300, 300},
                                                                  {-20'000, 0},
                                                                  {-524'289, -524'200},
                                                                  {1'000'000, 1'004'095},
                                                                  {-55'000'123, -54'999'000}};

TEST(PricePathTest, startsAtTheListingsPrice) {
    EXPECT_EQ(PricePath(listings()[0]).price(0), 67234.5);
}

TEST(PricePathTest, changesThePriceWithEveryTrade) {
    for (const Listing& each : listings()) {
        const PricePath path(each);
        for (std::int64_t trade = -2000; trade < 2000; ++trade) {
            EXPECT_NE(path.price(trade), path.price(trade + 1));
        }
    }
}

TEST(PricePathTest, findsTheVeryLowestAndHighestPrices) {
    for (const Listing& each : listings()) {
        SCOPED_TRACE(each.startPrice);
        const PricePath path(each);
        for (const auto& [first, last] : kWindows) {
            double low = path.price(first);
            double high = low;
            for (std::int64_t trade = first; trade <= last; ++trade) {
                low = std::min(low, path.price(trade));
                high = std::max(high, path.price(trade));
            }
            const PricePath::Window window = path.window(first, last);
            EXPECT_EQ(window.open, path.price(first));
            EXPECT_EQ(window.close, path.price(last));
            EXPECT_EQ(window.low, low) << first << " to " << last;
            EXPECT_EQ(window.high, high) << first << " to " << last;
        }
    }
}

TEST(PricePathTest, addsUpTheTurnoverOfWindowsThatJoin) {
    for (const Listing& each : listings()) {
        const PricePath path(each);
        for (const auto& [first, last] : kWindows) {
            const PricePath::Window whole = path.window(first, last);
            const std::int64_t between = first + (last - first) / 3;
            const PricePath::Window one = path.window(first, between);
            const PricePath::Window other = path.window(between, last);
            EXPECT_EQ(whole.trades, one.trades + other.trades);
            EXPECT_NEAR(whole.volume, one.volume + other.volume, whole.volume * 1e-12);
            EXPECT_NEAR(
                whole.quoteVolume, one.quoteVolume + other.quoteVolume, whole.quoteVolume * 1e-12);
            EXPECT_EQ(whole.volume > 0, first != last);
        }
    }
}

TEST(PricePathTest, tradesAtTheMeanOfThePricesOfAWindow) {
    const Listing listed = listings()[0];
    const PricePath path(listed);
    // Within half an hour the volume is even.
    const PricePath::Window window = path.window(-1000, -100);
    double sum = 0;
    for (std::int64_t trade = -1000; trade < -100; ++trade) {
        sum += (path.price(trade) + path.price(trade + 1)) / 2;
    }
    EXPECT_NEAR(window.quoteVolume / window.volume, sum / 900, 0.02);
}

TEST(PricePathTest, turnsOverWhatTheListingSaysInADay) {
    for (const Listing& each : listings()) {
        const PricePath::Window day = PricePath(each).window(-86'400 / each.tradePeriod, 0);
        EXPECT_NEAR(day.quoteVolume, each.quoteVolume, each.quoteVolume * 0.35);
    }
}

TEST(PricePathTest, neverFallsToNothing) {
    Listing wild = listings()[4];
    for (wild.walkId = 0; wild.walkId < 20; ++wild.walkId) {
        const PricePath::Window years = PricePath(wild).window(-1'000'000, 1'000'000);
        EXPECT_GT(years.low, wild.startPrice / 5);
        EXPECT_LT(years.high, wild.startPrice * 5);
    }
}

}  // namespace
}  // namespace quillbar::simulator
