// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Integers that no integer type holds. They are JSON as any other number, but the parser for the
/// network's JSON refuses a document with one in it, wherever it stands.
namespace quillbar::LongIntegers {

/// The text with ".0" behind each integer, outside of strings, that fits neither a signed nor an
/// unsigned one of 64 bits: as a fraction it is read to a double's precision. What is JSON stays so,
/// and what is none does not become any. Absent when there is no such integer. Pure.
[[nodiscard]] std::optional<std::string> asFractions(std::string_view json);

}  // namespace quillbar::LongIntegers
