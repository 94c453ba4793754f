// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/ChangeCalculator.h"
#include "QuillbarCore/model/WatchlistSort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <random>
#include <string>

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

std::optional<double> shownValue(const Ticker& ticker,
                                 Column column,
                                 ChangeBasis basis,
                                 std::optional<double> todayOpen) {
    if (column == Column::volume) {
        return ticker.quoteVolume24h;
    }
    if (column == Column::price) {
        return ticker.lastPrice;
    }
    return ChangeCalculator::percent(ticker.lastPrice, ticker.openPrice24h, todayOpen, basis);
}

// What each coin shows in the column, by symbol; nothing for a coin without a value.
std::map<std::string, double> shownValues(const TickerMap& tickers,
                                          Column column,
                                          ChangeBasis basis,
                                          const Opens& opens) {
    std::map<std::string, double> values;
    for (const auto& [symbol, ticker] : tickers) {
        const auto open = opens.contains(symbol) ? std::optional(opens.at(symbol)) : std::nullopt;
        if (const auto value = shownValue(ticker, column, basis, open)) {
            values[symbol] = *value;
        }
    }
    return values;
}

// The rule as a person would carry it out, with one pass for each part of the list.
std::vector<Coin> naivelySorted(const std::vector<Coin>& list,
                                const std::map<std::string, double>& values,
                                bool isAscending) {
    std::vector<Coin> valued;
    std::vector<Coin> valueless;
    for (const Coin& entry : list) {
        (values.contains(entry.symbol) ? valued : valueless).push_back(entry);
    }
    const auto bySymbol = [](const Coin& left, const Coin& right) {
        return left.symbol < right.symbol;
    };
    std::stable_sort(valueless.begin(), valueless.end(), bySymbol);
    std::stable_sort(valued.begin(), valued.end(), bySymbol);
    std::stable_sort(valued.begin(), valued.end(), [&](const Coin& left, const Coin& right) {
        const double leftValue = values.at(left.symbol);
        const double rightValue = values.at(right.symbol);
        return isAscending ? leftValue < rightValue : leftValue > rightValue;
    });
    valued.insert(valued.end(), valueless.begin(), valueless.end());
    return valued;
}

TEST(WatchlistSorter, agreesWithTheRuleCarriedOutNaively) {
    std::mt19937 random(7);
    const auto number = [&random](unsigned below) { return static_cast<double>(random() % below); };
    for (int round = 0; round < 200; ++round) {
        std::vector<Coin> list;
        TickerMap tickers;
        Opens opens;
        for (unsigned index = 0; index < 30; ++index) {
            list.push_back(coin("C" + std::to_string(random() % 1000)));
            const std::string& symbol = list.back().symbol;
            // Few values, so that many are equal; zero opens and unknown ones among them.
            if (random() % 4 != 0) {
                tickers[symbol] = {number(5), number(3), std::nullopt};
            }
            if (tickers.contains(symbol) && random() % 3 != 0) {
                tickers[symbol].quoteVolume24h = number(4);
            }
            if (random() % 2 == 0) {
                opens[symbol] = number(3);
            }
        }
        for (const Column column : kAllWatchlistSortColumns) {
            for (const ChangeBasis basis : {ChangeBasis::rolling24h, ChangeBasis::today}) {
                const auto values = shownValues(tickers, column, basis, opens);
                for (const bool isAscending : {false, true}) {
                    const WatchlistSort sort{.column = column, .ascending = isAscending};
                    EXPECT_EQ(WatchlistSorter::sorted(list, tickers, sort, basis, opens),
                              naivelySorted(list, values, isAscending));
                }
            }
        }
    }
}

}  // namespace

}  // namespace quillbar
