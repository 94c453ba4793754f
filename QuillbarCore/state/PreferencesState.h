// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/AtomicFile.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/ChangeColors.h"
#include "QuillbarCore/state/LabelPreferences.h"
#include "QuillbarCore/state/Language.h"
#include "QuillbarCore/state/Preferences.h"
#include "QuillbarCore/state/PreferencesStore.h"
#include "QuillbarCore/state/TextSize.h"

namespace quillbar {

/// The observable model of the user's preferences, which it saves at each edit. For the main
/// thread, which it blocks while it reads or writes the file.
class PreferencesState final {
public:
    /// Loads the stored preferences, or the default ones as `PreferencesStore::load` does.
    explicit PreferencesState(PreferencesStore store);

    // What is observed. The references are valid for the life of this object.

    /// The user's preferences.
    [[nodiscard]] const Observed<Preferences>& preferences() const noexcept {
        return m_preferences;
    }
    /// Whether the last edit could not be saved.
    [[nodiscard]] const Observed<bool>& isUnsaved() const noexcept { return m_isUnsaved; }

    // Edits. Each saves, and does nothing for what is set already. A save that fails is logged,
    // keeps the edit in memory and sets `isUnsaved`.

    /// Shows changes in these colours.
    void setChangeColors(ChangeColors colors);
    /// Gives the notices of price alerts a sound or none.
    void setAlertSound(bool isOn);
    /// Draws the panel in this size.
    void setTextSize(TextSize size);
    /// Chooses the language of the texts.
    void setLanguage(Language language);
    /// Shows this in the status area. While a template is typed, each of its versions is an edit,
    /// so an edit of the template alone does not wait for the disk: a power cut a few seconds later
    /// may cost it.
    void setLabel(const LabelPreferences& label);

private:
    void apply(const Preferences& preferences,
               AtomicFile::Durability durability = AtomicFile::Durability::powerCut);

    PreferencesStore m_store;
    Logger m_logger{"PreferencesState"};
    Observed<Preferences> m_preferences;
    Observed<bool> m_isUnsaved;
};

}  // namespace quillbar
