// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ChartCache.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace quillbar {

namespace {

using ::testing::Eq;
using ::testing::Optional;

constexpr TimePoint kStored{Seconds(1700000000)};

std::vector<Candle> candles(double price) {
    return {Candle{kStored, price, price, price, price}};
}

ChartCache with(double price, ChartRange range) {
    return ChartCache().inserting(candles(price), "BTCUSDT", range, kStored);
}

auto at(const ChartCache& cache, ChartRange range, double age) {
    return cache.value("BTCUSDT", range, kStored + Seconds(age));
}

}  // namespace

TEST(ChartCacheTest, holdsNothingAtFirst) {
    EXPECT_EQ(ChartCache().value("BTCUSDT", ChartRange::day, kStored), std::nullopt);
}

TEST(ChartCacheTest, returnsCandlesUntilTheirTimeIsOver) {
    const ChartCache day = with(1, ChartRange::day);
    EXPECT_THAT(at(day, ChartRange::day, 0), Optional(Eq(candles(1))));
    EXPECT_THAT(at(day, ChartRange::day, 299.9), Optional(Eq(candles(1))));
    EXPECT_EQ(at(day, ChartRange::day, 300), std::nullopt);
    EXPECT_THAT(at(with(1, ChartRange::week), ChartRange::week, 1799), Optional(Eq(candles(1))));
    EXPECT_EQ(at(with(1, ChartRange::week), ChartRange::week, 1800), std::nullopt);
    EXPECT_THAT(at(with(1, ChartRange::month), ChartRange::month, 7199), Optional(Eq(candles(1))));
    EXPECT_EQ(at(with(1, ChartRange::month), ChartRange::month, 7200), std::nullopt);
}

TEST(ChartCacheTest, takesCandlesOfTheFutureAsFresh) {
    EXPECT_THAT(at(with(1, ChartRange::day), ChartRange::day, -1e6), Optional(Eq(candles(1))));
}

TEST(ChartCacheTest, tellsHowLongCandlesStayFresh) {
    const auto freshFor = [](const ChartCache& cache, ChartRange range, double age) {
        return cache.freshFor("BTCUSDT", range, kStored + Seconds(age)).count();
    };
    const ChartCache day = with(1, ChartRange::day);
    EXPECT_EQ(freshFor(day, ChartRange::day, 0), 300);
    EXPECT_EQ(freshFor(day, ChartRange::day, 200), 100);
    EXPECT_EQ(freshFor(day, ChartRange::day, 300), 0);
    EXPECT_EQ(freshFor(day, ChartRange::day, 1e6), 0);
    EXPECT_EQ(freshFor(day, ChartRange::day, -1e6), 300) << "the clock was set back";
    EXPECT_EQ(freshFor(day, ChartRange::week, 0), 0);
    EXPECT_EQ(freshFor(with(1, ChartRange::week), ChartRange::week, 60), 1740);
    EXPECT_EQ(day.freshFor("ETHUSDT", ChartRange::day, kStored), Seconds(0));
}

TEST(ChartCacheTest, keepsPairsAndRangesApart) {
    const ChartCache cache = with(1, ChartRange::day)
                                 .inserting(candles(2), "BTCUSDT", ChartRange::week, kStored)
                                 .inserting(candles(3), "ETHUSDT", ChartRange::day, kStored);
    EXPECT_THAT(at(cache, ChartRange::day, 1), Optional(Eq(candles(1))));
    EXPECT_THAT(at(cache, ChartRange::week, 1), Optional(Eq(candles(2))));
    EXPECT_EQ(at(cache, ChartRange::month, 1), std::nullopt);
    EXPECT_THAT(cache.value("ETHUSDT", ChartRange::day, kStored), Optional(Eq(candles(3))));
    EXPECT_EQ(cache.value("ethusdt", ChartRange::day, kStored), std::nullopt);
}

TEST(ChartCacheTest, keepsTheLaterOfTwoInsertionsWithItsTime) {
    const ChartCache cache =
        with(1, ChartRange::day)
            .inserting(candles(2), "BTCUSDT", ChartRange::day, kStored + Seconds(200));
    EXPECT_THAT(at(cache, ChartRange::day, 499), Optional(Eq(candles(2))));
    EXPECT_EQ(at(cache, ChartRange::day, 500), std::nullopt);
}

TEST(ChartCacheTest, storesAnEmptyListLikeAnyOther) {
    const ChartCache cache =
        with(1, ChartRange::day).inserting({}, "BTCUSDT", ChartRange::day, kStored);
    EXPECT_THAT(at(cache, ChartRange::day, 1), Optional(Eq(std::vector<Candle>{})));
}

TEST(ChartCacheTest, leavesTheReceiverOfAnInsertionAsItWas) {
    const ChartCache cache = with(1, ChartRange::day);
    const ChartCache copy = cache;
    const ChartCache other = cache.inserting(candles(2), "BTCUSDT", ChartRange::day, kStored);
    EXPECT_THAT(at(cache, ChartRange::day, 1), Optional(Eq(candles(1))));
    EXPECT_THAT(at(copy, ChartRange::day, 1), Optional(Eq(candles(1))));
    EXPECT_THAT(at(other, ChartRange::day, 1), Optional(Eq(candles(2))));
}

}  // namespace quillbar
