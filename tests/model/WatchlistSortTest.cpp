// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/ChangeCalculator.h"
#include "QuillbarCore/model/WatchlistSort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace quillbar {

namespace {

using Column = WatchlistSortColumn;
using Opens = std::unordered_map<std::string, double>;

constexpr WatchlistSort descending(Column column) {
    return {.column = column, .ascending = false};
}

constexpr WatchlistSort ascending(Column column) {
    return {.column = column, .ascending = true};
}

Coin coin(const std::string& base) {
    return {base + "USDT", base};
}

std::vector<Coin> coins(const std::vector<std::string>& bases) {
    std::vector<Coin> result;
    for (const std::string& base : bases) {
        result.push_back(coin(base));
    }
    return result;
}

std::string basesOf(const std::vector<Coin>& list) {
    std::string result;
    for (const Coin& entry : list) {
        result += (result.empty() ? "" : " ") + entry.baseAsset;
    }
    return result;
}

TEST(WatchlistSort, cyclesFromDescendingOverAscendingToTheManualOrder) {
    std::optional<WatchlistSort> sort = WatchlistSort::next(std::nullopt, Column::price);
    EXPECT_EQ(sort, descending(Column::price));
    sort = WatchlistSort::next(sort, Column::price);
    EXPECT_EQ(sort, ascending(Column::price));
    EXPECT_EQ(WatchlistSort::next(sort, Column::price), std::nullopt);
}

TEST(WatchlistSort, offersItsColumnsInTheOrderOfTheTable) {
    EXPECT_EQ(kAllWatchlistSortColumns,
              (std::array{Column::volume, Column::price, Column::change}));
}

TEST(WatchlistSort, beginsDescendingOnAnotherColumn) {
    EXPECT_EQ(WatchlistSort::next(ascending(Column::price), Column::volume),
              descending(Column::volume));
    EXPECT_EQ(WatchlistSort::next(descending(Column::price), Column::change),
              descending(Column::change));
}

TEST(WatchlistSorter, leavesTheManualOrderWithoutASort) {
    const auto list = coins({"SOL", "BTC", "ADA"});
    EXPECT_EQ(WatchlistSorter::sorted(list, {}, std::nullopt, ChangeBasis::rolling24h, {}), list);
}

class WatchlistSorterTest : public ::testing::Test {
protected:
    void ticker(const std::string& base,
                double last,
                double open,
                std::optional<double> volume = std::nullopt) {
        m_tickers[base + "USDT"] = {last, open, volume};
    }

    std::string sorted(const std::vector<std::string>& bases,
                       WatchlistSort sort,
                       ChangeBasis basis = ChangeBasis::rolling24h) {
        return basesOf(WatchlistSorter::sorted(coins(bases), m_tickers, sort, basis, m_opens));
    }

