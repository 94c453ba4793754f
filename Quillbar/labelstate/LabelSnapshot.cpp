// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelSnapshot.h"

#include "Quillbar/labelstate/ConnectionName.h"
#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/state/AppState.h"

#include <utility>

namespace quillbar {

namespace {

LabelSnapshot snapshotOf(const AppState& state, PinnedQuote quote) {
    LabelSnapshot snapshot;
    snapshot.quote = std::move(quote);
    snapshot.text = snapshot.quote.text();
    if (const auto& failure = *state.connectionFailure()) {
        snapshot.failure = displayName(*failure);
    }
    snapshot.lastUpdate = state.lastUpdateByPresentClock();
    if (const auto& error = *state.lastError()) {
        snapshot.lastError = translatedFromCore(*error).toStdString();
    }
    if (const auto& coin = snapshot.quote.coin) {
        snapshot.coinUpdate = state.lastUpdateOf(coin->symbol);
    }
    return snapshot;
}

}  // namespace

LabelSnapshot LabelSnapshot::of(const AppState& state) {
    return snapshotOf(state, state.pinnedQuoteNow());
}

LabelSnapshot LabelSnapshot::of(const AppState& state, const Coin& coin) {
    return snapshotOf(state, state.quoteOf(coin));
}

LabelSnapshot LabelSnapshot::hidden() const {
    LabelSnapshot result;
    result.quote.basis = quote.basis;
    result.quote.connection = quote.connection;
    result.text = result.quote.text();
    result.lastUpdate = lastUpdate;
    result.failure = failure;
    result.lastError = lastError;
    result.isDiscreet = true;
    return result;
}

ConnectionState LabelSnapshot::visibleConnection() const {
    return failure && quote.connection == ConnectionState::connected ? ConnectionState::connecting
                                                                     : quote.connection;
}

bool differsVisibly(const LabelSnapshot& previous, const LabelSnapshot& current) {
    return previous.text != current.text || previous.quote.connection != current.quote.connection
           || previous.failure != current.failure
           || previous.quote.isStale() != current.quote.isStale();
}

}  // namespace quillbar
