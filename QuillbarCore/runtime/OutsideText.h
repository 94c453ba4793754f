// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Texts from outside, made fit to be printed, logged and shown: a base asset in a file that the user
/// may edit, a server's words, what another program says. Each of these may hold what commands a
/// terminal, forges a line of the log, or turns the text around it back to front.
namespace quillbar::OutsideText {

/// Where a text that is quoted in a log line is cut.
inline constexpr std::size_t kLongestQuotation = 300;

/// The UTF-8 text on one line: a space for each control character and each end of a line, and
/// without the invisible characters that say how others are to be written, such as in which
/// direction. What is not UTF-8 becomes U+FFFD. Pure; for any thread.
[[nodiscard]] std::string oneLine(std::string_view text);

/// The text itself, or its beginning with "…" when it has more than `length` bytes. Cuts no UTF-8
/// character in two. Pure; for any thread.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t length = kLongestQuotation);

}  // namespace quillbar::OutsideText
