// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillbar {

/// What the item in the status area says of a coin.
enum class LabelWording : std::uint8_t {
    symbolPriceChange,
    symbolPrice,
    price,
    change,
    symbol,
    /// A template of the user's.
    custom,
};

/// Every wording, in the order in which the user is offered them.
inline constexpr std::array kAllLabelWordings{LabelWording::symbolPriceChange,
                                              LabelWording::symbolPrice,
                                              LabelWording::price,
                                              LabelWording::change,
                                              LabelWording::symbol,
                                              LabelWording::custom};

/// The text that stands for the wording in the preferences file. Stable for ever.
[[nodiscard]] std::string_view rawValue(LabelWording wording);

/// The wording of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<LabelWording> labelWordingFromRawValue(std::string_view rawText);

}  // namespace quillbar