    TickerMap m_tickers;
    Opens m_opens;
};

TEST_F(WatchlistSorterTest, ordersByTheColumnInItsDirection) {
    ticker("A", 1, 2, 30);
    ticker("B", 2, 1, 10);
    ticker("C", 3, 3, 20);
    const std::vector<std::string> list{"A", "B", "C"};
    EXPECT_EQ(sorted(list, descending(Column::price)), "C B A");
    EXPECT_EQ(sorted(list, ascending(Column::price)), "A B C");
    EXPECT_EQ(sorted(list, descending(Column::volume)), "A C B");
    EXPECT_EQ(sorted(list, ascending(Column::volume)), "B C A");
    EXPECT_EQ(sorted(list, descending(Column::change)), "B C A");
    EXPECT_EQ(sorted(list, ascending(Column::change)), "A C B");
}

TEST_F(WatchlistSorterTest, ordersEqualValuesBySymbolInBothDirections) {
    ticker("XRP", 0.5, 0.5);
    ticker("ADA", 0.5, 0.5);
    EXPECT_EQ(sorted({"XRP", "ADA"}, ascending(Column::price)), "ADA XRP");
    EXPECT_EQ(sorted({"XRP", "ADA"}, descending(Column::price)), "ADA XRP");
}

TEST_F(WatchlistSorterTest, ordersSymbolsByCodePoint) {
    // In UTF-16 the second would come first, because it needs surrogates.
    EXPECT_EQ(sorted({"😀", "ＢＴＣ", "币", "a", "B"}, descending(Column::price)),
              "B a 币 ＢＴＣ 😀");
}

TEST_F(WatchlistSorterTest, sinksCoinsWithoutATickerInSymbolOrder) {
    ticker("BTC", 65000, 64000);
    ticker("ETH", 3000, 3100);
    const std::vector<std::string> list{"ZEC", "BTC", "ADA", "ETH"};
    EXPECT_EQ(sorted(list, descending(Column::price)), "BTC ETH ADA ZEC");
    EXPECT_EQ(sorted(list, ascending(Column::price)), "ETH BTC ADA ZEC");
}

TEST_F(WatchlistSorterTest, sinksACoinWithoutAVolume) {
    ticker("BTC", 65000, 64000);
    ticker("ETH", 3000, 3100, 1);
    EXPECT_EQ(sorted({"BTC", "ETH"}, ascending(Column::volume)), "ETH BTC");
    EXPECT_EQ(sorted({"BTC", "ETH"}, descending(Column::volume)), "ETH BTC");
}

TEST_F(WatchlistSorterTest, fallsBackToSymbolsBeforeTheDaysOpensAreKnown) {
    ticker("SOL", 110, 100);
    ticker("BTC", 90, 100);
    EXPECT_EQ(sorted({"SOL", "BTC"}, descending(Column::change), ChangeBasis::today), "BTC SOL");
    EXPECT_EQ(sorted({"SOL", "BTC"}, ascending(Column::change), ChangeBasis::today), "BTC SOL");
}

TEST_F(WatchlistSorterTest, measuresTheChangeAgainstTheDaysOpens) {
    ticker("SOL", 110, 100);
    ticker("BTC", 90, 100);
    m_opens = {{"SOLUSDT", 220}, {"BTCUSDT", 45}};
    EXPECT_EQ(sorted({"SOL", "BTC"}, descending(Column::change), ChangeBasis::today), "BTC SOL");
    EXPECT_EQ(sorted({"SOL", "BTC"}, descending(Column::change)), "SOL BTC");
}

// The rule as a person would carry it out, with one pass for each part of the list.
std::vector<Coin> naivelySorted(const std::vector<Coin>& list,
                                const TickerMap& tickers,
                                bool isAscending) {
    std::vector<Coin> valued;
    std::vector<Coin> valueless;
    for (const Coin& entry : list) {
        (tickers.contains(entry.symbol) ? valued : valueless).push_back(entry);
    }
    const auto bySymbol = [](const Coin& left, const Coin& right) {
        return left.symbol < right.symbol;
    };
    std::stable_sort(valueless.begin(), valueless.end(), bySymbol);
    std::stable_sort(valued.begin(), valued.end(), bySymbol);
    std::stable_sort(valued.begin(), valued.end(), [&](const Coin& left, const Coin& right) {
        const double leftPrice = tickers.at(left.symbol).lastPrice;
        const double rightPrice = tickers.at(right.symbol).lastPrice;
        return isAscending ? leftPrice < rightPrice : leftPrice > rightPrice;
    });
    valued.insert(valued.end(), valueless.begin(), valueless.end());
    return valued;
}

TEST(WatchlistSorter, agreesWithTheRuleCarriedOutNaively) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<Coin> list;
        TickerMap tickers;
        for (unsigned index = 0; index < 30; ++index) {
            list.push_back(coin("C" + std::to_string(random() % 1000)));
            if (random() % 4 != 0) {
                // Few prices, so that many are equal.
                tickers[list.back().symbol] = {static_cast<double>(random() % 5), 1, std::nullopt};
            }
        }
        for (const bool isAscending : {false, true}) {
            const WatchlistSort sort{.column = Column::price, .ascending = isAscending};
            EXPECT_EQ(WatchlistSorter::sorted(list, tickers, sort, ChangeBasis::rolling24h, {}),
                      naivelySorted(list, tickers, isAscending));
        }
    }
}

}  // namespace

}  // namespace quillbar
