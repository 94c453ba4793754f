// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/StrictJSON.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace quillbar {

namespace {

constexpr int kMaximumDepth = 500;
constexpr std::size_t kMaximumIntegerDigits = 200;
constexpr std::size_t kMaximumExponentDigits = 2;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::optional<std::uint32_t> hexValue(char c) {
    if (isDigit(c)) {
        return static_cast<std::uint32_t>(c - '0');
    }
    if (c >= 'a' && c <= 'f') {
        return static_cast<std::uint32_t>(c - 'a') + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return static_cast<std::uint32_t>(c - 'A') + 10;
    }
    return std::nullopt;
}

/// Recursive descent, one function for each rule of the grammar; each consumes what it reads and
/// says whether it was there.
class Reader {
public:
    explicit Reader(std::string_view text)
        : m_rest(text) {}

    JSONVerdict judge() {
        const bool isJSON = value(0) && m_rest.empty();
        return {.isJSON = isJSON, .isBeyondLimits = m_isBeyondLimits};
    }

private:
    [[nodiscard]] char peek() const { return m_rest.empty() ? '\0' : m_rest.front(); }

    bool take(char c) {
        if (m_rest.empty() || m_rest.front() != c) {
            return false;
        }
        m_rest.remove_prefix(1);
        return true;
    }

    bool takeWord(std::string_view word) {
        if (!m_rest.starts_with(word)) {
            return false;
        }
        m_rest.remove_prefix(word.size());
        return true;
    }

    void spaces() {
        while (!m_rest.empty() && isSpace(m_rest.front())) {
            m_rest.remove_prefix(1);
        }
    }

    bool value(int depth) {
        spaces();
        const bool isThere = bareValue(depth);
        spaces();
        return isThere;
    }

    bool bareValue(int depth) {
        if (depth > kMaximumDepth) {
            m_isBeyondLimits = true;
            return false;
        }
        switch (peek()) {
        case '{':
            return object(depth);
        case '[':
            return array(depth);
        case '"':
            return string();
        case 't':
            return takeWord("true");
        case 'f':
            return takeWord("false");
        case 'n':
            return takeWord("null");
        default:
            return number();
        }
    }

    bool array(int depth) {
        take('[');
        spaces();
        if (take(']')) {
            return true;
        }
        do {
            if (!value(depth + 1)) {
                return false;
            }
        } while (take(','));
        return take(']');
    }

    bool object(int depth) {
        take('{');
        spaces();
        if (take('}')) {
            return true;
        }
        do {
            spaces();
            if (!string()) {
                return false;
            }
            spaces();
            if (!take(':') || !value(depth + 1)) {
                return false;
            }
        } while (take(','));
        return take('}');
    }

    std::size_t digits() {
        std::size_t count = 0;
        while (isDigit(peek())) {
            m_rest.remove_prefix(1);
            ++count;
        }
        return count;
    }

    bool number() {
        take('-');
        const bool startsWithZero = peek() == '0';
        const std::size_t whole = digits();
        if (whole == 0 || (startsWithZero && whole > 1)) {
            return false;
        }
        m_isBeyondLimits |= whole > kMaximumIntegerDigits;
        if (take('.') && digits() == 0) {
            return false;
        }
        if (take('e') || take('E')) {
            if (!take('+')) {
                take('-');
            }
            const std::size_t exponent = digits();
            m_isBeyondLimits |= exponent > kMaximumExponentDigits;
            return exponent > 0;
        }
        return true;
    }

    bool string() {
        if (!take('"')) {
            return false;
        }
        while (!m_rest.empty()) {
            if (take('"')) {
                return true;
            }
            if (!(take('\\') ? escape() : character())) {
                return false;
            }
        }
        return false;
    }

    std::optional<std::uint32_t> fourHexDigits() {
        std::uint32_t unit = 0;
        for (int i = 0; i < 4; ++i) {
            const auto digit = hexValue(peek());
            if (m_rest.empty() || !digit) {
                return std::nullopt;
            }
            m_rest.remove_prefix(1);
            unit = unit * 16 + *digit;
        }
        return unit;
    }

    bool escape() {
        if (m_rest.empty()) {
            return false;
        }
        const char kind = m_rest.front();
        m_rest.remove_prefix(1);
        if (kind != 'u') {
            return std::string_view("\"\\/bfnrt").find(kind) != std::string_view::npos;
        }
        const auto unit = fourHexDigits();
        if (!unit || (*unit >= 0xDC00 && *unit <= 0xDFFF)) {
            return false;
        }
        if (*unit < 0xD800 || *unit > 0xDBFF) {
            return true;
        }
        const auto low = takeWord("\\u") ? fourHexDigits() : std::nullopt;
        return low && *low >= 0xDC00 && *low <= 0xDFFF;
    }

    /// One unescaped character in UTF-8, of the shortest form.
    bool character() {
        const auto first = static_cast<unsigned char>(m_rest.front());
        m_rest.remove_prefix(1);
        if (first < 0x80) {
            return first >= 0x20;
        }
        const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
        if (first < 0xC2 || first > 0xF4) {
            return false;
        }
        std::uint32_t point = first & (0x3FU >> static_cast<unsigned>(following));
        for (int i = 0; i < following; ++i) {
            const auto next = static_cast<unsigned char>(peek());
            if ((next & 0xC0U) != 0x80) {
                return false;
            }
            m_rest.remove_prefix(1);
            point = point << 6U | (next & 0x3FU);
        }
        const std::uint32_t least = following == 1 ? 0x80 : following == 2 ? 0x800 : 0x10000;
        return point >= least && point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
    }

    std::string_view m_rest;
    bool m_isBeyondLimits = false;
};

}  // namespace

JSONVerdict judgeJSON(std::string_view text) {
    return Reader(text).judge();
}

}  // namespace quillbar
