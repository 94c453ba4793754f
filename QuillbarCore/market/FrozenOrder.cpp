// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/FrozenOrder.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace quillbar {

namespace {

// The first item of each symbol. The views and pointers refer to `items`.
template <class Item>
std::unordered_map<std::string_view, const Item*> indexed(const std::vector<Item>& items) {
    std::unordered_map<std::string_view, const Item*> index;
    index.reserve(items.size());
    for (const Item& item : items) {
        index.try_emplace(item.id(), &item);
    }
    return index;
}

}  // namespace

std::vector<std::string> FrozenOrder::capture(const std::vector<Coin>& items) {
    std::vector<std::string> order;
    order.reserve(items.size());
    for (const Coin& item : items) {
        order.push_back(item.symbol);
    }
    return order;
}

std::vector<FrozenRank> FrozenOrder::capture(const std::vector<RankedCoin>& items) {
    std::vector<FrozenRank> order;
    order.reserve(items.size());
    for (const RankedCoin& item : items) {
        order.push_back({.symbol = item.coin.symbol, .rank = item.rank});
    }
    return order;
}

std::vector<Coin> FrozenOrder::project(const std::vector<Coin>& items,
                                       const std::vector<std::string>& order) {
    if (order.empty()) {
        return items;
    }
    const auto live = indexed(items);
    std::vector<Coin> projected;
    projected.reserve(items.size());
    for (const std::string& symbol : order) {
        if (const auto found = live.find(symbol); found != live.end()) {
            projected.push_back(*found->second);
        }
    }
    const std::unordered_set<std::string_view> captured(order.begin(), order.end());
    for (const Coin& item : items) {
        if (!captured.contains(item.symbol)) {
            projected.push_back(item);
        }
    }
    return projected;
}

std::vector<RankedCoin> FrozenOrder::project(const std::vector<RankedCoin>& items,
                                             const std::vector<FrozenRank>& order) {
    if (order.empty()) {
        return items;
    }
    const auto live = indexed(items);
    std::vector<RankedCoin> projected;
    projected.reserve(order.size());
    for (const FrozenRank& captured : order) {
        if (const auto found = live.find(captured.symbol); found != live.end()) {
            projected.push_back({.rank = captured.rank,
                                 .coin = found->second->coin,
                                 .ticker = found->second->ticker});
        }
    }
    return projected;
}

}  // namespace quillbar
