// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapRanking.h"

#include "QuillbarCore/catalog/SearchText.h"
#include "QuillbarCore/market/PeggedAssets.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>

namespace quillbar::MarketCapRanking {

namespace {

struct Candidate {
    const MarketCapEntry* entry;
    const Coin* coin;
    const Ticker* ticker;
};

/// What `accepted` knows of a symbol.
struct Asset {
    /// The first coin of the universe whose base asset it is; null when it is not listed.
    const Coin* coin = nullptr;
    bool isTaken = false;
};

/// Symbols in upper case.
using Assets = std::unordered_map<std::string, Asset>;

/// The snapshot's symbols with their coins. The snapshot is indexed because it is the shorter list:
/// each coin of the universe then costs one look-up and no memory.
Assets assetsOf(const std::vector<MarketCapEntry>& snapshot, const std::vector<Coin>& universe) {
    Assets assets;
    assets.reserve(snapshot.size());
    for (const MarketCapEntry& entry : snapshot) {
        assets.try_emplace(SearchText::upperCased(entry.symbol));
    }
    for (const Coin& coin : universe) {
        const auto asset = assets.find(SearchText::upperCased(coin.baseAsset));
        if (asset != assets.end() && asset->second.coin == nullptr) {
            asset->second.coin = &coin;
        }
    }
    return assets;
}

bool isSamePrice(double reference, double last) {
    return reference > 0 && last > 0
           && std::max(reference, last) / std::min(reference, last) <= kMaximumPriceDivergence;
}

std::vector<Candidate> accepted(const std::vector<MarketCapEntry>& snapshot,
                                const TickerMap& tickers,
                                const std::vector<Coin>& universe) {
    Assets assets = assetsOf(snapshot, universe);
    std::vector<Candidate> candidates;
    for (const MarketCapEntry& entry : snapshot) {
        const std::string key = SearchText::upperCased(entry.symbol);
        Asset& asset = assets.find(key)->second;
        if (asset.isTaken || asset.coin == nullptr || PeggedAssets::isPegged(key)) {
            continue;
        }
        const auto ticker = tickers.find(asset.coin->symbol);
        if (ticker == tickers.end()
            || !isSamePrice(entry.referencePrice, ticker->second.lastPrice)) {
            continue;
        }
        asset.isTaken = true;
        candidates.push_back({&entry, asset.coin, &ticker->second});
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
