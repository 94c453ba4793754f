// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/AbbreviatedAmount.h"

#include <fmt/format.h>

#include <cmath>

namespace quillbar {

std::string abbreviatedAmount(double amount, double unit, std::string_view unitName) {
    return fmt::format("{}{:.2f}{}", amount < 0 ? "-" : "", std::fabs(amount) / unit, unitName);
}

}  // namespace quillbar
