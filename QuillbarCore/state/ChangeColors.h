// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillbar {

/// In which colours rising and falling prices are shown.
enum class ChangeColors : std::uint8_t {
    /// Rising prices are green and falling ones red.
    greenUp,
    /// The other way round, as is usual in China.
    redUp,
    /// Rising prices are blue and falling ones orange, for users who cannot tell red from green.
    blueUp,
};

/// Every choice, in the order in which the user is offered them.
inline constexpr std::array kAllChangeColors{ChangeColors::greenUp,
                                             ChangeColors::redUp,
                                             ChangeColors::blueUp};

/// The text that stands for the colours in the preferences file. Stable for ever.
[[nodiscard]] std::string_view rawValue(ChangeColors colors);

/// The colours of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<ChangeColors> changeColorsFromRawValue(std::string_view rawText);

}  // namespace quillbar
