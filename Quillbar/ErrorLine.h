// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ThemedLabel.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/AppState.h"

#include <vector>

namespace quillbar {

/// The line that says what is wrong with the user's list: that the last edit was not saved, or that
/// the list is longer than prices can be followed for. Hidden while nothing is.
class ErrorLine final : public ThemedLabel {
public:
    /// The state outlives the line.
    explicit ErrorLine(const AppState& state, QWidget* parent = nullptr);

private:
    void refresh();

    const AppState& m_state;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
