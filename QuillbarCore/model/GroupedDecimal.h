// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Decimal texts with "," between groups of three integer digits, "." before the fraction and "-"
/// in front of what is negative, a negative zero included. They follow no locale.
///
/// They round half to even, and start from the shortest decimal that reads back as the value: 2.675
/// gives 2.68, where printf, which starts from the binary value, gives 2.67. Not-a-number gives
/// "NaN" and infinity "∞", either with "-" when its sign bit is set.
///
/// Pure, defined for every value, callable from any thread. They are called for every price shown,
/// so they are fast: they cost about as much as std::to_chars, and a text of up to 15 bytes needs
/// no allocation.
namespace quillbar::GroupedDecimal {

/// With exactly two fraction digits: 67,234.50.
[[nodiscard]] std::string withTwoFractionDigits(double value);

/// With exactly that many fraction digits, none or more; without a point for none.
[[nodiscard]] std::string withFractionDigits(double value, int digits);

/// With one to four significant digits and no trailing zero after the point: 0.1235, 0.5, 0.
[[nodiscard]] std::string withUpToFourSignificantDigits(double value);

}  // namespace quillbar::GroupedDecimal
