// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/state/DocumentStore.h"
#include "QuillbarCore/state/Preferences.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillbar {

/// What is peculiar to the stored preferences, "preferences.json":
///
///     {"schemaVersion":1,"changeColors":"redUp","label":{"wording":"custom",
///      "template":"{symbol} {price:.0}","discreet":true,"coins":"rotating","every":30},
///      "alertSound":true,"textSize":115,"language":"en"}
///
/// The version alone is required; what is absent has its default. A raw text, a number of seconds
/// or a text size that stands for nothing, or a switch that is neither true nor false, fails the
/// whole document; the template may be any text. But for the version and the colours, only what is
/// not the default is written.
struct PreferencesDocument final {
    using Document = Preferences;
    static constexpr std::string_view kFileName = "preferences.json";
    static constexpr std::string_view kLogCategory = "PreferencesStore";

    [[nodiscard]] static const Preferences& defaultDocument();
    [[nodiscard]] static Preferences decode(std::string_view text);
    [[nodiscard]] static std::string encode(const Preferences& preferences);
    static void logUnreadable(const Logger& logger, std::string_view reason);
    static void logUnknownVersion(const Logger& logger, std::int64_t version);
};

/// Keeps the user's preferences.
using PreferencesStore = DocumentStore<PreferencesDocument>;

}  // namespace quillbar
