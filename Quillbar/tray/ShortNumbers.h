// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Numbers in five characters, or six for a tiny price, for a status item that is 22 pixels wide.
/// They follow no locale. Pure.
namespace quillbar::ShortNumbers {

/// A price: up to four significant digits below 10,000 (".1235", "9.876", "98.77", "987.7",
/// "9877"), otherwise three with the suffix k, M, B or T ("67.2k", "1.02M"). Below a thousandth,
/// two digits behind the count of the zeros that follow the point: "0.0₄18" is 0.000018; one digit
/// where that count is 10 or more. A number that rounds up to the next form is written in that
/// form. "—" when negative or not finite.
[[nodiscard]] std::string price(double value);

/// A change in percent, with a sign except for zero: "+1.2%", "-12%", "+1k%", "0.0%". Greater
/// changes are written as 99 thousand. "—" when not finite.
[[nodiscard]] std::string change(double percent);

}  // namespace quillbar::ShortNumbers
