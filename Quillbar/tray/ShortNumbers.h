// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Numbers in at most five characters, for a status item that is 22 pixels wide. They follow no
/// locale. Pure.
namespace quillbar::ShortNumbers {

/// A price: up to four significant digits below 10,000 (".1235", "9.876", "98.77", "987.7", "9877"),
/// otherwise three with the suffix k, M, B or T ("67.2k", "1.02M"), and µ or n below a thousandth
/// ("12.3µ"). What rounds up to the next form takes that. "—" when negative or not finite.
[[nodiscard]] std::string price(double value);

/// A change in percent, signed but for zero: "+1.2%", "-12%", "+1k%", "0.0%". Nothing says more than
/// 99 thousand. "—" when not finite.
[[nodiscard]] std::string change(double percent);

}  // namespace quillbar::ShortNumbers
