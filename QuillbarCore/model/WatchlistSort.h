// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillbar {

/// A column by which the watchlist table can be sorted.
enum class WatchlistSortColumn : std::uint8_t { volume, price, change };

/// Every column, in the order of the table's headers.
inline constexpr std::array kAllWatchlistSortColumns{WatchlistSortColumn::volume,
                                                     WatchlistSortColumn::price,
                                                     WatchlistSortColumn::change};

/// One active sort of the watchlist. A view over the list: the stored order is untouched, and the
/// absence of a sort is the user's manual order.
struct WatchlistSort final {
    WatchlistSortColumn column = WatchlistSortColumn::volume;
    bool ascending = false;

    [[nodiscard]] bool operator==(const WatchlistSort&) const = default;

    /// The sort after a click on a column's header: descending, then ascending, then the manual
    /// order; another column always begins descending. Pure.
    [[nodiscard]] static std::optional<WatchlistSort> next(
        const std::optional<WatchlistSort>& current,
        WatchlistSortColumn tapped);
};

namespace WatchlistSorter {

/// The coins in the order in which the table shows them. Coins without a value in the sorted column
/// come last, by symbol, in both directions; equal values are ordered by symbol, in both
/// directions. Without a sort the coins are returned as they are. Pure.
[[nodiscard]] std::vector<Coin> sorted(const std::vector<Coin>& coins,
                                       const TickerMap& tickers,
                                       const std::optional<WatchlistSort>& sort,
                                       ChangeBasis basis,
                                       const std::unordered_map<std::string, double>& todayOpens);

}  // namespace WatchlistSorter

}  // namespace quillbar
