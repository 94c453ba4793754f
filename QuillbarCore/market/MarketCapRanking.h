// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapEntry.h"
#include "QuillbarCore/market/RankedCoin.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"

#include <vector>

/// The rule that joins market capitalisations with the exchange's statistics. Pure.
namespace quillbar::MarketCapRanking {

/// The largest ratio of the service's price and the exchange's at which both mean the same coin:
/// symbols are not unique worldwide.
inline constexpr double kMaximumPriceDivergence = 2.0;

/// The first `limit` rows by the service's rank, numbered from 1 without gaps; none for a limit
/// below 1. Left out are pegged assets, coins that the exchange does not list or has no ticker of,
/// and entries whose price diverges; of entries with the same symbol the first that passes is
/// taken. Equal ranks are ordered by the pair's symbol.
[[nodiscard]] std::vector<RankedCoin> rank(const std::vector<MarketCapEntry>& snapshot,
                                           const TickerMap& tickers,
                                           const std::vector<Coin>& universe,
                                           int limit);

}  // namespace quillbar::MarketCapRanking
