// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/StateLabelSource.h"

#include "Quillbar/labelstate/ItemCoins.h"
#include "QuillbarCore/state/AppState.h"

#include <utility>

namespace quillbar {

StateLabelSource::StateLabelSource(const AppState& state,
                                   const Observed<bool>& isStarted,
                                   const Observed<Preferences>* preferences,
                                   const ItemCoins* coins)
    : m_state(state)
    , m_isStarted(isStarted)
    , m_preferences(preferences)
    , m_coins(coins) {}

LabelSnapshot StateLabelSource::snapshot() const {
    if (m_preferences != nullptr && m_preferences->get().label.isDiscreet) {
        return LabelSnapshot::of(m_state).hidden();
    }
    const ItemCoins::Shown shown = m_coins != nullptr ? *m_coins->shown() : ItemCoins::Shown{};
    if (shown.instead && shown.instead->coin) {
        return LabelSnapshot::of(m_state, *shown.instead->coin);
    }
    LabelSnapshot snapshot = LabelSnapshot::of(m_state);
    // A price may have grown old since it was told.
    for (const PinnedQuote& quote : shown.beside) {
        snapshot.beside.push_back(m_state.quoteOf(quote.coin));
    }
    return snapshot;
}

bool StateLabelSource::isStarted() const {
    return *m_isStarted;
}

void StateLabelSource::observe(std::function<void()> onChange) {
    m_observations.clear();
    m_onChange = std::move(onChange);
    if (!m_onChange) {
        return;
    }
    const auto changed = [this](const auto& /*value*/) { m_onChange(); };
    m_observations.emplace_back(m_state.pinnedQuote().observe(changed));
    m_observations.emplace_back(m_state.connectionFailure().observe(changed));
    m_observations.emplace_back(m_state.lastError().observe(changed));
    m_observations.emplace_back(m_isStarted.observe(changed));
    if (m_preferences != nullptr) {
        m_observations.emplace_back(m_preferences->observe(changed));
    }
    if (m_coins != nullptr) {
        m_observations.emplace_back(m_coins->shown().observe(changed));
    }
}

}  // namespace quillbar
