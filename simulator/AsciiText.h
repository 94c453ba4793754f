// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quillbar::simulator {

/// The text with A to Z in lower case and everything else as it was.
[[nodiscard]] inline std::string lowerCased(std::string_view text) {
    std::string lower;
    lower.reserve(text.size());
    for (const char c : text) {
        lower += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return lower;
}

}  // namespace quillbar::simulator
