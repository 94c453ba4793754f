// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/VolumeFormatter.h"

#include "QuillbarCore/model/AbbreviatedAmount.h"
#include "QuillbarCore/model/GroupedDecimal.h"
#include "QuillbarCore/model/MissingValue.h"

#include <cmath>

namespace quillbar::VolumeFormatter {

std::string compact(std::optional<double> value) {
    if (!value) {
        return std::string(kMissingValueText);
    }
    const double magnitude = std::fabs(*value);
    if (magnitude >= 1e8) {
        return abbreviatedAmount(*value, 1e8, "亿");
    }
    if (magnitude >= 1e4) {
        return abbreviatedAmount(*value, 1e4, "万");
    }
    return GroupedDecimal::withTwoFractionDigits(*value);
}

}  // namespace quillbar::VolumeFormatter
