// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/Ranking.h"

#include <algorithm>
#include <cstddef>

namespace quillbar::Ranking {

namespace {

// A coin to rank, with its key: the smallest key comes first.
struct Candidate {
    double key;
    const Coin* coin;
    const Ticker* ticker;
};

double keyOf(Board board, const Ticker& ticker) {
    switch (board) {
    case Board::gainers:
        return -ticker.changePercent24h();
    case Board::losers:
        return ticker.changePercent24h();
    case Board::volume:
        break;
    }
    return -ticker.quoteVolume24h.value_or(0);
}

bool takesPart(Board board, const Ticker& ticker, std::optional<double> minQuoteVolume) {
    if (minQuoteVolume) {
        return ticker.quoteVolume24h && *ticker.quoteVolume24h >= *minQuoteVolume;
    }
    return board != Board::volume || ticker.quoteVolume24h.has_value();
}

bool comesBefore(const Candidate& left, const Candidate& right) {
    if (left.key != right.key) {
        return left.key < right.key;
    }
    if (const int order = left.coin->symbol.compare(right.coin->symbol); order != 0) {
        return order < 0;
    }
    // The pointers refer to the universe, so equal symbols keep its order.
    return left.coin < right.coin;
}

}  // namespace

std::optional<Board> exchangeBoard(RankingBoard board) {
    switch (board) {
    case RankingBoard::gainers:
        return Board::gainers;
    case RankingBoard::losers:
        return Board::losers;
    case RankingBoard::volume:
        return Board::volume;
    case RankingBoard::marketCap:
        break;
    }
    return std::nullopt;
}

std::vector<RankedCoin> rank(Board board,
                             const TickerMap& tickers,
                             const std::vector<Coin>& universe,
                             int limit,
                             std::optional<double> minQuoteVolume) {
    if (limit < 1) {
        return {};
    }
    std::vector<Candidate> candidates;
    candidates.reserve(universe.size());
    for (const Coin& coin : universe) {
        const auto ticker = tickers.find(coin.symbol);
        if (ticker != tickers.end() && takesPart(board, ticker->second, minQuoteVolume)) {
            candidates.push_back({keyOf(board, ticker->second), &coin, &ticker->second});
        }
    }
    const std::size_t count = std::min(candidates.size(), static_cast<std::size_t>(limit));
    const auto top = candidates.begin() + static_cast<std::ptrdiff_t>(count);
    std::partial_sort(candidates.begin(), top, candidates.end(), comesBefore);
    std::vector<RankedCoin> rows;
    rows.reserve(count);
    for (auto row = candidates.begin(); row != top; ++row) {
        rows.push_back({.rank = static_cast<int>(rows.size()) + 1,
                        .coin = *row->coin,
                        .ticker = *row->ticker});
    }
    return rows;
}

}  // namespace quillbar::Ranking
