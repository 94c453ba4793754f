// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/ChangeColors.h"
#include "QuillbarCore/state/LabelPreferences.h"
#include "QuillbarCore/state/Language.h"
#include "QuillbarCore/state/TextSize.h"

#include <cstdint>

namespace quillbar {

/// What the user has chosen on the page of preferences. A plain value: an edit leaves the receiver
/// untouched and returns another one; copy it freely between threads. Equality compares all fields.
struct Preferences final {
    /// The version of the stored document that this program writes and understands.
    static constexpr std::int64_t kCurrentSchemaVersion = 1;

    /// Version of the stored document; kept by every edit.
    std::int64_t schemaVersion = kCurrentSchemaVersion;
    ChangeColors changeColors = ChangeColors::greenUp;
    LabelPreferences label = {};
    /// Whether the notice of a price alert asks for a sound.
    bool alertSound = false;
    TextSize textSize = TextSize::normal;
    Language language = Language::chinese;

    /// The preferences of a first start: green for rising prices, no sound, the panel at 100 %, and
    /// Chinese. The reference stays valid for the life of the process.
    [[nodiscard]] static const Preferences& defaultPreferences();

    // Each returns the preferences with this one field replaced.
    [[nodiscard]] Preferences settingChangeColors(ChangeColors colors) const;
    [[nodiscard]] Preferences settingLabel(const LabelPreferences& preferences) const;
    [[nodiscard]] Preferences settingAlertSound(bool isOn) const;
    [[nodiscard]] Preferences settingTextSize(TextSize size) const;
    [[nodiscard]] Preferences settingLanguage(Language choice) const;

    [[nodiscard]] bool operator==(const Preferences&) const = default;
};

}  // namespace quillbar
