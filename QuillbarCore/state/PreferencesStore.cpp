// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PreferencesStore.h"

#include "QuillbarCore/model/JSONDocument.h"

#include <nlohmann/json.hpp>

namespace quillbar {

using nlohmann::ordered_json;

namespace {

constexpr const char* kSchemaVersion = "schemaVersion";
constexpr const char* kChangeColors = "changeColors";

}  // namespace

const Preferences& PreferencesDocument::defaultDocument() {
    return Preferences::defaultPreferences();
}

Preferences PreferencesDocument::decode(std::string_view text) {
    const ordered_json value = JSONDocument::parse(text);
    Preferences preferences;
    preferences.schemaVersion = JSONDocument::requiredInteger(value, kSchemaVersion);
    if (JSONDocument::optionalMember(value, kChangeColors) != nullptr) {
        preferences.changeColors =
            JSONDocument::requiredValue(value, kChangeColors, changeColorsFromRawValue);
    }
    return preferences;
}

std::string PreferencesDocument::encode(const Preferences& preferences) {
    ordered_json value;
    value[kSchemaVersion] = preferences.schemaVersion;
    value[kChangeColors] = rawValue(preferences.changeColors);
    return JSONDocument::compactText(value);
}

void PreferencesDocument::logUnreadable(const Logger& logger, std::string_view reason) {
    logger.log("load preferences failed ({}), using default", reason);
}

void PreferencesDocument::logUnknownVersion(const Logger& logger, std::int64_t version) {
    logger.error("unknown preferences schema version {}, using default", version);
}

}  // namespace quillbar
