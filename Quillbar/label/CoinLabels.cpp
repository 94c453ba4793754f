// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/CoinLabels.h"

#include "QuillbarCore/state/AppState.h"

#include <utility>

namespace quillbar {

CoinLabels::CoinLabels(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
    , m_scope(m_dependencies.executor) {}

std::vector<LabelSnapshot> CoinLabels::snapshots() const {
    const AppState& state = m_dependencies.state;
    std::vector<LabelSnapshot> snapshots;
    for (const Coin& coin : state.watchlist()->coins) {
        snapshots.push_back(LabelSnapshot::of(state, coin));
    }
    return snapshots;
}

bool CoinLabels::isStarted() const {
    return *m_dependencies.isStarted;
}

std::vector<std::string> CoinLabels::unknownCoins() const {
    const AppState& state = m_dependencies.state;
    std::vector<std::string> names;
    for (const Coin& coin : state.watchlist()->coins) {
        const bool hasPrice = state.tickers().find(coin.symbol) != nullptr;
        if (!hasPrice && m_dependencies.isUnknown(coin.symbol)) {
            names.push_back(coin.baseAsset);
        }
    }
    return names;
}

void CoinLabels::observe(std::function<void()> onChange) {
    m_observations.clear();
    m_scope.cancelAll();
    m_onChange = std::move(onChange);
    if (!m_onChange) {
        return;
    }
    const AppState& state = m_dependencies.state;
    const auto noteChange = [this](const auto& /*value*/) { changed(); };
    m_observations.emplace_back(state.tickers().observe(noteChange));
    m_observations.emplace_back(state.todayOpens().observe(noteChange));
    m_observations.emplace_back(state.connectionState().observe(noteChange));
    m_observations.emplace_back(state.connectionFailure().observe(noteChange));
    m_observations.emplace_back(m_dependencies.isStarted.observe(noteChange));
    m_scope.spawn(lookNowAndThen());
}

void CoinLabels::changed() {
    m_hasNews = true;
    if (!m_telling.isRunning()) {
        m_telling = m_scope.spawn(tell());
    }
}

Task<void> CoinLabels::tell() {
    while (std::exchange(m_hasNews, false)) {
        m_onChange();
        co_await m_dependencies.sleeper(kSpacing);
    }
}

Task<void> CoinLabels::lookNowAndThen() {
    for (;;) {
        co_await m_dependencies.sleeper(kLookInterval);
        changed();
    }
}

}  // namespace quillbar
