// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/WatchlistSort.h"

#include "QuillbarCore/model/ChangeCalculator.h"

#include <algorithm>

namespace quillbar {

namespace {

using Opens = std::unordered_map<std::string, double>;

struct SortedCoin {
    const Coin* coin;
    std::optional<double> value;
};

std::optional<double> sortValue(const Ticker& ticker,
                                const std::string& symbol,
                                WatchlistSortColumn column,
                                ChangeBasis basis,
                                const Opens& todayOpens) {
    switch (column) {
    case WatchlistSortColumn::volume:
        return ticker.quoteVolume24h;
    case WatchlistSortColumn::price:
        return ticker.lastPrice;
    case WatchlistSortColumn::change:
        break;
    }
    const auto open = todayOpens.find(symbol);
    return ChangeCalculator::percent(
        ticker.lastPrice,
        ticker.openPrice24h,
        open == todayOpens.end() ? std::nullopt : std::optional(open->second),
        basis);
}

bool comesBefore(const SortedCoin& left, const SortedCoin& right, bool ascending) {
    if (left.value.has_value() != right.value.has_value()) {
        return left.value.has_value();
    }
    if (left.value && *left.value != *right.value) {
        return ascending ? *left.value < *right.value : *left.value > *right.value;
    }
    return left.coin->symbol < right.coin->symbol;
}

}  // namespace

std::optional<WatchlistSort> WatchlistSort::next(const std::optional<WatchlistSort>& current,
                                                 WatchlistSortColumn tapped) {
    if (!current || current->column != tapped) {
        return WatchlistSort{.column = tapped, .ascending = false};
    }
    if (!current->ascending) {
        return WatchlistSort{.column = tapped, .ascending = true};
    }
    return std::nullopt;
}

std::vector<Coin> WatchlistSorter::sorted(const std::vector<Coin>& coins,
                                          const TickerMap& tickers,
                                          const std::optional<WatchlistSort>& sort,
                                          ChangeBasis basis,
                                          const Opens& todayOpens) {
    if (!sort) {
        return coins;
    }
    std::vector<SortedCoin> order;
    order.reserve(coins.size());
    for (const Coin& coin : coins) {
        const auto ticker = tickers.find(coin.symbol);
        order.push_back(
            {&coin,
             ticker == tickers.end()
                 ? std::nullopt
                 : sortValue(ticker->second, coin.symbol, sort->column, basis, todayOpens)});
    }
    // Stable, because a file the user edited may list a symbol twice.
    std::stable_sort(order.begin(), order.end(), [&](const auto& left, const auto& right) {
        return comesBefore(left, right, sort->ascending);
    });
    std::vector<Coin> result;
    result.reserve(order.size());
    for (const SortedCoin& entry : order) {
        result.push_back(*entry.coin);
    }
    return result;
}

}  // namespace quillbar
