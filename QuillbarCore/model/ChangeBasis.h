// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillbar {

/// What a shown change in percent is measured against.
enum class ChangeBasis : std::uint8_t {
    /// The open of the exchange's rolling 24-hour window.
    rolling24h,
    /// The price at the start of the user's local calendar day.
    today,
};

/// Every basis, in the order in which the user is offered them.
inline constexpr std::array kAllChangeBases{ChangeBasis::rolling24h, ChangeBasis::today};

/// The text that stands for the basis in the settings file. Stable for ever.
[[nodiscard]] std::string_view rawValue(ChangeBasis basis);

/// The basis of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<ChangeBasis> changeBasisFromRawValue(std::string_view rawText);

/// The basis's name in the settings menu.
[[nodiscard]] std::string_view displayName(ChangeBasis basis);

}  // namespace quillbar
