// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>

/// Changes the case of the letters A to Z alone, in every locale. Other bytes stay as they are.
/// Pure; for any thread.
namespace quillbar::AsciiCase {

[[nodiscard]] constexpr char lower(char byte) noexcept {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

[[nodiscard]] constexpr char upper(char byte) noexcept {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

[[nodiscard]] inline std::string lowerCased(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), lower);
    return text;
}

[[nodiscard]] inline std::string upperCased(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), upper);
    return text;
}

}  // namespace quillbar::AsciiCase
