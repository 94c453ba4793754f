// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelSource.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/Preferences.h"

#include <functional>
#include <vector>

namespace quillbar {

class AppState;
class ItemCoins;

/// The label of this process's own state, and the one list of what changes it. Main thread; what it
/// is handed outlives it.
class StateLabelSource final : public LabelSource {
public:
    /// With `preferences`, the label is hidden while they say so, and each of their changes is
    /// told. With `coins`, it is the label of those, for the item; without them, of the pinned
    /// coin.
    StateLabelSource(const AppState& state,
                     const Observed<bool>& isStarted,
                     const Observed<Preferences>* preferences = nullptr,
                     const ItemCoins* coins = nullptr);

    [[nodiscard]] LabelSnapshot snapshot() const override;
    [[nodiscard]] bool isStarted() const override;
    void observe(std::function<void()> onChange) override;

private:
    const AppState& m_state;
    const Observed<bool>& m_isStarted;
    const Observed<Preferences>* m_preferences;
    const ItemCoins* m_coins;
    std::function<void()> m_onChange;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
