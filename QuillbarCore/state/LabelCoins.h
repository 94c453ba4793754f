// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillbar {

/// Which coins the item in the status area shows.
enum class LabelCoins : std::uint8_t {
    /// The pinned one.
    pinned,
    /// All of the list in turn, beginning with the pinned one.
    rotating,
    /// Some of the list at once, beginning with the pinned one, where the desktop shows text.
    sideBySide,
};

/// Every choice, in the order in which the user is offered them: in turn is the last, because the
/// seconds stand below it.
inline constexpr std::array kAllLabelCoins{LabelCoins::pinned,
                                           LabelCoins::sideBySide,
                                           LabelCoins::rotating};

/// For how many seconds each coin in turn can be shown.
inline constexpr std::array kAllRotationSeconds{5, 10, 30, 60};

/// The text that stands for the coins in the preferences file. Stable for ever.
[[nodiscard]] std::string_view rawValue(LabelCoins coins);

/// The coins of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<LabelCoins> labelCoinsFromRawValue(std::string_view rawText);

}  // namespace quillbar
