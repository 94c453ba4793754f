// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PreferencesState.h"

#include <exception>
#include <utility>

namespace quillbar {

PreferencesState::PreferencesState(PreferencesStore store)
    : m_store(std::move(store))
    , m_preferences(m_store.load()) {}

void PreferencesState::setChangeColors(ChangeColors colors) {
    apply(m_preferences->settingChangeColors(colors));
}

void PreferencesState::setAlertSound(bool isOn) {
    apply(m_preferences->settingAlertSound(isOn));
}

void PreferencesState::setTextSize(TextSize size) {
    apply(m_preferences->settingTextSize(size));
}

void PreferencesState::setLanguage(Language language) {
    apply(m_preferences->settingLanguage(language));
}

void PreferencesState::setLabel(const LabelPreferences& label) {
    LabelPreferences before = m_preferences->label;
    before.ownTemplate = label.ownTemplate;
    apply(m_preferences->settingLabel(label),
          before == label ? AtomicFile::Durability::process : AtomicFile::Durability::powerCut);
}

void PreferencesState::apply(const Preferences& preferences, AtomicFile::Durability durability) {
    if (preferences == *m_preferences) {
        return;
    }
    m_preferences.set(preferences);
    try {
        m_store.save(*m_preferences, durability);
        m_isUnsaved.set(false);
    } catch (const std::exception& error) {
        m_logger.error("failed to persist preferences: {}", error.what());
        m_isUnsaved.set(true);
    }
}

}  // namespace quillbar
