// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/RankedCoin.h"
#include "QuillbarCore/market/RankingBoard.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"

#include <cstdint>
#include <optional>
#include <vector>

/// The rules that order the exchange's own boards. Pure; callable from any thread.
namespace quillbar::Ranking {

/// A board that the exchange's statistics alone can rank.
enum class Board : std::uint8_t { gainers, losers, volume };

/// The exchange's board behind a user's board; absent for the market-cap board, which needs another
/// source.
[[nodiscard]] std::optional<Board> exchangeBoard(RankingBoard board);

/// The first `limit` rows of a board, numbered from 1; none for a limit below 1. Only coins of the
/// universe that have a ticker are ranked; with `minQuoteVolume` (in the quote asset) only those
/// that are known to have traded so much; on the volume board only those whose volume is known.
/// Equal values are ordered by symbol, and a symbol listed twice keeps the universe's order.
///
/// Takes the top without sorting the rest, because it is called at every redraw.
[[nodiscard]] std::vector<RankedCoin> rank(Board board,
                                           const TickerMap& tickers,
                                           const std::vector<Coin>& universe,
                                           int limit,
                                           std::optional<double> minQuoteVolume = std::nullopt);

}  // namespace quillbar::Ranking
