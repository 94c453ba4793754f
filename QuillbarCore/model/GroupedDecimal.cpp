// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/GroupedDecimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace quillbar::GroupedDecimal {

namespace {

/// The magnitude 0.DIGITS × 10^point, without leading or trailing zeros among the digits; zero has
/// no digits and the point 0.
struct Decimal {
    std::array<char, 17> digits{};  // as many as the shortest form of a double can have
    int count = 0;
    int point = 0;
};

/// The shortest decimal that reads back as the finite magnitude.
Decimal shortestDecimal(double magnitude) {
    Decimal decimal;
    if (magnitude == 0) {
        return decimal;
    }
    std::array<char, 32> text;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
    const char* const end =
        std::to_chars(
            text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific)
            .ptr;
    const char* at = text.data();
    for (; *at != 'e'; ++at) {
        if (*at != '.') {
            decimal.digits[static_cast<std::size_t>(decimal.count++)] = *at;
        }
    }
    ++at;
    int exponent = 0;
    std::from_chars(*at == '+' ? at + 1 : at, end, exponent);
    decimal.point = exponent + 1;
    return decimal;
}

/// Rounds half to even, to the first `keep` digits. `keep` is negative for a value far below the
/// last place shown.
void roundToDigits(Decimal& decimal, int keep) {
    if (keep >= decimal.count) {
        return;
    }
    const auto digit = [&](int index) -> char& {
        return decimal.digits[static_cast<std::size_t>(index)];
    };
    bool up = false;
    if (keep >= 0) {
        const bool tie = digit(keep) == '5' && keep + 1 == decimal.count;
        const bool lastKeptIsOdd = keep > 0 && (digit(keep - 1) - '0') % 2 == 1;
        up = tie ? lastKeptIsOdd : digit(keep) >= '5';
    }
    decimal.count = std::max(keep, 0);
    // Drop the digits that are trailing zeros after rounding: nines if the carry passes them, and
    // zeros otherwise.
    const char dropped = up ? '9' : '0';
    while (decimal.count > 0 && digit(decimal.count - 1) == dropped) {
        --decimal.count;
    }
    if (up && decimal.count == 0) {
        digit(0) = '1';
        decimal.count = 1;
        ++decimal.point;
    } else if (up) {
        ++digit(decimal.count - 1);
    } else if (decimal.count == 0) {
        decimal.point = 0;
    }
}

/// The grouped text, with at least that many fraction digits.
std::string grouped(const Decimal& decimal, bool negative, int minimumFraction) {
    const int integers = std::max(decimal.point, 1);
    const int fraction = std::max(decimal.count - decimal.point, minimumFraction);
    const int size =
        (negative ? 1 : 0) + integers + (integers - 1) / 3 + (fraction > 0 ? 1 + fraction : 0);
    std::string text(static_cast<std::size_t>(size), '0');
    auto at = text.begin();
    const auto put = [&](int index) {
        if (index >= 0 && index < decimal.count) {
            *at = decimal.digits[static_cast<std::size_t>(index)];
        }
        ++at;
    };
    if (negative) {
        *at++ = '-';
    }
    for (int left = integers; left > 0; --left) {
        put(decimal.point - left);
        if (left % 3 == 1 && left > 1) {
            *at++ = ',';
        }
    }
    if (fraction > 0) {
        *at++ = '.';
        for (int place = 0; place < fraction; ++place) {
            put(decimal.point + place);
        }
    }
    return text;
}

std::string notFinite(double value) {
    std::string text = std::signbit(value) ? "-" : "";
    return text += std::isnan(value) ? "NaN" : "∞";
}

}  // namespace

std::string withTwoFractionDigits(double value) {
    return withFractionDigits(value, 2);
}

std::string withFractionDigits(double value, int digits) {
    if (!std::isfinite(value)) {
        return notFinite(value);
    }
    Decimal decimal = shortestDecimal(std::fabs(value));
    roundToDigits(decimal, decimal.point + digits);
    return grouped(decimal, std::signbit(value), digits);
}

std::string withUpToFourSignificantDigits(double value) {
    if (!std::isfinite(value)) {
        return notFinite(value);
    }
    Decimal decimal = shortestDecimal(std::fabs(value));
    roundToDigits(decimal, 4);
    return grouped(decimal, std::signbit(value), 0);
}

}  // namespace quillbar::GroupedDecimal
