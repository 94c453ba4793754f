// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertInput.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <system_error>

namespace quillbar::AlertInput {

namespace {

// The full-width forms U+FF01 to U+FF5E stand in the order of ASCII.
constexpr std::string_view kFullWidthLead = "\xEF";
constexpr unsigned kFirstFullWidth = 0xFF01;
constexpr unsigned kLastFullWidth = 0xFF5E;
constexpr unsigned kFirstPrintable = 0x21;
constexpr std::size_t kGroupLength = 3;

std::string usualCharacters(std::string_view text) {
    std::string result;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (text.substr(place).starts_with(kFullWidthLead) && place + 2 < text.size()) {
            const auto second = static_cast<unsigned char>(text[place + 1]);
            const auto third = static_cast<unsigned char>(text[place + 2]);
            const unsigned code = 0xF000U | (second & 0x3FU) << 6U | (third & 0x3FU);
            if (code >= kFirstFullWidth && code <= kLastFullWidth) {
                result += static_cast<char>(code - kFirstFullWidth + kFirstPrintable);
                place += 2;
                continue;
            }
        }
        result += text[place];
    }
    return result;
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// The digits without the commas that group them; absent when one stands elsewhere.
std::optional<std::string> ungrouped(std::string_view digits) {
    std::string result;
    std::size_t sinceComma = 0;
    bool isGrouped = false;
    for (const char character : digits) {
        if (character == ',') {
            if (isGrouped ? sinceComma != kGroupLength
                          : sinceComma == 0 || sinceComma > kGroupLength) {
                return std::nullopt;
            }
            isGrouped = true;
            sinceComma = 0;
        } else {
            result += character;
            ++sinceComma;
        }
    }
    return isGrouped && sinceComma != kGroupLength ? std::nullopt : std::optional(result);
}

/// A number in the usual characters.
std::optional<double> plainNumber(std::string_view text) {
    text = trimmed(text);
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const std::size_t point = text.find('.');
    std::optional<std::string> digits = ungrouped(text.substr(0, point));
    if (!digits) {
        return std::nullopt;
    }
    if (point != std::string_view::npos) {
        *digits += text.substr(point);
    }
    for (const char character : *digits) {
        if (!isDigit(character) && character != '.') {
            return std::nullopt;
        }
    }
    double value = 0;
    const char* const end = digits->data() + digits->size();
    const auto [read, error] =
        std::from_chars(digits->data(), end, value, std::chars_format::fixed);
    if (error != std::errc() || read != end) {
        return std::nullopt;
    }
    return isNegative ? -value : value;
}

struct Typed {
    double value;
    bool isPercent;
};

std::optional<Typed> typed(std::string_view text) {
    const std::string usual = usualCharacters(text);
    std::string_view rest = trimmed(usual);
    const bool isPercent = rest.ends_with('%');
    if (isPercent) {
        rest.remove_suffix(1);
    }
    const std::optional<double> value = plainNumber(rest);
    return value ? std::optional(Typed{*value, isPercent}) : std::nullopt;
}

}  // namespace

std::variant<Line, Problem> line(std::string_view text, const std::optional<Ticker>& ticker) {
    if (trimmed(text).empty()) {
        return Problem::nothing;
    }
    const std::optional<Typed> input = typed(text);
    if (!input || (!input->isPercent && input->value <= 0)) {
        return Problem::noNumber;
    }
    if (!ticker || ticker->lastPrice <= 0 || (input->isPercent && ticker->openPrice24h <= 0)) {
        return Problem::noPriceYet;
    }
    const double present = input->isPercent ? ticker->changePercent24h() : ticker->lastPrice;
    if (input->value == present) {
        return Problem::isThere;
    }
    const bool isAbove = input->value > present;
    if (input->isPercent) {
        return Line{isAbove ? AlertKind::changeAtLeast : AlertKind::changeAtMost, input->value};
    }
    return Line{isAbove ? AlertKind::priceAtLeast : AlertKind::priceAtMost, input->value};
}

std::optional<double> margin(std::string_view text, const Line& line) {
    constexpr double kHundred = 100;
    const std::optional<Typed> input = typed(text);
    if (!input) {
        return std::nullopt;
    }
    const bool isPart = input->isPercent && watchesPrice(line.kind);
    const double value = isPart ? line.threshold * input->value / kHundred : input->value;
    const Alert alert{.kind = line.kind, .threshold = line.threshold, .margin = value};
    return alert.isSound() ? std::optional(value) : std::nullopt;
}

}  // namespace quillbar::AlertInput
