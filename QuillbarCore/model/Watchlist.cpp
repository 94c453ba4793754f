// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/Watchlist.h"

#include "QuillbarCore/model/ProgrammingError.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace quillbar {

const Watchlist& Watchlist::defaultWatchlist() {
    static const Watchlist kDefault{kCurrentSchemaVersion,
                                    {Coin{"BTCUSDT", "BTC"},
                                     Coin{"ETHUSDT", "ETH"},
                                     Coin{"SOLUSDT", "SOL"},
                                     Coin{"BNBUSDT", "BNB"}},
                                    "BTCUSDT"};
    return kDefault;
}

std::optional<std::size_t> Watchlist::indexOf(std::string_view symbol) const {
    const auto found = std::find_if(
        coins.begin(), coins.end(), [&](const Coin& coin) { return coin.symbol == symbol; });
    if (found == coins.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - coins.begin());
}

std::vector<std::string> Watchlist::followedSymbols() const {
    const std::size_t count = std::min(coins.size(), kMaximumFollowed);
    std::vector<std::string> symbols;
    symbols.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        symbols.push_back(coins[index].symbol);
    }
    if (count < coins.size() && pinnedSymbol && contains(*pinnedSymbol)
        && std::find(symbols.begin(), symbols.end(), *pinnedSymbol) == symbols.end()) {
        symbols.back() = *pinnedSymbol;
    }
    return symbols;
}

Watchlist Watchlist::adding(const Coin& coin) const {
    return addingAll({coin});
}

Watchlist Watchlist::addingAll(const std::vector<Coin>& added) const {
    Watchlist result = *this;
    // The views refer to the receiver and the argument, because the result's strings move as it
    // grows.
    std::unordered_set<std::string_view> symbols;
    symbols.reserve(coins.size() + added.size());
    for (const Coin& coin : coins) {
        symbols.insert(coin.symbol);
    }
    std::copy_if(
        added.begin(), added.end(), std::back_inserter(result.coins), [&symbols](const Coin& coin) {
            return symbols.insert(coin.symbol).second;
        });
    return result;
}

Watchlist Watchlist::removing(std::string_view symbol) const {
    Watchlist result = *this;
    const std::size_t removed =
        std::erase_if(result.coins, [&](const Coin& coin) { return coin.symbol == symbol; });
    if (removed > 0 && pinnedSymbol == symbol) {
        result.pinnedSymbol = result.coins.empty()
                                  ? std::nullopt
                                  : std::optional<std::string>(result.coins.front().symbol);
    }
    return result;
}

Watchlist Watchlist::moving(const std::set<std::size_t>& fromOffsets, std::size_t toOffset) const {
    if (fromOffsets.empty()) {
        return *this;
    }
    if (*fromOffsets.rbegin() >= coins.size()) {
        programmingError("Watchlist::moving: an offset that is not on the list");
    }
    if (toOffset > coins.size()) {
        programmingError("Watchlist::moving: a destination past the list's end");
    }
    Watchlist result{schemaVersion, {}, pinnedSymbol};
    result.coins.reserve(coins.size());
    const auto append = [&](std::size_t first, std::size_t last) {
        for (std::size_t offset = first; offset < last; ++offset) {
            if (!fromOffsets.contains(offset)) {
                result.coins.push_back(coins[offset]);
            }
        }
    };
    append(0, toOffset);
    std::transform(fromOffsets.begin(),
                   fromOffsets.end(),
                   std::back_inserter(result.coins),
                   [&](std::size_t offset) { return coins[offset]; });
    append(toOffset, coins.size());
    return result;
}

Watchlist Watchlist::pinning(std::string_view symbol) const {
    Watchlist result = *this;
    if (contains(symbol)) {
        result.pinnedSymbol = symbol;
    }
    return result;
}

}  // namespace quillbar
