// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/WatchlistMove.h"

#include "QuillbarCore/model/Watchlist.h"

#include <cstddef>
#include <set>
#include <utility>
#include <vector>

namespace quillbar {

Task<void> WatchlistMove::inFrontOf(AppState& state,
                                    std::string symbol,
                                    std::optional<std::string> next) {
    const std::vector<Coin>& coins = state.watchlist()->coins;
    std::set<std::size_t> from;
    std::optional<std::size_t> to = next ? std::nullopt : std::optional(coins.size());
    for (std::size_t index = 0; index < coins.size(); ++index) {
        if (coins[index].symbol == symbol) {
            from.insert(index);
        } else if (!to && coins[index].symbol == next) {
            to = index;
        }
    }
    if (to) {
        co_await state.move(std::move(from), *to);
    }
}

}  // namespace quillbar
