// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/Benchmarks.h"
#include "benchmarks/Comparison.h"
#include "QuillbarCore/catalog/SearchText.h"
#include "QuillbarCore/market/MarketCapRanking.h"
#include "QuillbarCore/market/PeggedAssets.h"
#include "QuillbarCore/market/Ranking.h"
#include "QuillbarCore/model/ChangeCalculator.h"
#include "QuillbarCore/model/WatchlistSort.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace quillbar::benchmarks {

namespace {

using Ranking::Board;

constexpr int kCoins = 2500;
constexpr int kBoardRows = 50;
constexpr int kMarketCapEntries = 250;
constexpr int kMarketCapRows = 100;
constexpr std::size_t kWatchlistCoins = 1000;

/// A whole market with names and numbers as real ones are spread. The same each time.
struct Market {
    Market() {
        std::mt19937_64 random(1);
        std::uniform_int_distribution<int> length(2, 8);
        std::uniform_int_distribution<int> letter('A', 'Z');
        std::uniform_real_distribution<double> magnitude(-4, 5);
        std::normal_distribution<double> change(0, 0.05);
        std::unordered_set<std::string> names;
        while (universe.size() < kCoins) {
            std::string name(static_cast<std::size_t>(length(random)), ' ');
            std::generate(
                name.begin(), name.end(), [&] { return static_cast<char>(letter(random)); });
            if (names.insert(name).second) {
                const double open = std::pow(10, magnitude(random));
                tickers[name + "USDT"] = {.lastPrice = open * (1 + change(random)),
                                          .openPrice24h = open,
                                          .quoteVolume24h = std::pow(10, 4 + magnitude(random))};
                universe.push_back({name + "USDT", std::move(name)});
            }
        }
        for (std::int64_t rank = 1; rank <= kMarketCapEntries; ++rank) {
            const Coin& coin = universe[static_cast<std::size_t>(rank) * 10 - 1];
            entries.push_back({.symbol = coin.baseAsset,
                               .rank = rank,
                               .marketCap = 1e12 / static_cast<double>(rank),
                               .referencePrice = tickers.at(coin.symbol).lastPrice});
        }
    }

