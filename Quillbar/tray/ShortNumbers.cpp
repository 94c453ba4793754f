// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/ShortNumbers.h"

#include "QuillbarCore/model/MissingValue.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
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

// In ascending order of the numbers they suit.
constexpr std::array kPriceForms{
    Form{1e-9, 2, 4, "n"}, Form{1e-9, 1, 4, "n"}, Form{1e-9, 0, 3, "n"}, Form{1e-6, 2, 4, "µ"},
    Form{1e-6, 1, 4, "µ"}, Form{1e-6, 0, 3, "µ"}, Form{1, 4, 5, ""},     Form{1, 3, 5, ""},
    Form{1, 2, 5, ""},     Form{1, 1, 5, ""},     Form{1, 0, 4, ""},     Form{1e3, 1, 4, "k"},
    Form{1e3, 0, 3, "k"},  Form{1e6, 2, 4, "M"},  Form{1e6, 1, 4, "M"},  Form{1e6, 0, 3, "M"},
    Form{1e9, 2, 4, "B"},  Form{1e9, 1, 4, "B"},  Form{1e9, 0, 3, "B"},  Form{1e12, 2, 4, "T"},
    Form{1e12, 1, 4, "T"}, Form{1e12, 0, 3, "T"},
};

constexpr double kLargestChange = 99'000;

// A number below one gives up its zero for a digit.
std::string withoutLeadingZero(std::string text) {
    if (text.starts_with("0.")) {
        text.erase(0, 1);
    }
    return text;
}

}  // namespace

std::string price(double value) {
    if (!std::isfinite(value) || value < 0) {
        return std::string(kMissingValueText);
    }
    if (value == 0) {
        return "0";
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
