// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/PreferencesSection.h"
#include "QuillbarCore/runtime/Observed.h"

namespace quillbar {

class ChoiceList;
class PreferencesState;

/// The section in which the user chooses how large the panel is drawn.
class TextSizeSection final : public PreferencesSection {
public:
    /// The preferences outlive the section.
    explicit TextSizeSection(PreferencesState& preferences, QWidget* parent = nullptr);

private:
    // A child, owned by Qt.
    ChoiceList* m_sizes;
    // Last, because it calls a function of this object.
    Observation m_observation;
};

}  // namespace quillbar
