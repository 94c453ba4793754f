// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/SettingsStore.h"

#include "QuillbarCore/model/JSONDocument.h"

#include <nlohmann/json.hpp>

namespace quillbar {

using nlohmann::ordered_json;

namespace {

constexpr const char* kSchemaVersion = "schemaVersion";
constexpr const char* kChangeBasis = "changeBasis";
constexpr const char* kAppearance = "appearance";
constexpr const char* kLastBoard = "lastBoard";

}  // namespace

const AppSettings& SettingsDocument::defaultDocument() {
    return AppSettings::defaultSettings();
}

AppSettings SettingsDocument::decode(std::string_view text) {
    const ordered_json value = JSONDocument::parse(text);
    AppSettings settings;
    settings.schemaVersion = JSONDocument::requiredInteger(value, kSchemaVersion);
    settings.changeBasis =
        JSONDocument::requiredValue(value, kChangeBasis, changeBasisFromRawValue);
    if (JSONDocument::optionalMember(value, kAppearance) != nullptr) {
        settings.appearance =
            JSONDocument::requiredValue(value, kAppearance, appearanceModeFromRawValue);
    }
    if (JSONDocument::optionalMember(value, kLastBoard) != nullptr) {
        settings.lastBoard =
            JSONDocument::requiredValue(value, kLastBoard, rankingBoardFromRawValue);
    }
    return settings;
}

std::string SettingsDocument::encode(const AppSettings& settings) {
    ordered_json value;
    value[kSchemaVersion] = settings.schemaVersion;
    value[kChangeBasis] = rawValue(settings.changeBasis);
    value[kAppearance] = rawValue(settings.appearance);
    if (settings.lastBoard) {
        value[kLastBoard] = rawValue(*settings.lastBoard);
    }
    return JSONDocument::compactText(value);
}

void SettingsDocument::logUnreadable(const Logger& logger, std::string_view reason) {
    logger.log("load settings failed ({}), using default", reason);
}

void SettingsDocument::logUnknownVersion(const Logger& logger, std::int64_t version) {
    logger.error("unknown settings schema version {}, using default", version);
}

}  // namespace quillbar
