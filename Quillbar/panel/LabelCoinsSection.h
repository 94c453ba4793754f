// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/PreferencesSection.h"
#include "QuillbarCore/runtime/Observed.h"

namespace quillbar {

class ChoiceList;
class PreferencesState;
struct Preferences;

/// The section in which the user chooses which coins the item in the status area shows. Where they
/// are shown in turn, a second choice says for how long each.
class LabelCoinsSection final : public PreferencesSection {
public:
    /// The preferences outlive the section.
    explicit LabelCoinsSection(PreferencesState& preferences, QWidget* parent = nullptr);

private:
    void showChoice(const Preferences& preferences);

    // Children, owned by Qt.
    ChoiceList* m_coins;
    ChoiceList* m_spans;
    // Last, because it calls a function of this object.
    Observation m_observation;
};

}  // namespace quillbar
