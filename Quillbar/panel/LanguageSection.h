// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/PreferencesSection.h"
#include "QuillbarCore/runtime/Observed.h"

namespace quillbar {

class ChoiceList;
class PreferencesState;

/// The section in which the user chooses the language of all texts. A language is named in itself,
/// so that a reader of only one of them finds it.
class LanguageSection final : public PreferencesSection {
public:
    /// The preferences outlive the section.
    explicit LanguageSection(PreferencesState& preferences, QWidget* parent = nullptr);

    /// Gives the focus to the language that is chosen.
    void takeFocus(Qt::FocusReason reason);

private:
    // A child, owned by Qt.
    ChoiceList* m_languages;
    // Last, because it calls functions of this object.
    Observation m_observation;
};

}  // namespace quillbar