    std::vector<Coin> universe;
    TickerMap tickers;
    std::vector<MarketCapEntry> entries;
};

std::vector<RankedCoin> numbered(std::vector<RankedCoin> rows, std::size_t limit) {
    rows.resize(std::min(rows.size(), limit));
    for (std::size_t index = 0; index < rows.size(); ++index) {
        rows[index].rank = static_cast<int>(index) + 1;
    }
    return rows;
}

/// Whether a row comes before another, with the change computed here.
bool comesBefore(Board board,
                 const Coin& leftCoin,
                 const Ticker& left,
                 const Coin& rightCoin,
                 const Ticker& right) {
    const auto value = [board](const Ticker& ticker) {
        return board == Board::volume ? ticker.quoteVolume24h.value_or(0)
                                      : ticker.changePercent24h();
    };
    const double leftValue = value(left);
    const double rightValue = value(right);
    if (leftValue != rightValue) {
        return board == Board::losers ? leftValue < rightValue : leftValue > rightValue;
    }
    return leftCoin.symbol < rightCoin.symbol;
}

/// A board by sorting all rows and throwing most of them away.
std::vector<RankedCoin> sortedBoard(const Market& market, Board board) {
    std::vector<RankedCoin> rows;
    for (const Coin& coin : market.universe) {
        if (const auto ticker = market.tickers.find(coin.symbol); ticker != market.tickers.end()) {
            rows.push_back({.coin = coin, .ticker = ticker->second});
        }
    }
    std::stable_sort(rows.begin(), rows.end(), [board](const auto& left, const auto& right) {
        return comesBefore(board, left.coin, left.ticker, right.coin, right.ticker);
    });
    return numbered(std::move(rows), kBoardRows);
}

/// The same with nothing copied but the rows that are kept.
std::vector<RankedCoin> sortedPointers(const Market& market, Board board) {
    struct Entry {
        const Coin* coin;
        const Ticker* ticker;
    };
    std::vector<Entry> entries;
    for (const Coin& coin : market.universe) {
        if (const auto ticker = market.tickers.find(coin.symbol); ticker != market.tickers.end()) {
            entries.push_back({&coin, &ticker->second});
        }
    }
    std::stable_sort(entries.begin(), entries.end(), [board](const auto& left, const auto& right) {
        return comesBefore(board, *left.coin, *left.ticker, *right.coin, *right.ticker);
    });
    entries.resize(std::min<std::size_t>(entries.size(), kBoardRows));
    std::vector<RankedCoin> rows;
    rows.reserve(entries.size());
    for (const Entry& entry : entries) {
        rows.push_back({.coin = *entry.coin, .ticker = *entry.ticker});
    }
    return numbered(std::move(rows), kBoardRows);
}

/// The market-cap board with the whole universe indexed at each call.
std::vector<RankedCoin> indexedMarketCapBoard(const Market& market) {
    std::unordered_map<std::string, Coin> coins;
    for (const Coin& coin : market.universe) {
        coins.try_emplace(SearchText::upperCased(coin.baseAsset), coin);
    }
    std::vector<RankedCoin> rows;
    for (const MarketCapEntry& entry : market.entries) {
        const auto coin = coins.find(SearchText::upperCased(entry.symbol));
        if (coin != coins.end() && !PeggedAssets::isPegged(entry.symbol)) {
            rows.push_back({.coin = coin->second,
                            .ticker = market.tickers.at(coin->second.symbol),
                            .marketCap = entry.marketCap});
        }
    }
    return numbered(std::move(rows), kMarketCapRows);
}

using Watched = std::vector<Coin>;

std::vector<Coin> sortedWatchlist(const Market& market, const Watched& coins) {
    return WatchlistSorter::sorted(coins,
                                   market.tickers,
                                   WatchlistSort{.column = WatchlistSortColumn::change},
                                   ChangeBasis::rolling24h,
                                   {});
}

/// The same order, with the change looked up and computed in the comparison.
std::vector<Coin> naivelySortedWatchlist(const Market& market, Watched coins) {
    const auto change = [&market](const Coin& coin) {
        const Ticker& ticker = market.tickers.at(coin.symbol);
        return ChangeCalculator::percent(
            ticker.lastPrice, ticker.openPrice24h, std::nullopt, ChangeBasis::rolling24h);
    };
    std::stable_sort(coins.begin(), coins.end(), [&](const Coin& left, const Coin& right) {
        const auto leftChange = change(left);
        const auto rightChange = change(right);
        return leftChange != rightChange ? leftChange > rightChange : left.symbol < right.symbol;
    });
    return coins;
}

}  // namespace

void registerBoards() {
    const auto market = std::make_shared<const Market>();
    Comparison("a board of 50 out of 2,500",
               std::vector{Board::gainers, Board::losers, Board::volume},
               [market](Board board) {
                   return Ranking::rank(board, market->tickers, market->universe, kBoardRows);
               })
        .with("std::stable_sort of all",
              [market](Board board) { return sortedBoard(*market, board); })
        .with("std::stable_sort of pointers to all",
              [market](Board board) { return sortedPointers(*market, board); });
    Comparison("a market-cap board of 100", std::vector{market}, [](const auto& of) {
        return MarketCapRanking::rank(of->entries, of->tickers, of->universe, kMarketCapRows);
    }).with("the whole universe indexed", [](const auto& of) {
        return indexedMarketCapBoard(*of);
    });
    const Watched watched(market->universe.begin(), market->universe.begin() + kWatchlistCoins);
    Comparison("1,000 watched coins by change",
               std::vector<Watched>{watched},
               [market](const Watched& coins) { return sortedWatchlist(*market, coins); })
        .with("changes computed in the comparison",
              [market](const Watched& coins) { return naivelySortedWatchlist(*market, coins); });
}

}  // namespace quillbar::benchmarks
