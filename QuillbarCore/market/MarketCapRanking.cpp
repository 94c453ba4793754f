// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapRanking.h"

#include "QuillbarCore/catalog/SearchText.h"
#include "QuillbarCore/market/PeggedAssets.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace quillbar::MarketCapRanking {

namespace {

struct Candidate {
    const MarketCapEntry* entry;
    const Coin* coin;
    const Ticker* ticker;
};

std::unordered_map<std::string, const Coin*> indexedByBaseAsset(const std::vector<Coin>& universe) {
    std::unordered_map<std::string, const Coin*> index;
    index.reserve(universe.size());
    for (const Coin& coin : universe) {
        index.try_emplace(SearchText::upperCased(coin.baseAsset), &coin);
    }
    return index;
}

bool isSamePrice(double reference, double last) {
    return reference > 0 && last > 0
           && std::max(reference, last) / std::min(reference, last) <= kMaximumPriceDivergence;
}

std::vector<Candidate> accepted(const std::vector<MarketCapEntry>& snapshot,
                                const TickerMap& tickers,
                                const std::vector<Coin>& universe) {
    const auto coins = indexedByBaseAsset(universe);
    std::unordered_set<std::string> taken;
    std::vector<Candidate> candidates;
    for (const MarketCapEntry& entry : snapshot) {
        const std::string key = SearchText::upperCased(entry.symbol);
        if (taken.contains(key) || PeggedAssets::isPegged(key)) {
            continue;
        }
        const auto coin = coins.find(key);
        if (coin == coins.end()) {
            continue;
        }
        const auto ticker = tickers.find(coin->second->symbol);
        if (ticker == tickers.end()
            || !isSamePrice(entry.referencePrice, ticker->second.lastPrice)) {
            continue;
        }
        taken.insert(key);
        candidates.push_back({&entry, coin->second, &ticker->second});
    }
    return candidates;
}

}  // namespace

std::vector<RankedCoin> rank(const std::vector<MarketCapEntry>& snapshot,
                             const TickerMap& tickers,
                             const std::vector<Coin>& universe,
                             int limit) {
    if (limit < 1) {
        return {};
    }
    std::vector<Candidate> candidates = accepted(snapshot, tickers, universe);
    std::stable_sort(
        candidates.begin(), candidates.end(), [](const Candidate& left, const Candidate& right) {
            if (left.entry->rank != right.entry->rank) {
                return left.entry->rank < right.entry->rank;
            }
            return left.coin->symbol < right.coin->symbol;
        });
    candidates.resize(std::min(candidates.size(), static_cast<std::size_t>(limit)));
    std::vector<RankedCoin> rows;
    rows.reserve(candidates.size());
    for (const Candidate& candidate : candidates) {
        rows.push_back({.rank = static_cast<int>(rows.size()) + 1,
                        .coin = *candidate.coin,
                        .ticker = *candidate.ticker,
                        .marketCap = candidate.entry->marketCap});
    }
    return rows;
}

}  // namespace quillbar::MarketCapRanking
