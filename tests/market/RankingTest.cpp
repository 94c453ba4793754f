// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/Ranking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quillbar {

namespace {

using Ranking::Board;

class RankingTest : public ::testing::Test {
protected:
    void pair(const std::string& base,
              double last,
              double open,
              std::optional<double> volume = std::nullopt) {
        m_universe.push_back({base + "USDT", base});
        m_tickers[base + "USDT"] = {last, open, volume};
    }

    std::string ranked(Board board,
                       int limit = 50,
                       std::optional<double> minQuoteVolume = std::nullopt) {
        std::string result;
        for (const RankedCoin& row :
             Ranking::rank(board, m_tickers, m_universe, limit, minQuoteVolume)) {
            result += (result.empty() ? "" : " ") + std::to_string(row.rank) + row.coin.baseAsset;
        }
        return result;
    }

    TickerMap m_tickers;
    std::vector<Coin> m_universe;
};

TEST_F(RankingTest, ordersEachBoardByItsOwnNumber) {
    pair("UP", 120, 100, 5);
    pair("DOWN", 80, 100, 50);
    pair("FLAT", 100, 100, 20);
    EXPECT_EQ(ranked(Board::gainers), "1UP 2FLAT 3DOWN");
    EXPECT_EQ(ranked(Board::losers), "1DOWN 2FLAT 3UP");
    EXPECT_EQ(ranked(Board::volume), "1DOWN 2FLAT 3UP");
}

TEST_F(RankingTest, keepsTheFirstRowsUpToTheLimit) {
    pair("A", 3, 1);
    pair("B", 2, 1);
    pair("C", 1, 1);
    EXPECT_EQ(ranked(Board::gainers, 2), "1A 2B");
    EXPECT_EQ(ranked(Board::gainers, 0), "");
    EXPECT_EQ(ranked(Board::gainers, -1), "");
}

TEST_F(RankingTest, leavesOutACoinWithoutATicker) {
    pair("A", 3, 1, 1);
    m_universe.push_back({"GONEUSDT", "GONE"});
    for (const Board board : {Board::gainers, Board::losers, Board::volume}) {
        EXPECT_EQ(ranked(board), "1A");
    }
}

TEST_F(RankingTest, leavesOutATickerOutsideTheUniverse) {
    pair("A", 3, 1);
    m_tickers["ETHBTC"] = {9, 1, 9};
    EXPECT_EQ(ranked(Board::gainers), "1A");
}

TEST_F(RankingTest, ordersEqualValuesBySymbol) {
    pair("BBB", 110, 100, 7);
    pair("AAA", 11, 10, 7);
    for (const Board board : {Board::gainers, Board::losers, Board::volume}) {
        EXPECT_EQ(ranked(board), "1AAA 2BBB");
    }
}

TEST_F(RankingTest, takesAnOpenOfZeroAsNoChange) {
    pair("DEAD", 5, 0);
    pair("UP", 2, 1);
    pair("DOWN", 1, 2);
    EXPECT_EQ(ranked(Board::gainers), "1UP 2DEAD 3DOWN");
    EXPECT_EQ(ranked(Board::losers), "1DOWN 2DEAD 3UP");
}

TEST_F(RankingTest, leavesAnUnknownVolumeOffTheVolumeBoardAlone) {
    pair("KNOWN", 1, 1, 0);
    pair("UNKNOWN", 2, 1);
    EXPECT_EQ(ranked(Board::volume), "1KNOWN");
    EXPECT_EQ(ranked(Board::gainers), "1UNKNOWN 2KNOWN");
}

TEST_F(RankingTest, keepsOnlyCoinsThatHaveTradedEnoughWhenAskedTo) {
    pair("THIN", 9, 1, 99.9);
    pair("ENOUGH", 2, 1, 100);
    pair("UNKNOWN", 3, 1);
    for (const Board board : {Board::gainers, Board::losers, Board::volume}) {
        EXPECT_EQ(ranked(board, 50, 100), "1ENOUGH");
    }
}

TEST_F(RankingTest, carriesTheTickerAndNoMarketCap) {
    pair("A", 3, 1, 4);
    const auto rows = Ranking::rank(Board::volume, m_tickers, m_universe, 1);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows.front(), (RankedCoin{.rank = 1, .coin = {"AUSDT", "A"}, .ticker = {3, 1, 4}}));
}

TEST(RankingBoards, areRankedByTheExchangeExceptMarketCaps) {
    EXPECT_EQ(Ranking::exchangeBoard(RankingBoard::gainers), Board::gainers);
    EXPECT_EQ(Ranking::exchangeBoard(RankingBoard::losers), Board::losers);
    EXPECT_EQ(Ranking::exchangeBoard(RankingBoard::volume), Board::volume);
    EXPECT_EQ(Ranking::exchangeBoard(RankingBoard::marketCap), std::nullopt);
}

std::vector<RankedCoin> naivelyRanked(Board board,
                                      const TickerMap& tickers,
                                      const std::vector<Coin>& universe,
                                      std::size_t limit,
                                      std::optional<double> minQuoteVolume) {
    std::vector<RankedCoin> rows;
    for (const Coin& coin : universe) {
        const auto found = tickers.find(coin.symbol);
        if (found == tickers.end()) {
            continue;
        }
        const std::optional<double> volume = found->second.quoteVolume24h;
        const bool needsVolume = minQuoteVolume.has_value() || board == Board::volume;
        if (!needsVolume || (volume && *volume >= minQuoteVolume.value_or(*volume))) {
            rows.push_back({.coin = coin, .ticker = found->second});
        }
    }
    std::stable_sort(rows.begin(), rows.end(), [](const auto& left, const auto& right) {
        return left.coin.symbol < right.coin.symbol;
    });
    std::stable_sort(rows.begin(), rows.end(), [board](const auto& left, const auto& right) {
        if (board == Board::volume) {
            return left.ticker.quoteVolume24h.value_or(0) > right.ticker.quoteVolume24h.value_or(0);
        }
        const double leftChange = left.ticker.changePercent24h();
        const double rightChange = right.ticker.changePercent24h();
        return board == Board::gainers ? leftChange > rightChange : leftChange < rightChange;
    });
    rows.resize(std::min(rows.size(), limit));
    for (std::size_t index = 0; index < rows.size(); ++index) {
        rows[index].rank = static_cast<int>(index) + 1;
    }
    return rows;
}

TEST(Ranking, agreesWithAStableSortOfEverything) {
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        TickerMap tickers;
        std::vector<Coin> universe;
        for (unsigned index = 0; index < 60; ++index) {
            const std::string base = "C" + std::to_string(random() % 80);
            universe.push_back({base + "USDT", base + std::to_string(index)});
            if (random() % 5 != 0) {
                const auto volume = random() % 4;
                // Few values, so that many are equal; zero opens among them.
                tickers[base + "USDT"] = {
                    static_cast<double>(random() % 4),
                    static_cast<double>(random() % 3),
                    volume == 0 ? std::nullopt : std::optional<double>(volume)};
            }
        }
        const auto limit = random() % 70;
        for (const Board board : {Board::gainers, Board::losers, Board::volume}) {
            for (const std::optional<double> least :
                 {std::optional<double>(), std::optional<double>(2)}) {
                EXPECT_EQ(Ranking::rank(board, tickers, universe, static_cast<int>(limit), least),
                          naivelyRanked(board, tickers, universe, limit, least));
            }
        }
    }
}

}  // namespace

}  // namespace quillbar
