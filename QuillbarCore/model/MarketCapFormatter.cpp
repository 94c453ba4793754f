// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/MarketCapFormatter.h"

#include "QuillbarCore/model/AbbreviatedAmount.h"
#include "QuillbarCore/model/MissingValue.h"

#include <cmath>

namespace quillbar::MarketCapFormatter {

std::string compact(std::optional<double> value) {
    if (!value) {
        return std::string(kMissingValueText);
    }
    if (std::fabs(*value) >= 1e12) {
        return abbreviatedAmount(*value, 1e12, "万亿");
    }
    return abbreviatedAmount(*value, 1e8, "亿");
}

}  // namespace quillbar::MarketCapFormatter
