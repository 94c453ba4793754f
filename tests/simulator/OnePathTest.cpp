// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
//
// What a pair's candles, its 24 hours and its ticks say of each other.
#include "simulator/Market.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <string_view>
#include <vector>

namespace quillbar::simulator {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

// 2026-03-01 12:35:00 UTC, where a candle of five minutes begins.
constexpr std::int64_t kFiveMinutes = 1'772'368'500'000;
constexpr std::int64_t kMidnight = 1'772'323'200'000;
constexpr std::int64_t kDay = 86'400'000;

Market market(std::uint64_t seed = 7, std::int64_t start = kFiveMinutes) {
    return Market(seed, 200, MarketTime{milliseconds{start}});
}

// One that trades every second, one that hardly moves, one of few ticks, one that trades seldom.
constexpr std::array<std::string_view, 4> kPairs{"BTCUSDT", "USDCUSDT", "PEPEUSDT", "UUSDT"};

double highest(const std::vector<CandleRow>& rows) {
    double high = rows.at(0).high;
    for (const CandleRow& row : rows) {
        high = std::max(high, row.high);
    }
    return high;
}

double lowest(const std::vector<CandleRow>& rows) {
    double low = rows.at(0).low;
    for (const CandleRow& row : rows) {
        low = std::min(low, row.low);
    }
    return low;
}

/// The candles as one.
CandleRow together(const std::vector<CandleRow>& rows) {
    CandleRow all = rows.at(0);
    all.high = highest(rows);
    all.low = lowest(rows);
    all.close = rows.back().close;
    all.closeTime = rows.back().closeTime;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        all.volume += rows[i].volume;
        all.quoteVolume += rows[i].quoteVolume;
        all.trades += rows[i].trades;
    }
    return all;
}

void expectSame(const CandleRow& one, const CandleRow& other) {
    EXPECT_EQ(one.openTime, other.openTime);
    EXPECT_EQ(one.open, other.open);
    EXPECT_EQ(one.high, other.high);
    EXPECT_EQ(one.low, other.low);
    EXPECT_EQ(one.close, other.close);
    EXPECT_EQ(one.trades, other.trades);
    EXPECT_NEAR(one.volume, other.volume, one.volume * 1e-9);
    EXPECT_NEAR(one.quoteVolume, other.quoteVolume, one.quoteVolume * 1e-9);
}

