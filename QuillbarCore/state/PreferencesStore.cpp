// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PreferencesStore.h"

#include "QuillbarCore/model/JSONDocument.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

namespace quillbar {

using nlohmann::ordered_json;

namespace {

constexpr const char* kSchemaVersion = "schemaVersion";
constexpr const char* kChangeColors = "changeColors";
constexpr const char* kLabel = "label";
constexpr const char* kWording = "wording";
constexpr const char* kTemplate = "template";
constexpr const char* kDiscreet = "discreet";
constexpr const char* kCoins = "coins";
constexpr const char* kEvery = "every";
constexpr const char* kAlertSound = "alertSound";
constexpr const char* kTextSize = "textSize";
constexpr const char* kLanguage = "language";

int decodeRotationSeconds(const ordered_json& value) {
    const std::int64_t seconds = JSONDocument::requiredInteger(value, kEvery);
    for (const int known : kAllRotationSeconds) {
        if (seconds == known) {
            return known;
        }
    }
    throw DocumentError(fmt::format("\"{}\" cannot be {}", kEvery, seconds));
}

LabelPreferences decodeLabel(const ordered_json& value) {
    LabelPreferences label;
    if (JSONDocument::optionalMember(value, kWording) != nullptr) {
        label.wording = JSONDocument::requiredValue(value, kWording, labelWordingFromRawValue);
    }
    if (JSONDocument::optionalMember(value, kTemplate) != nullptr) {
        label.ownTemplate = JSONDocument::requiredString(value, kTemplate);
    }
    if (JSONDocument::optionalMember(value, kDiscreet) != nullptr) {
        label.isDiscreet = JSONDocument::requiredTruth(value, kDiscreet);
    }
    if (JSONDocument::optionalMember(value, kCoins) != nullptr) {
        label.coins = JSONDocument::requiredValue(value, kCoins, labelCoinsFromRawValue);
    }
    if (JSONDocument::optionalMember(value, kEvery) != nullptr) {
        label.rotationSeconds = decodeRotationSeconds(value);
    }
    return label;
}

ordered_json encodeLabel(const LabelPreferences& label) {
    const LabelPreferences usual;
    ordered_json value;
    if (label.wording != usual.wording) {
        value[kWording] = rawValue(label.wording);
    }
    if (label.ownTemplate != usual.ownTemplate) {
        value[kTemplate] = label.ownTemplate;
    }
    if (label.isDiscreet) {
        value[kDiscreet] = true;
    }
    if (label.coins != usual.coins) {
        value[kCoins] = rawValue(label.coins);
    }
    if (label.rotationSeconds != usual.rotationSeconds) {
        value[kEvery] = label.rotationSeconds;
    }
    return value;
}

TextSize decodeTextSize(const ordered_json& value) {
    const std::int64_t percent = JSONDocument::requiredInteger(value, kTextSize);
    if (const auto size = textSizeFromPercent(percent)) {
        return *size;
    }
    throw DocumentError(fmt::format("\"{}\" cannot be {}", kTextSize, percent));
}

}  // namespace

const Preferences& PreferencesDocument::defaultDocument() {
    return Preferences::defaultPreferences();
}

Preferences PreferencesDocument::decode(std::string_view text) {
    const ordered_json value = JSONDocument::parse(text);
    Preferences preferences;
    preferences.schemaVersion = JSONDocument::requiredInteger(value, kSchemaVersion);
    if (preferences.schemaVersion != Preferences::kCurrentSchemaVersion) {
        // The rest of a later version is unknown, and the store reads nothing else of it.
        return preferences;
    }
    if (JSONDocument::optionalMember(value, kChangeColors) != nullptr) {
        preferences.changeColors =
            JSONDocument::requiredValue(value, kChangeColors, changeColorsFromRawValue);
    }
    if (const auto* const label = JSONDocument::optionalMember(value, kLabel)) {
        preferences.label = decodeLabel(*label);
    }
    if (JSONDocument::optionalMember(value, kAlertSound) != nullptr) {
        preferences.alertSound = JSONDocument::requiredTruth(value, kAlertSound);
    }
    if (JSONDocument::optionalMember(value, kTextSize) != nullptr) {
        preferences.textSize = decodeTextSize(value);
    }
    if (JSONDocument::optionalMember(value, kLanguage) != nullptr) {
        preferences.language = JSONDocument::requiredValue(value, kLanguage, languageFromRawValue);
    }
    return preferences;
}

std::string PreferencesDocument::encode(const Preferences& preferences) {
    ordered_json value;
    value[kSchemaVersion] = preferences.schemaVersion;
    value[kChangeColors] = rawValue(preferences.changeColors);
    if (preferences.label != LabelPreferences{}) {
        value[kLabel] = encodeLabel(preferences.label);
    }
    if (preferences.alertSound) {
        value[kAlertSound] = true;
    }
    if (preferences.textSize != TextSize::normal) {
        value[kTextSize] = percentOf(preferences.textSize);
    }
    if (preferences.language != Language::chinese) {
        value[kLanguage] = rawValue(preferences.language);
    }
    return JSONDocument::compactText(value);
}

void PreferencesDocument::logUnreadable(const Logger& logger, std::string_view reason) {
    logger.log("load preferences failed ({}), using default", reason);
}

void PreferencesDocument::logUnknownVersion(const Logger& logger, std::int64_t version) {
    logger.error("unknown preferences schema version {}, using default", version);
}

}  // namespace quillbar
