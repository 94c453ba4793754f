// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/AppSettings.h"
#include "QuillbarCore/state/DocumentStore.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillbar {

/// Describes the stored settings, "settings.json":
///
///     {"schemaVersion":1,"changeBasis":"today","appearance":"light","lastBoard":"gainers"}
///
/// Version and basis are required; an absent appearance is dark. An unknown raw text fails the
/// whole document.
struct SettingsDocument final {
    using Document = AppSettings;
    static constexpr std::string_view kFileName = "settings.json";
    static constexpr std::string_view kLogCategory = "SettingsStore";

    [[nodiscard]] static const AppSettings& defaultDocument();
    [[nodiscard]] static AppSettings decode(std::string_view text);
    [[nodiscard]] static std::string encode(const AppSettings& settings);
    static void logUnreadable(const Logger& logger, std::string_view reason);
    static void logUnknownVersion(const Logger& logger, std::int64_t version);
};

/// Keeps the user's settings.
using SettingsStore = DocumentStore<SettingsDocument>;

}  // namespace quillbar
