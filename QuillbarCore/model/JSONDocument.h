// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/DocumentError.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

/// Reads and writes our own JSON documents. Keys are matched exactly; keys that nobody asks for are
/// ignored; a null counts as an absent key. Pure; callable from any thread.
namespace quillbar::JSONDocument {

/// Limits that our own documents never come near. A damaged file beyond them would cost too much
/// memory and time.
inline constexpr int kMaximumKeys = 1000;
inline constexpr int kMaximumDepth = 64;
inline constexpr int kMaximumValues = 1'000'000;

/// The text as JSON. Throws DocumentError when it is not exactly one JSON value in UTF-8 (a leading
/// byte order mark is ignored), when an object has more than `kMaximumKeys` keys, when lists and
/// objects are nested deeper than `kMaximumDepth`, or when there are more than `kMaximumValues`
/// values, lists and objects included.
[[nodiscard]] nlohmann::ordered_json parse(std::string_view text);

/// The value as compact text, its keys in the order in which they were set. Throws DocumentError
/// when a string in it is not UTF-8.
[[nodiscard]] std::string compactText(const nlohmann::ordered_json& value);

/// The member of that key, or null when it is absent or the JSON null; the pointer lives as long as
/// the object. Throws DocumentError when the value is no object.
[[nodiscard]] const nlohmann::ordered_json* optionalMember(const nlohmann::ordered_json& object,
                                                           const char* key);

/// As optionalMember, but throws DocumentError when there is none.
[[nodiscard]] const nlohmann::ordered_json& requiredMember(const nlohmann::ordered_json& object,
                                                           const char* key);

/// The string of that key. Throws DocumentError when it is absent or no string.
[[nodiscard]] std::string requiredString(const nlohmann::ordered_json& object, const char* key);

/// The integer of that key: any JSON number without a fraction (1.0 and 1e0 are 1) that fits 64
/// bits. Throws DocumentError when it is absent or anything else.
[[nodiscard]] std::int64_t requiredInteger(const nlohmann::ordered_json& object, const char* key);

/// The number of that key. Throws DocumentError when it is absent or no number.
[[nodiscard]] double requiredNumber(const nlohmann::ordered_json& object, const char* key);

/// The truth value of that key. Throws DocumentError when it is absent or no truth value.
[[nodiscard]] bool requiredTruth(const nlohmann::ordered_json& object, const char* key);

/// Throws the DocumentError for a key whose string is not one of its values.
[[noreturn]] void refuseRawText(const char* key, std::string_view rawText);

/// The value that `fromRawValue` returns for the string of that key. Throws DocumentError when the
/// key is absent or no string, or when `fromRawValue` returns nothing.
template <class Value>
[[nodiscard]] Value requiredValue(const nlohmann::ordered_json& object,
                                  const char* key,
                                  std::optional<Value> (*fromRawValue)(std::string_view)) {
    const std::string rawText = requiredString(object, key);
    const std::optional<Value> value = fromRawValue(rawText);
    if (!value) {
        refuseRawText(key, rawText);
    }
    return *value;
}

}  // namespace quillbar::JSONDocument
