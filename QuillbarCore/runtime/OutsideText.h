// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Makes texts from outside safe to print, log and show: a base asset in a file that the user may
/// edit, a server's message, the output of another program. Such a text may hold control sequences
/// for a terminal, forge a line of the log, or reverse the direction of the text around it.
namespace quillbar::OutsideText {

/// The most bytes of a text that is quoted in a log line.
inline constexpr std::size_t kLongestQuotation = 300;

/// The UTF-8 text on one line: control characters and line ends become spaces, and invisible
/// characters that change how others are written, such as their direction, are left out. Bytes that
/// are not UTF-8 become U+FFFD. Pure; for any thread.
[[nodiscard]] std::string oneLine(std::string_view text);

/// The text itself, or its beginning with "…" when it has more than `length` bytes. Cuts no UTF-8
/// character in two. Pure; for any thread.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t length = kLongestQuotation);

}  // namespace quillbar::OutsideText
