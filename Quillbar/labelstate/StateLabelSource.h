// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelSource.h"
#include "QuillbarCore/runtime/Observed.h"

#include <functional>
#include <vector>

namespace quillbar {

class AppState;

/// The label of this process's own state. Main thread; what it is handed outlives it.
class StateLabelSource final : public LabelSource {
public:
    StateLabelSource(const AppState& state, const Observed<bool>& isStarted);

    [[nodiscard]] LabelSnapshot snapshot() const override;
    [[nodiscard]] bool isStarted() const override;
    void observe(std::function<void()> onChange) override;

private:
    const AppState& m_state;
    const Observed<bool>& m_isStarted;
    std::function<void()> m_onChange;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
