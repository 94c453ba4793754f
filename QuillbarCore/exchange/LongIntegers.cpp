// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/LongIntegers.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <system_error>

namespace quillbar {

namespace {

constexpr std::string_view kNumberCharacters = "+-.0123456789Ee";

/// Whether the whole text is an integer that the type does not hold.
template <class Integer>
bool isBeyond(std::string_view text) {
    Integer value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return stop == end && error == std::errc::result_out_of_range;
}

bool isLong(std::string_view number) {
    return isBeyond<std::int64_t>(number)
           && (number.starts_with('-') || isBeyond<std::uint64_t>(number));
}

/// The position behind the string that begins there.
std::size_t endOfString(std::string_view json, std::size_t begin) {
    std::size_t at = begin + 1;
    for (;;) {
        at = json.find_first_of("\"\\", at);
        if (at == std::string_view::npos) {
            return json.size();
        }
        if (json[at] == '"') {
            return at + 1;
        }
        // Skip the escaped character too: it may be a quotation mark.
        at += 2;
    }
}

}  // namespace

std::optional<std::string> LongIntegers::asFractions(std::string_view json) {
    std::string result;
    std::size_t copied = 0;
    std::size_t at = 0;
    while (at < json.size()) {
        if (json[at] == '"') {
            at = endOfString(json, at);
            continue;
        }
        const std::size_t end =
            std::min(json.find_first_not_of(kNumberCharacters, at), json.size());
        if (isLong(json.substr(at, end - at))) {
            result.append(json.substr(copied, end - copied)).append(".0");
            copied = end;
        }
        at = std::max(end, at + 1);
    }
    if (copied == 0) {
        return std::nullopt;
    }
    return result.append(json.substr(copied));
}

}  // namespace quillbar
