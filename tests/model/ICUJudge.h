// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quillbar {

/// Which digits a grouped decimal keeps.
enum class DigitRule : std::uint8_t { twoFractionDigits, upToFourSignificantDigits };

/// ICU's decimal text of the number for en_US, rounded half to even: the judge of the grouped
/// decimals.
[[nodiscard]] std::string icuDecimal(double value, DigitRule rule);

/// The same with exactly that many fraction digits.
[[nodiscard]] std::string icuDecimal(double value, int fractionDigits);

}  // namespace quillbar
