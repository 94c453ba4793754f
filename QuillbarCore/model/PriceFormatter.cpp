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

std::string percent(double value) {
    if (value == 0) {
        return "0.00%";
    }
    return fmt::format("{:+.2f}%", value);
}

std::string menuBarChange(std::optional<double> value) {
    if (!value) {
        return std::string(kMissingValueText);
    }
    const char* const prefix = *value > 0 ? "▲" : *value < 0 ? "▼" : "·";
    // fmt pads what is not finite on the right unless told otherwise.
    return fmt::format("{}{:>5.2f}%", prefix, std::fabs(*value));
}

}  // namespace quillbar::PriceFormatter
