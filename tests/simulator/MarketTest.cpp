// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Coins.h"
#include "simulator/Market.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <string_view>

namespace quillbar::simulator {
namespace {

using std::chrono::hours;
using std::chrono::minutes;

// 2026-03-01 12:34:56.789 UTC.
constexpr std::int64_t kStart = 1'772'368'496'789;

Market market(std::uint64_t seed = 7, int symbols = 100, std::int64_t start = kStart) {
    return Market(seed, symbols, MarketTime{std::chrono::milliseconds{start}});
}

std::vector<double> pricesAfter(Market market, int steps) {
    for (int i = 0; i < steps; ++i) {
        market.step();
    }
    std::vector<double> prices;
    for (const Listing& listing : market.listings()) {
        prices.push_back(market.price(listing));
    }
    return prices;
}

const Listing& btc(const Market& market) {
    return *market.find("BTCUSDT");
}

TEST(MarketTest, TheSameSeedWalksTheSameWay) {
    EXPECT_EQ(pricesAfter(market(7), 50), pricesAfter(market(7), 50));
}

TEST(MarketTest, AnotherSeedWalksAnotherWay) {
    EXPECT_NE(pricesAfter(market(7), 50), pricesAfter(market(8), 50));
}

TEST(MarketTest, TheWalkDoesNotDependOnTheClock) {
    EXPECT_EQ(pricesAfter(market(7, 100, kStart), 50), pricesAfter(market(7, 100, 0), 50));
}

TEST(MarketTest, AStepIsASecondOnTheClock) {
    Market walked = market();
    walked.step();
    walked.step();
    EXPECT_EQ(walked.now().time_since_epoch().count(), kStart + 2000);
    EXPECT_EQ(walked.steps(), 2);
}

TEST(MarketTest, ListsTheWellKnownPairsFirst) {
    const Market listed = market();
    const std::vector<std::string> firsts{"BTCUSDT", "ETHUSDT", "SOLUSDT", "BNBUSDT", "XRPUSDT"};
    for (std::size_t i = 0; i < firsts.size(); ++i) {
        EXPECT_EQ(listed.listings()[5 * i].symbol, firsts[i]);
        EXPECT_EQ(listed.listings()[5 * i].status, ListingStatus::trading);
    }
}

TEST(MarketTest, TheBusyPairsChangeAtEveryStep) {
    Market walked = market();
    for (const std::string_view symbol : {"BTCUSDT", "ETHUSDT", "SOLUSDT", "BNBUSDT", "XRPUSDT"}) {
        EXPECT_FALSE(walked.changed(*walked.find(symbol))) << "before the first step";
    }
    for (int i = 0; i < 200; ++i) {
        std::vector<double> before;
        for (const Listing& listing : walked.listings()) {
            before.push_back(walked.price(listing));
        }
        walked.step();
        for (std::size_t j = 0; j < before.size(); ++j) {
            const Listing& listing = walked.listings()[j];
            EXPECT_EQ(walked.changed(listing), walked.price(listing) != before[j])
                << listing.symbol;
        }
        EXPECT_TRUE(walked.changed(*walked.find("XRPUSDT")));
    }
}

TEST(MarketTest, ADaysChangeIsPlausible) {
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        const Market walked = market(seed);
        const DayStatistics day = walked.day(btc(walked));
        EXPECT_EQ(day.last, 67234.5) << "the walk starts at the table's price";
        EXPECT_LT(std::abs(day.last / day.open - 1), 0.15);
        EXPECT_GE(day.high, std::max(day.open, day.last));
        EXPECT_LE(day.low, std::min(day.open, day.last));
        EXPECT_GT(day.quoteVolume, 1e9);
        EXPECT_LT(day.quoteVolume, 3e9);
        EXPECT_NEAR(day.volume * day.last, day.quoteVolume, day.quoteVolume * 0.2);
    }
}

TEST(MarketTest, DeadPairsHaveNoPrice) {
    const Market listed = market();
    int dead = 0;
    for (const Listing& listing : listed.listings()) {
        if (listing.status == ListingStatus::broken) {
            ++dead;
            EXPECT_EQ(listed.price(listing), 0);
            EXPECT_EQ(listed.day(listing).quoteVolume, 0);
            EXPECT_TRUE(listed.candles(listing, minutes{5}, 10, std::nullopt).empty());
        } else {
            EXPECT_GT(listed.price(listing), 0) << listing.symbol;
        }
    }
    EXPECT_GT(dead, 10);
}

TEST(MarketTest, HaltedPairsStandStill) {
    Market walked = market(7, 2000);
    int halted = 0;
    const std::vector<double> before = pricesAfter(walked, 0);
    const std::vector<double> after = pricesAfter(walked, 100);
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (walked.listings()[i].status == ListingStatus::halted) {
            ++halted;
            EXPECT_EQ(before[i], after[i]);
        }
    }
    EXPECT_GT(halted, 0);
}

