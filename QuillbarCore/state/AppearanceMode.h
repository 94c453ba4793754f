// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillbar {

/// Whether the interface is dark or light.
enum class AppearanceMode : std::uint8_t {
    dark,
    light,
    /// The same as the desktop.
    system,
};

/// Every mode, in the order in which the user is offered them.
inline constexpr std::array kAllAppearanceModes{AppearanceMode::dark,
                                                AppearanceMode::light,
                                                AppearanceMode::system};

/// The text that stands for the mode in the settings file. Stable for ever.
[[nodiscard]] std::string_view rawValue(AppearanceMode mode);

/// The mode of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<AppearanceMode> appearanceModeFromRawValue(std::string_view rawText);

/// The mode's name in the settings menu.
[[nodiscard]] std::string_view displayName(AppearanceMode mode);

}  // namespace quillbar
