// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceDecodingError.h"

#include <fmt/format.h>

#include <string_view>
#include <utility>

namespace quillbar {

namespace {

// A number is shorter; what is longer is no use in a log.
constexpr std::size_t kQuotedLength = 64;

// What comes from the network must not forge lines of the log.
std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    for (const char character : text.substr(0, kQuotedLength)) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F) {
            result += fmt::format("\\x{:02x}", byte);
        } else if (character == '"' || character == '\\') {
            result += '\\';
            result += character;
        } else {
            result += character;
        }
    }
    result += text.size() > kQuotedLength ? "\"..." : "\"";
    return result;
}

}  // namespace

BinanceDecodingError::BinanceDecodingError(std::string invalidNumber)
    : std::runtime_error(fmt::format("invalidNumber({})", inQuotes(invalidNumber)))
    , m_invalidNumber(std::move(invalidNumber)) {}

}  // namespace quillbar
