// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/JSONDocument.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

namespace quillbar::JSONDocument {

using nlohmann::ordered_json;

namespace {

[[noreturn]] void throwMistyped(const char* key, std::string_view expected) {
    throw DocumentError(fmt::format("\"{}\" is not {}", key, expected));
}

/// The value as an integer of 64 bits, when it is one.
std::optional<std::int64_t> integer(const ordered_json& value) {
    if (value.is_number_unsigned()) {
        const auto number = value.get<std::uint64_t>();
        if (number > std::uint64_t{std::numeric_limits<std::int64_t>::max()}) {
            return std::nullopt;
        }
        return static_cast<std::int64_t>(number);
    }
    if (value.is_number_integer()) {
        return value.get<std::int64_t>();
    }
    if (value.is_number_float()) {
        const auto number = value.get<double>();
        if (std::trunc(number) == number && number > -0x1p63 && number < 0x1p63) {
            return static_cast<std::int64_t>(number);
        }
    }
    return std::nullopt;
}

/// Refuses a text that would cost too much. An ordered object compares keys one by one, so the time
/// to parse it grows with the square of their number. A value takes eight times the memory of its
/// text.
///
/// This is a pass of its own, because the library's parser with a callback looks at all earlier
/// elements of a list at the end of each one, and takes minutes for a long list.
class Limits final : public nlohmann::json_sax<ordered_json> {
public:
    bool start_object(std::size_t /*count*/) override { return enter(); }
    bool end_object() override { return leave(); }
    bool start_array(std::size_t /*count*/) override { return enter(); }
    bool end_array() override { return leave(); }
    bool key(string_t& /*text*/) override {
        if (++m_keyCounts.back() > kMaximumKeys) {
            throw DocumentError(fmt::format("more than {} keys in an object", kMaximumKeys));
        }
        return true;
    }

    bool null() override { return count(); }
    bool boolean(bool /*value*/) override { return count(); }
    bool number_integer(number_integer_t /*value*/) override { return count(); }
    bool number_unsigned(number_unsigned_t /*value*/) override { return count(); }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override {
        return count();
    }
    bool string(string_t& /*value*/) override { return count(); }
    bool binary(binary_t& /*value*/) override { return count(); }
    // The parser, which reads the text next, reports what is wrong with it.
    bool parse_error(std::size_t /*position*/,
                     const std::string& /*token*/,
                     const nlohmann::detail::exception& /*error*/) override {
        return false;
    }

private:
    bool count() {
        if (++m_values > kMaximumValues) {
            throw DocumentError(fmt::format("more than {} values", kMaximumValues));
        }
        return true;
    }

    bool enter() {
        if (m_keyCounts.size() == kMaximumDepth) {
            throw DocumentError(fmt::format("nested deeper than {} levels", kMaximumDepth));
        }
        m_keyCounts.push_back(0);
        return count();
    }

    bool leave() {
        m_keyCounts.pop_back();
        return true;
    }

    // How many keys each open object has had so far; 0 for an open list.
    std::vector<int> m_keyCounts;
    int m_values = 0;
};

}  // namespace

ordered_json parse(std::string_view text) {
    // The parser takes a zero byte for the end of the text, so it would accept a file that a crash
    // filled up with zeros.
    if (text.find('\0') != std::string_view::npos) {
        throw DocumentError("a zero byte in the text");
    }
    try {
        Limits limits;
        ordered_json::sax_parse(text, &limits);
        return ordered_json::parse(text);
    } catch (const ordered_json::exception& error) {
        throw DocumentError(error.what());
    }
}

std::string compactText(const ordered_json& value) {
    try {
        return value.dump();
    } catch (const ordered_json::exception& error) {
        throw DocumentError(error.what());
    }
}

const ordered_json* optionalMember(const ordered_json& object, const char* key) {
    if (!object.is_object()) {
        throw DocumentError(fmt::format("no object to hold \"{}\"", key));
    }
    const auto found = object.find(key);
    return found == object.end() || found->is_null() ? nullptr : &*found;
}

const ordered_json& requiredMember(const ordered_json& object, const char* key) {
    const ordered_json* const member = optionalMember(object, key);
    if (member == nullptr) {
        throw DocumentError(fmt::format("\"{}\" is missing", key));
    }
    return *member;
}

std::string requiredString(const ordered_json& object, const char* key) {
    const ordered_json& member = requiredMember(object, key);
    if (!member.is_string()) {
        throwMistyped(key, "a string");
    }
    return member.get<std::string>();
}

std::int64_t requiredInteger(const ordered_json& object, const char* key) {
    const std::optional<std::int64_t> number = integer(requiredMember(object, key));
    if (!number) {
        throwMistyped(key, "an integer of 64 bits");
    }
    return *number;
}

double requiredNumber(const ordered_json& object, const char* key) {
    const ordered_json& member = requiredMember(object, key);
    if (!member.is_number()) {
        throwMistyped(key, "a number");
    }
    return member.get<double>();
}

bool requiredTruth(const ordered_json& object, const char* key) {
    const ordered_json& member = requiredMember(object, key);
    if (!member.is_boolean()) {
        throw DocumentError(fmt::format("\"{}\" is neither true nor false", key));
    }
    return member.get<bool>();
}

void refuseRawText(const char* key, std::string_view rawText) {
    throw DocumentError(fmt::format(R"("{}" cannot be "{}")", key, rawText));
}

}  // namespace quillbar::JSONDocument
