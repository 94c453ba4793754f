// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quillbar {

/// The value of a decimal text as the exchange writes prices: "65000.10". Independent of the locale
/// and of the thread.
///
/// Accepts what strtod accepts in the C locale, when it is the whole text and finite: a sign, '+'
/// or '-'; decimal digits with at most one point ("1.", ".5"), and an exponent; or "0x",
/// hexadecimal digits and a binary exponent. What is too small for a double is a zero of its sign.
///
/// Throws `BinanceDecodingError` with the text for everything else: the empty text, white space
/// anywhere, trailing characters, an infinity or a NaN in letters, and what is too large for a
/// double.
[[nodiscard]] double decimalNumber(std::string_view text);

}  // namespace quillbar
