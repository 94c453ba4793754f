// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/Preferences.h"

namespace quillbar {

const Preferences& Preferences::defaultPreferences() {
    static const Preferences preferences;
    return preferences;
}

Preferences Preferences::settingChangeColors(ChangeColors colors) const {
    Preferences result = *this;
    result.changeColors = colors;
    return result;
}

Preferences Preferences::settingTextSize(TextSize size) const {
    Preferences result = *this;
    result.textSize = size;
    return result;
}

Preferences Preferences::settingLabel(const LabelPreferences& preferences) const {
    Preferences result = *this;
    result.label = preferences;
    return result;
}

Preferences Preferences::settingAlertSound(bool isOn) const {
    Preferences result = *this;
    result.alertSound = isOn;
    return result;
}

Preferences Preferences::settingLanguage(Language choice) const {
    Preferences result = *this;
    result.language = choice;
    return result;
}

}  // namespace quillbar
