// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/ShortNumbers.h"

#include "QuillbarCore/model/MissingValue.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillbar::ShortNumbers {

namespace {

/// One way to write a number: divided, with so many decimals, in at most `width` characters, then
/// the suffix.
struct Form {
    double divisor;
    int decimals;
    std::size_t width;
    std::string_view suffix;
};

// In ascending order of the numbers that they are for.
constexpr std::array kPriceForms{
    Form{1, 4, 5, ""},
    Form{1, 3, 5, ""},
    Form{1, 2, 5, ""},
    Form{1, 1, 5, ""},
    Form{1, 0, 4, ""},
    Form{1e3, 1, 4, "k"},
    Form{1e3, 0, 3, "k"},
    Form{1e6, 2, 4, "M"},
    Form{1e6, 1, 4, "M"},
    Form{1e6, 0, 3, "M"},
    Form{1e9, 2, 4, "B"},
    Form{1e9, 1, 4, "B"},
    Form{1e9, 0, 3, "B"},
    Form{1e12, 2, 4, "T"},
    Form{1e12, 1, 4, "T"},
    Form{1e12, 0, 3, "T"},
};

constexpr double kLargestChange = 99'000;

// A number below one has no zero before its point, so that another digit fits.
std::string withoutLeadingZero(std::string text) {
    if (text.starts_with("0.")) {
        text.erase(0, 1);
    }
    return text;
}

// The digit as a subscript: "₄".
std::string lowered(char digit) {
    constexpr std::string_view kFirstTwoBytes = "\xE2\x82";
    constexpr char kThirdByteOfZero = '\x80';
    return std::string(kFirstTwoBytes) + static_cast<char>(kThirdByteOfZero + (digit - '0'));
}

// The form below a thousandth: the count of zeros after the point, then the digits after them.
// Absent for a number that rounds up to a thousandth.
std::optional<std::string> tinyPrice(double value) {
    constexpr int kFewestZeros = 3;
    constexpr int kMostZeros = 99;
    constexpr int kZerosOfOneFigure = 9;
    // "1.8e-05" is rounded already.
    const auto zerosOf = [](const std::string& text) {
        int exponent = 0;
        const char* const end = text.data() + text.size();
        std::from_chars(std::find(text.data(), end, 'e') + 1, end, exponent);
        return -exponent - 1;
    };
    std::string text = fmt::format("{:.1e}", value);
    if (zerosOf(text) > kZerosOfOneFigure) {
        text = fmt::format("{:.0e}", value);
    }
    const int zeros = zerosOf(text);
    if (zeros < kFewestZeros) {
        return std::nullopt;
    }
    if (zeros > kMostZeros) {
        return "0";
    }
    std::string digits = text.substr(0, text.find('e'));
    std::erase(digits, '.');
    std::string count;
    for (const char digit : fmt::format("{}", zeros)) {
        count += lowered(digit);
    }
    return "0.0" + count + digits;
}

}  // namespace

std::string price(double value) {
    if (!std::isfinite(value) || value < 0) {
        return std::string(kMissingValueText);
    }
    if (value == 0) {
        return "0";
    }
    constexpr double kTiny = 1e-3;
    if (const auto tiny = value < kTiny ? tinyPrice(value) : std::nullopt) {
        return *tiny;
    }
    for (const Form& form : kPriceForms) {
        std::string text = fmt::format("{:.{}f}", value / form.divisor, form.decimals);
        if (form.divisor == 1) {
            text = withoutLeadingZero(std::move(text));
        }
        if (text.size() <= form.width) {
            return text.append(form.suffix);
        }
    }
    return ">999T";
}

std::string change(double percent) {
    if (!std::isfinite(percent)) {
        return std::string(kMissingValueText);
    }
    if (percent == 0) {
        return "0.0%";
    }
    constexpr std::size_t kWidth = 4;
    for (const int decimals : {1, 0}) {
        std::string text = fmt::format("{:+.{}f}", percent, decimals);
        if (text.size() <= kWidth) {
            return text.append("%");
        }
    }
    constexpr double kThousand = 1000;
    const double kept = std::clamp(percent, -kLargestChange, kLargestChange);
    return fmt::format("{:+.0f}k%", kept / kThousand);
}

}  // namespace quillbar::ShortNumbers
