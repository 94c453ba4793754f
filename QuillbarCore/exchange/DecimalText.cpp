// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/DecimalText.h"

#include "QuillbarCore/exchange/BinanceDecodingError.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <system_error>

namespace quillbar {

namespace {

// A number without its sign and its prefix.
struct Magnitude {
    std::string_view text;
    bool isHexadecimal = false;
};

bool isDigit(char character, bool isHexadecimal) {
    return (character >= '0' && character <= '9')
           || (isHexadecimal
               && ((character >= 'a' && character <= 'f')
                   || (character >= 'A' && character <= 'F')));
}

Magnitude withoutPrefix(std::string_view text) {
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        return {text.substr(2), true};
    }
    return {text, false};
}

std::size_t exponentMark(Magnitude number) {
    return number.text.find_first_of(number.isHexadecimal ? "pP" : "eE");
}

// The exponent after its letter, in a text that was parsed as a number. Beyond a thousand million
// its exact value does not matter.
std::int64_t exponent(std::string_view text) {
    constexpr std::int64_t kEnough = 1'000'000'000;
    const bool isNegative = text.front() == '-';
    if (isNegative || text.front() == '+') {
        text.remove_prefix(1);
    }
    std::int64_t value = 0;
    for (const char digit : text) {
        if (value < kEnough) {
            value = value * 10 + (digit - '0');
        }
    }
    return isNegative ? -value : value;
}

// Whether the exponent, if there is one, is a whole number. GCC 12's std::from_chars also accepts
// two signs, as in "0x1p+-3".
bool hasProperExponent(Magnitude number) {
    const std::size_t mark = exponentMark(number);
    if (mark == std::string_view::npos) {
        return true;
    }
    std::string_view text = number.text.substr(mark + 1);
    if (text.starts_with('-') || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return !text.empty() && isDigit(text[0], false);
}

// The value that strtod returns for a number that std::from_chars reports as out of a double's
// range: an infinity or a zero. std::from_chars does not say which of the two. Such a number is far
// from one, so it is enough to know on which side of one it lies.
double outOfRange(Magnitude number) {
    const std::size_t mark = exponentMark(number);
    const std::string_view significand = number.text.substr(0, mark);
    std::int64_t digitsBeforePoint = 0;
    bool isBeforePoint = true;
    bool isLeading = true;
    for (const char character : significand) {
        if (character == '.') {
            isBeforePoint = false;
        } else if (isLeading && character == '0') {
            digitsBeforePoint -= isBeforePoint ? 0 : 1;
        } else {
            isLeading = false;
            digitsBeforePoint += isBeforePoint ? 1 : 0;
        }
    }
    const std::int64_t scale =
        digitsBeforePoint * (number.isHexadecimal ? 4 : 1)
        + (mark == std::string_view::npos ? 0 : exponent(number.text.substr(mark + 1)));
    return scale > 0 ? std::numeric_limits<double>::infinity() : 0;
}

// Absent unless the whole text is a number.
std::optional<double> parsed(Magnitude number) {
    // std::from_chars would also accept a sign here, and words such as "inf".
    if (number.text.empty()
        || (number.text[0] != '.' && !isDigit(number.text[0], number.isHexadecimal))
        || !hasProperExponent(number)) {
        return std::nullopt;
    }
    const char* const end = number.text.data() + number.text.size();
    double value = 0;
    const auto result =
        std::from_chars(number.text.data(),
                        end,
                        value,
                        number.isHexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (result.ec == std::errc::invalid_argument || result.ptr != end) {
        return std::nullopt;
    }
    return result.ec == std::errc::result_out_of_range ? outOfRange(number) : value;
}

}  // namespace

double decimalNumber(std::string_view text) {
    std::string_view unsignedText = text;
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        unsignedText.remove_prefix(1);
    }
    const auto magnitude = parsed(withoutPrefix(unsignedText));
    if (!magnitude || *magnitude > std::numeric_limits<double>::max()) {
        throw BinanceDecodingError(std::string(text));
    }
    return isNegative ? -*magnitude : *magnitude;
}

}  // namespace quillbar
