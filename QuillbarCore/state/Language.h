// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillbar {

/// Which language the user has chosen for the texts of the application.
enum class Language : std::uint8_t {
    /// Simplified Chinese.
    chinese,
    english,
    /// That of the desktop: Chinese where it prefers that, otherwise English.
    desktop,
};

/// Every choice, in the order in which the user is offered them.
inline constexpr std::array kAllLanguages{Language::chinese, Language::english, Language::desktop};

/// The text that stands for the choice in the preferences file. Stable for ever.
[[nodiscard]] std::string_view rawValue(Language language);

/// The choice of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<Language> languageFromRawValue(std::string_view rawText);

}  // namespace quillbar
