// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/AppState.h"

#include <vector>

namespace quillbar {

/// The line for problems that the user can solve: the last edit was not saved, no server serves
/// this region, or the list has more coins than the stream can follow. It is hidden while there is
/// none. Screen readers read it aloud when it appears and when its text changes.
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
