// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/PriceFormatter.h"

#include "QuillbarCore/model/GroupedDecimal.h"
#include "QuillbarCore/model/MissingValue.h"

#include <fmt/format.h>

#include <cmath>

namespace quillbar::PriceFormatter {

std::string price(double value) {
    return std::fabs(value) < 1 ? GroupedDecimal::withUpToFourSignificantDigits(value)
                                : GroupedDecimal::withTwoFractionDigits(value);
}

std::string price(double value, int decimals) {
    return GroupedDecimal::withFractionDigits(value, decimals);
}

std::string percent(double value) {
    return percent(value, 2);
}

std::string percent(double value, int decimals) {
    return value == 0 ? magnitude(value, decimals) : fmt::format("{:+.{}f}%", value, decimals);
}

std::string magnitude(double value, int decimals) {
    return fmt::format("{:.{}f}%", std::fabs(value), decimals);
}

std::string_view arrow(double value) {
    if (value > 0) {
        return "▲";
    }
    return value < 0 ? "▼" : "·";
}

std::string menuBarChange(std::optional<double> value) {
    if (!value) {
        return std::string(kMissingValueText);
    }
    return fmt::format("{}{:>6}", arrow(*value), magnitude(*value, 2));
}

}  // namespace quillbar::PriceFormatter
