// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelSnapshot.h"

#include "QuillbarCore/state/AppState.h"

#include <algorithm>

namespace quillbar {

LabelSnapshot LabelSnapshot::of(const AppState& state) {
    LabelSnapshot snapshot;
    snapshot.text = *state.menuBarText();
    snapshot.basis = state.settings()->changeBasis;
    snapshot.connection = *state.connectionState();
    if (const auto& failure = *state.connectionFailure()) {
        snapshot.failure = displayName(*failure);
    }
    snapshot.lastUpdate = *state.lastUpdate();
    snapshot.lastError = *state.lastError();
    const Watchlist& watchlist = *state.watchlist();
    const auto pinned =
        std::find_if(watchlist.coins.begin(), watchlist.coins.end(), [&](const Coin& listed) {
            return watchlist.pinnedSymbol == listed.symbol;
        });
    if (pinned != watchlist.coins.end()) {
        snapshot.coin = *pinned;
        if (const Ticker* const ticker = state.tickers().find(pinned->symbol)) {
            snapshot.ticker = *ticker;
        }
        snapshot.changePercent = state.displayPercent(pinned->symbol);
    }
    snapshot.isStale = state.isDataStale() || !snapshot.showsPrice();
    return snapshot;
}

bool LabelSnapshot::showsPrice() const {
    return coin && ticker && text != coin->baseAsset;
}

ConnectionState LabelSnapshot::visibleConnection() const {
    return failure && connection == ConnectionState::connected ? ConnectionState::connecting
                                                               : connection;
}

bool differsVisibly(const LabelSnapshot& previous, const LabelSnapshot& current) {
    return previous.text != current.text || previous.connection != current.connection
           || previous.failure != current.failure || previous.isStale != current.isStale;
}

}  // namespace quillbar
