// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/model/NaiveWatchlist.h"

#include <cstddef>

namespace quillbar::NaiveWatchlist {

namespace {

auto positionOf(const Watchlist& list, const std::string& symbol) {
    auto position = list.coins.begin();
    while (position != list.coins.end() && position->symbol != symbol) {
        ++position;
    }
    return position;
}

bool has(const Watchlist& list, const std::string& symbol) {
    return positionOf(list, symbol) != list.coins.end();
}

}  // namespace

Watchlist adding(Watchlist list, const Coin& coin) {
    if (!has(list, coin.symbol)) {
        list.coins.push_back(coin);
    }
    return list;
}

Watchlist addingAll(Watchlist list, const std::vector<Coin>& coins) {
    for (const Coin& coin : coins) {
        list = adding(list, coin);
    }
    return list;
}

Watchlist removing(Watchlist list, const std::string& symbol) {
    if (!has(list, symbol)) {
        return list;
    }
    list.coins.erase(positionOf(list, symbol));
    if (list.pinnedSymbol == symbol) {
        list.pinnedSymbol.reset();
        if (!list.coins.empty()) {
            list.pinnedSymbol = list.coins[0].symbol;
        }
    }
    return list;
}

Watchlist moving(Watchlist list, const std::set<std::size_t>& fromOffsets, std::size_t toOffset) {
    std::vector<Coin> moved;
    std::size_t destination = toOffset;
    const std::vector<std::size_t> descending(fromOffsets.rbegin(), fromOffsets.rend());
    for (const std::size_t offset : descending) {
        moved.insert(moved.begin(), list.coins[offset]);
        list.coins.erase(list.coins.begin() + static_cast<std::ptrdiff_t>(offset));
        if (offset < toOffset) {
            --destination;
        }
    }
    list.coins.insert(
        list.coins.begin() + static_cast<std::ptrdiff_t>(destination), moved.begin(), moved.end());
    return list;
}

Watchlist pinning(Watchlist list, const std::string& symbol) {
    if (has(list, symbol)) {
        list.pinnedSymbol = symbol;
    }
    return list;
}

std::string isConsistent(const Watchlist& list) {
    std::set<std::string> symbols;
    for (const Coin& coin : list.coins) {
        if (!symbols.insert(coin.symbol).second) {
            return coin.symbol + " is on the list twice";
        }
    }
    if (list.pinnedSymbol && !has(list, *list.pinnedSymbol)) {
        return "the pin names " + *list.pinnedSymbol + ", which is not on the list";
    }
    if (list.schemaVersion != Watchlist::kCurrentSchemaVersion) {
        return "the schema version changed";
    }
    return "consistent";
}

}  // namespace quillbar::NaiveWatchlist
