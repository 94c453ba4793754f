// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/JSONDecodingError.h"
#include "QuillbarCore/exchange/LongIntegers.h"

#include <fmt/format.h>
#include <simdjson.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Reading JSON that came from the network. For the decoders' source files alone: it compiles
/// slowly. Values refer to the document: copy them before the decoder returns.
///
/// Every function throws `JSONDecodingError` for malformed JSON, a missing key or a value of
/// another type.
namespace quillbar::NetworkJSON {

using Element = simdjson::dom::element;

/// A parser keeps the memory for the largest document that it has parsed, many times the document's
/// size. Documents of more bytes than this are rare, and get a parser of their own.
inline constexpr std::size_t kLargestKept = std::size_t{1024} * 1024;

/// The parser of this thread.
inline simdjson::dom::parser& keptParser() {
    thread_local simdjson::dom::parser kept;
    return kept;
}

inline Element parse(simdjson::dom::parser& with, std::string_view bytes) {
    if (bytes.empty()) {
        throw JSONDecodingError("malformed JSON: empty");
    }
    // JSON text must not begin with one. Later versions of simdjson skip it, earlier ones do not.
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        throw JSONDecodingError("malformed JSON: a byte-order mark");
    }
    Element root;
    // Copies the bytes to where the parser may read past their end.
    auto error = with.parse(bytes.data(), bytes.size(), true).get(root);
    // Do this after every error: versions of simdjson report long integers as different errors.
    if (error) {
        if (const auto readable = LongIntegers::asFractions(bytes)) {
            error = with.parse(readable->data(), readable->size(), true).get(root);
        }
    }
    if (error) {
        throw JSONDecodingError(fmt::format("malformed JSON: {}", simdjson::error_message(error)));
    }
    return root;
}

/// Decodes a document with `read`, whose result must not refer to it.
template <class Read>
auto decode(std::string_view bytes, Read read) {
    if (bytes.size() > kLargestKept) {
        simdjson::dom::parser own;
        return read(parse(own, bytes));
    }
    return read(parse(keptParser(), bytes));
}

[[noreturn]] inline void throwWrongType(std::string_view place, std::string_view type) {
    throw JSONDecodingError(fmt::format("{} is not {}", place, type));
}

inline simdjson::dom::array array(Element value, std::string_view place) {
    simdjson::dom::array result;
    if (value.get(result)) {
        throwWrongType(place, "an array");
    }
    return result;
}

inline std::string_view string(Element value, std::string_view place) {
    std::string_view result;
    if (value.get(result)) {
        throwWrongType(place, "a string");
    }
    return result;
}

/// The values of an object's keys. Walks the object once instead of searching it for each key, and
/// so finds the last value of a repeated key. `keys` outlives this object.
template <std::size_t count>
class Fields {
public:
    using Keys = std::array<std::string_view, count>;

    Fields(Element value, std::string_view place, const Keys& keys)
        : m_keys(keys) {
        simdjson::dom::object object;
        if (value.get(object)) {
            throwWrongType(place, "an object");
        }
        for (const auto& field : object) {
            for (std::size_t index = 0; index < count; ++index) {
                if (field.key == keys[index]) {
                    m_values[index] = field.value;
                    break;
                }
            }
        }
    }

    [[nodiscard]] Element required(std::size_t index) const {
        if (!m_values[index]) {
            throw JSONDecodingError(fmt::format("the key {} is missing", m_keys[index]));
        }
        return *m_values[index];
    }

    [[nodiscard]] std::string_view requiredString(std::size_t index) const {
        return string(required(index), m_keys[index]);
    }

    /// Absent for a key that is missing or null.
    [[nodiscard]] std::optional<std::string_view> optionalString(std::size_t index) const {
        if (isAbsent(index)) {
            return std::nullopt;
        }
        return string(*m_values[index], m_keys[index]);
    }

    /// Absent for a key that is missing or null. Numbers with and without a fraction are accepted.
    [[nodiscard]] std::optional<double> optionalNumber(std::size_t index) const {
        if (isAbsent(index)) {
            return std::nullopt;
        }
        double result = 0;
        if (m_values[index]->get(result)) {
            throwWrongType(m_keys[index], "a number");
        }
        return result;
    }

private:
    [[nodiscard]] bool isAbsent(std::size_t index) const {
        return !m_values[index] || m_values[index]->is_null();
    }

    const Keys& m_keys;
    std::array<std::optional<Element>, count> m_values;
};

}  // namespace quillbar::NetworkJSON
