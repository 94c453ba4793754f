// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DocumentRules.h"
#include "fuzz/FuzzTarget.h"
#include "QuillbarCore/state/WatchlistStore.h"

namespace quillbar {

namespace {

/// The edits that the application makes keep the list sound, whatever was stored.
void requireSoundEdits(const Watchlist& watchlist) {
    const Coin added{"QUILLBARUSDT", "QUILLBAR"};
    require(watchlist.adding(added).contains(added.symbol), "a coin that was added is listed");
    for (const Coin& coin : watchlist.coins) {
        const Watchlist removed = watchlist.removing(coin.symbol);
        require(!removed.contains(coin.symbol), "a coin that was removed is not listed");
        require(removed.pinnedSymbol != coin.symbol, "a coin that was removed is not pinned");
        require(watchlist.pinning(coin.symbol).pinnedSymbol == coin.symbol,
                "a listed coin can be pinned");
    }
}

}  // namespace

void fuzz(std::string_view input) {
    if (const auto watchlist = requireSoundDocument<WatchlistDocument>(input)) {
        requireSoundEdits(*watchlist);
    }
}

}  // namespace quillbar
