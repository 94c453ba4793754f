// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// The input cut at its line feeds; one line more than there are line feeds.
[[nodiscard]] inline std::vector<std::string> linesOf(std::string_view input) {
    std::vector<std::string> lines;
    for (;;) {
        const std::size_t end = input.find('\n');
        lines.emplace_back(input.substr(0, end));
        if (end == std::string_view::npos) {
            return lines;
        }
        input.remove_prefix(end + 1);
    }
}

}  // namespace quillbar
