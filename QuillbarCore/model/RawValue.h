// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quillbar {

/// The one of `values` whose `rawValue` is exactly this text; absent for any other text. `Value` is
/// an enumeration with a function `rawValue` in its namespace. Pure; callable from any thread.
template <class Value, std::size_t count>
[[nodiscard]] std::optional<Value> valueWithRawText(std::string_view rawText,
                                                    const std::array<Value, count>& values) {
    const auto found = std::find_if(values.begin(), values.end(), [rawText](Value value) {
        return rawValue(value) == rawText;
    });
    return found == values.end() ? std::nullopt : std::optional<Value>(*found);
}

}  // namespace quillbar
