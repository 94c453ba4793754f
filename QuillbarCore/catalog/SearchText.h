// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Brings texts into the form in which the search compares them. UTF-8 in and out; bytes that are
/// not UTF-8 become U+FFFD. Independent of the locale. Pure; callable from any thread.
namespace quillbar::SearchText {

/// The text without the white space (Unicode's White_Space, line ends among it) at both ends.
[[nodiscard]] std::string trimmed(std::string_view text);

/// The words of a list, in its order, none of them empty. Separators are white space as above,
/// comma, semicolon, and their full-width forms "，" "；" and "、".
[[nodiscard]] std::vector<std::string> words(std::string_view text);

/// The text in upper case, by Unicode's full mapping ("ß" gives "SS").
[[nodiscard]] std::string upperCased(std::string_view text);

/// The text in lower case, by Unicode's full mapping.
[[nodiscard]] std::string lowerCased(std::string_view text);

}  // namespace quillbar::SearchText
