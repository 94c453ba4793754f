// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Integers that do not fit into 64 bits. They are valid JSON, but the parser for the network's
/// JSON refuses every document that contains one.
namespace quillbar::LongIntegers {

/// The text with ".0" behind each integer, outside of strings, that fits neither a signed nor an
/// unsigned integer of 64 bits: the parser reads a fraction as a double. Valid JSON stays valid,
/// and invalid JSON stays invalid. Absent when there is no such integer. Pure.
[[nodiscard]] std::optional<std::string> asFractions(std::string_view json);

}  // namespace quillbar::LongIntegers
