// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/StateLabelSource.h"

#include "QuillbarCore/state/AppState.h"

#include <utility>

namespace quillbar {

StateLabelSource::StateLabelSource(const AppState& state,
                                   const Observed<bool>& isStarted,
                                   const Observed<Preferences>* preferences)
    : m_state(state)
    , m_isStarted(isStarted)
    , m_preferences(preferences) {}

LabelSnapshot StateLabelSource::snapshot() const {
    const LabelSnapshot snapshot = LabelSnapshot::of(m_state);
    const bool isDiscreet = m_preferences != nullptr && m_preferences->get().label.isDiscreet;
    return isDiscreet ? snapshot.hidden() : snapshot;
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
}

}  // namespace quillbar
