// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapRanking.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbar {

namespace {

/// Rows are written as "rank base", and entries default to the exchange's own price.
class MarketCapRankingTest : public ::testing::Test {
protected:
    void listed(const std::string& base, double price) {
        m_universe.push_back({base + "USDT", base});
        m_tickers[base + "USDT"] = {price, price, 1};
    }

    void entry(const std::string& symbol, std::int64_t rank, double price) {
        m_entries.push_back({symbol, rank, 1000.0 - static_cast<double>(rank), price});
    }

    std::string ranked(int limit = 100) {
        std::string result;
        for (const RankedCoin& row :
             MarketCapRanking::rank(m_entries, m_tickers, m_universe, limit)) {
            result += (result.empty() ? "" : " ") + std::to_string(row.rank) + row.coin.baseAsset;
        }
        return result;
    }

    TickerMap m_tickers;
    std::vector<Coin> m_universe;
    std::vector<MarketCapEntry> m_entries;
};

TEST_F(MarketCapRankingTest, joinsEntryCoinAndTicker) {
    listed("BTC", 100);
    entry("BTC", 1, 101);
    const auto rows = MarketCapRanking::rank(m_entries, m_tickers, m_universe, 1);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(
        rows.front(),
        (RankedCoin{
            .rank = 1, .coin = {"BTCUSDT", "BTC"}, .ticker = {100, 100, 1}, .marketCap = 999}));
}

TEST_F(MarketCapRankingTest, ordersByTheServicesRankAndThenBySymbol) {
    listed("C", 1);
    listed("B", 1);
    listed("A", 1);
    entry("B", 2, 1);
    entry("A", 2, 1);
    entry("C", 1, 1);
    EXPECT_EQ(ranked(), "1C 2A 3B");
}

TEST_F(MarketCapRankingTest, closesTheGapsOfWhatIsLeftOut) {
    listed("BTC", 100);
    listed("USDC", 1);
    listed("ETH", 10);
    m_universe.push_back({"DEADUSDT", "DEAD"});
    entry("BTC", 1, 100);
    entry("USDC", 2, 1);
    entry("UNLISTED", 3, 5);
    entry("DEAD", 4, 5);
    entry("ETH", 5, 10);
    EXPECT_EQ(ranked(), "1BTC 2ETH");
    EXPECT_EQ(ranked(1), "1BTC");
    EXPECT_EQ(ranked(0), "");
    EXPECT_EQ(ranked(-1), "");
}

TEST_F(MarketCapRankingTest, refusesAPriceMoreThanTwiceTheOther) {
    listed("EXACT", 100);
    listed("ABOVE", 100);
    listed("BELOW", 100);
    entry("EXACT", 1, 200);
    entry("ABOVE", 2, 250);
    entry("BELOW", 3, 49.9);
    EXPECT_EQ(ranked(), "1EXACT");
}

TEST_F(MarketCapRankingTest, refusesAPriceOfZero) {
    listed("DEAD", 0);
    entry("DEAD", 1, 5);
    listed("FREE", 5);
    entry("FREE", 2, 0);
    EXPECT_EQ(ranked(), "");
}

TEST_F(MarketCapRankingTest, takesTheFirstEntryOfASymbolThatPasses) {
    listed("ETH", 100);
    entry("ETH", 9, 1000);
    entry("ETH", 5, 100);
    entry("ETH", 1, 100);
    const auto rows = MarketCapRanking::rank(m_entries, m_tickers, m_universe, 10);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows.front().marketCap, 995);
}

TEST_F(MarketCapRankingTest, matchesWithoutRegardToCase) {
    listed("Btc", 100);
    entry("bTC", 1, 100);
    EXPECT_EQ(ranked(), "1Btc");
}

TEST_F(MarketCapRankingTest, takesTheFirstCoinOfABaseAsset) {
    listed("BTC", 100);
    m_universe.push_back({"BTCUSDT2", "BTC"});
    m_tickers["BTCUSDT2"] = {100, 100, 1};
    entry("BTC", 1, 100);
    const auto rows = MarketCapRanking::rank(m_entries, m_tickers, m_universe, 10);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows.front().id(), "BTCUSDT");
}

}  // namespace

}  // namespace quillbar