TEST(OnePathTest, aLongerRangeHoldsTheShorterOnes) {
    for (std::uint64_t seed = 0; seed < 3; ++seed) {
        const Market walked = market(seed, kFiveMinutes + 123'456);
        for (const std::string_view symbol : kPairs) {
            SCOPED_TRACE(symbol);
            const Listing& listing = *walked.find(symbol);
            const DayStatistics day = walked.day(listing);
            const auto week = walked.candles(listing, hours{1}, 168, std::nullopt);
            const auto month = walked.candles(listing, hours{4}, 180, std::nullopt);
            EXPECT_GE(highest(month), highest(week));
            EXPECT_GE(highest(week), day.high);
            EXPECT_GE(day.high, std::max(day.open, day.last));
            EXPECT_LE(lowest(month), lowest(week));
            EXPECT_LE(lowest(week), day.low);
            EXPECT_LE(day.low, std::min(day.open, day.last));
        }
    }
}

TEST(OnePathTest, aCandleIsMadeOfTheCandlesInIt) {
    const Market walked = market();
    for (const std::string_view symbol : kPairs) {
        SCOPED_TRACE(symbol);
        const Listing& listing = *walked.find(symbol);
        const std::int64_t begin = kMidnight - 3 * kDay;
        const auto parts = [&](seconds interval, seconds whole) {
            return walked.candles(listing, interval, static_cast<int>(whole / interval), begin);
        };
        const auto whole = [&](seconds interval) {
            return walked.candles(listing, interval, 1, begin).at(0);
        };
        expectSame(together(parts(seconds{1}, minutes{1})), whole(minutes{1}));
        expectSame(together(parts(minutes{1}, minutes{5})), whole(minutes{5}));
        expectSame(together(parts(minutes{5}, hours{1})), whole(hours{1}));
        expectSame(together(parts(minutes{1}, hours{4})), whole(hours{4}));
        expectSame(together(parts(hours{1}, hours{4})), whole(hours{4}));
        expectSame(together(parts(hours{4}, hours{24})), whole(hours{24}));
    }
}

TEST(OnePathTest, aCandlesHighAndLowAreThePricesThatWereSeen) {
    Market walked = market();
    std::vector<std::vector<double>> seen(kPairs.size());
    const auto look = [&] {
        for (std::size_t i = 0; i < kPairs.size(); ++i) {
            seen[i].push_back(walked.price(*walked.find(kPairs.at(i))));
        }
    };
    look();
    for (int second = 0; second < 300; ++second) {
        walked.step();
        look();
    }
    for (std::size_t i = 0; i < kPairs.size(); ++i) {
        const auto rows = walked.candles(*walked.find(kPairs.at(i)), minutes{5}, 1, kFiveMinutes);
        EXPECT_EQ(rows.at(0).open, seen[i].front());
        EXPECT_EQ(rows.at(0).high, *std::max_element(seen[i].begin(), seen[i].end()));
        EXPECT_EQ(rows.at(0).low, *std::min_element(seen[i].begin(), seen[i].end()));
        EXPECT_EQ(rows.at(0).close, seen[i].back());
    }
}

TEST(OnePathTest, theDayIsMadeOfItsCandles) {
    const Market walked = market();
    for (const std::string_view symbol : kPairs) {
        SCOPED_TRACE(symbol);
        const Listing& listing = *walked.find(symbol);
        const DayStatistics day = walked.day(listing);
        const CandleRow chart =
            together(walked.candles(listing, minutes{5}, 288, kFiveMinutes - kDay));
        EXPECT_EQ(day.open, chart.open);
        EXPECT_EQ(day.high, chart.high);
        EXPECT_EQ(day.low, chart.low);
        EXPECT_EQ(day.last, chart.close);
        EXPECT_EQ(day.trades, chart.trades);
        EXPECT_NEAR(day.volume, chart.volume, day.volume * 1e-9);
        EXPECT_NEAR(day.quoteVolume, chart.quoteVolume, day.quoteVolume * 1e-9);
    }
}

TEST(OnePathTest, theTurnoverIsTheVolumeAtPricesOfTheCandle) {
    const Market walked = market();
    for (const std::string_view symbol : kPairs) {
        SCOPED_TRACE(symbol);
        const Listing& listing = *walked.find(symbol);
        // A price is rounded to an even or an odd tick in turn.
        const double twoTicks = 2 * std::pow(10, -listing.priceDigits);
        for (const seconds interval : {seconds{60}, seconds{300}, seconds{3600}, seconds{14400}}) {
            for (const CandleRow& row : walked.candles(listing, interval, 180, std::nullopt)) {
                EXPECT_EQ(row.volume > 0, row.trades > 0);
                EXPECT_GE(row.quoteVolume, row.volume * (row.low - twoTicks));
                EXPECT_LE(row.quoteVolume, row.volume * (row.high + twoTicks));
            }
        }
    }
}

TEST(OnePathTest, theDaysOpenLiesInTheCandleItFallsInto) {
    const Market walked = market(7, kFiveMinutes + 123'456);
    for (const std::string_view symbol : kPairs) {
        const Listing& listing = *walked.find(symbol);
        const DayStatistics day = walked.day(listing);
        const auto rows = walked.candles(listing, minutes{5}, 289, std::nullopt);
        EXPECT_GE(day.open, rows.at(0).low);
        EXPECT_LE(day.open, rows.at(0).high);
        EXPECT_LE(day.high, highest(rows));
        EXPECT_GE(day.low, lowest(rows));
        EXPECT_EQ(day.last, rows.back().close);
    }
}

TEST(OnePathTest, todaysOpenIsTheSameInEveryCandleOfMidnight) {
    const Market walked = market(7, kFiveMinutes + 123'456);
    const Listing& listing = *walked.find("BTCUSDT");
    const double open = walked.candles(listing, minutes{1}, 1, kMidnight).at(0).open;
    for (const seconds interval : {seconds{300}, seconds{3600}, seconds{14400}, seconds{86400}}) {
        EXPECT_EQ(walked.candles(listing, interval, 1, kMidnight).at(0).open, open);
    }
}

TEST(OnePathTest, aTickLiesInTheCandleUnderWay) {
    Market walked = market(7, kFiveMinutes + 123'456);
    const Listing& listing = *walked.find("BTCUSDT");
    for (int second = 0; second < 400; ++second) {
        const CandleRow before = walked.candles(listing, minutes{5}, 1, std::nullopt).at(0);
        walked.step();
        const double tick = walked.price(listing);
        const CandleRow now = walked.candles(listing, minutes{5}, 1, std::nullopt).at(0);
        const DayStatistics day = walked.day(listing);
        EXPECT_EQ(now.close, tick);
        EXPECT_EQ(day.last, tick);
        EXPECT_LE(now.low, tick);
        EXPECT_GE(now.high, tick);
        if (now.openTime == before.openTime) {
            EXPECT_EQ(now.open, before.open);
            EXPECT_EQ(now.high, std::max(before.high, tick));
            EXPECT_EQ(now.low, std::min(before.low, tick));
            EXPECT_GT(now.volume, before.volume);
        } else {
            EXPECT_GT(now.openTime, before.openTime);
        }
    }
}

TEST(OnePathTest, aHaltedPairHasNoTurnover) {
    const Market listed(7, 2000, MarketTime{milliseconds{kFiveMinutes}});
    int halted = 0;
    for (const Listing& listing : listed.listings()) {
        if (listing.status == ListingStatus::halted) {
            ++halted;
            const DayStatistics day = listed.day(listing);
            EXPECT_EQ(day.open, day.last);
            EXPECT_EQ(day.high, day.low);
            EXPECT_EQ(day.quoteVolume, 0);
            EXPECT_EQ(day.trades, 0);
        }
    }
    EXPECT_GT(halted, 0);
}

TEST(OnePathTest, twoRunsWithOneSeedAreEqual) {
    Market one = market(3);
    Market other = market(3);
    for (int second = 0; second < 20; ++second) {
        one.step();
        other.step();
    }
    for (const std::string_view symbol : kPairs) {
        const Listing& listing = *one.find(symbol);
        const Listing& same = *other.find(symbol);
        EXPECT_EQ(one.day(listing).high, other.day(same).high);
        EXPECT_EQ(one.day(listing).quoteVolume, other.day(same).quoteVolume);
        const auto rows = one.candles(listing, hours{4}, 20, std::nullopt);
        const auto others = other.candles(same, hours{4}, 20, std::nullopt);
        ASSERT_EQ(rows.size(), others.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            expectSame(rows[i], others[i]);
        }
    }
}

}  // namespace
}  // namespace quillbar::simulator