TEST(MarketTest, ListsTwoThousandPairsLikeTheExchange) {
    const Market listed = market(1, 2000);
    ASSERT_EQ(listed.listings().size(), 2000U);
    std::set<std::string> symbols;
    std::set<std::string> quotes;
    int tradingTether = 0;
    for (const Listing& listing : listed.listings()) {
        EXPECT_TRUE(symbols.insert(listing.symbol).second) << listing.symbol << " is listed twice";
        EXPECT_EQ(listing.symbol, listing.baseAsset + listing.quoteAsset);
        quotes.insert(listing.quoteAsset);
        tradingTether +=
            listing.quoteAsset == "USDT" && listing.status == ListingStatus::trading ? 1 : 0;
    }
    EXPECT_EQ(tradingTether, 400);
    for (const char* quote : {"USDT", "USDC", "BTC", "ETH", "BNB", "FDUSD", "TRY", "EUR"}) {
        EXPECT_TRUE(quotes.contains(quote)) << quote;
    }
    for (const char* symbol : {"1000SATSUSDT", "1INCHUSDT", "TUSDT", "UUSDT", "DOGEUSDT"}) {
        EXPECT_NE(listed.find(symbol), nullptr) << symbol;
    }
    EXPECT_NE(listed.find("\u5e01\u5b89\u4eba\u751fUSDT"), nullptr);
    EXPECT_EQ(listed.find("btcusdt"), nullptr);
    EXPECT_EQ(listed.findLowerCase("btcusdt"), listed.find("BTCUSDT"));
}

TEST(MarketTest, OddAndLongNamesAreAmongThePairs) {
    const Market listed = market(1, 2000);
    std::size_t longestTicker = 0;
    std::size_t longestName = 0;
    int beyondAscii = 0;
    for (const KnownCoin& coin : knownCoins()) {
        const std::string asset = coin.asset;
        const Listing* const listing = listed.find(asset + "USDT");
        ASSERT_NE(listing, nullptr) << asset;
        EXPECT_EQ(listing->status, ListingStatus::trading) << asset;
        longestTicker = std::max(longestTicker, asset.size());
        longestName = std::max(longestName, std::string_view{coin.name}.size());
        beyondAscii += std::any_of(asset.begin(),
                                   asset.end(),
                                   [](char c) { return static_cast<unsigned char>(c) > 0x7F; })
                           ? 1
                           : 0;
    }
    EXPECT_GE(longestTicker, 10U);
    EXPECT_GE(longestName, 30U);
    EXPECT_GE(beyondAscii, 1);
}

TEST(MarketTest, AnyNumberOfPairsCanBeListed) {
    for (int count : {1, 2, 3, 4, 5, 6, 7, 20, 33, 999, 6000}) {
        EXPECT_EQ(market(1, count).listings().size(), static_cast<std::size_t>(count));
    }
}

TEST(MarketTest, TheLastCandleClosesAtThePresentPrice) {
    Market walked = market();
    for (int i = 0; i < 90; ++i) {
        walked.step();
        const auto rows = walked.candles(btc(walked), minutes{1}, 3, std::nullopt);
        ASSERT_EQ(rows.size(), 3U);
        EXPECT_EQ(rows.back().close, walked.price(btc(walked)));
        EXPECT_LE(rows.back().openTime, walked.now().time_since_epoch().count());
        EXPECT_GE(rows.back().closeTime, walked.now().time_since_epoch().count());
    }
}

TEST(MarketTest, CandlesStandOnTheGridAndJoin) {
    const Market walked = market();
    const auto rows = walked.candles(btc(walked), hours{1}, 168, std::nullopt);
    ASSERT_EQ(rows.size(), 168U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].openTime % 3'600'000, 0);
        EXPECT_EQ(rows[i].closeTime, rows[i].openTime + 3'599'999);
        EXPECT_GE(rows[i].high, std::max(rows[i].open, rows[i].close));
        EXPECT_LE(rows[i].low, std::min(rows[i].open, rows[i].close));
        if (i > 0) {
            EXPECT_EQ(rows[i].openTime, rows[i - 1].openTime + 3'600'000);
            EXPECT_EQ(rows[i].open, rows[i - 1].close);
        }
    }
}

TEST(MarketTest, CandlesBeginAtTheFirstOpenTimeNotBeforeTheStartTime) {
    const Market walked = market();
    const std::int64_t minute = kStart - kStart % 60'000;
    const auto from = [&walked](std::int64_t startTime) {
        return walked.candles(btc(walked), minutes{1}, 1, startTime);
    };
    EXPECT_EQ(from(minute - 60'000).at(0).openTime, minute - 60'000);
    EXPECT_EQ(from(minute - 59'999).at(0).openTime, minute);
    EXPECT_TRUE(from(minute + 1).empty()) << "the future has no candles";
    EXPECT_EQ(from(0).at(0).openTime, 0);
}

TEST(MarketTest, YesterdaysOpenAgreesWithTheCandles) {
    // A clock on a whole minute, so that the candle of a day ago opens at that very moment.
    const Market walked = market(7, 10, kStart - kStart % 60'000);
    const std::int64_t yesterday = kStart - kStart % 60'000 - 86'400'000;
    const auto rows = walked.candles(btc(walked), minutes{1}, 1, yesterday);
    EXPECT_EQ(rows.at(0).open, walked.day(btc(walked)).open);
}

}  // namespace
}  // namespace quillbar::simulator
