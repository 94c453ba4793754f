// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/NaiveNumber.h"

#include <clocale>
#include <cmath>
#include <cstdlib>

namespace quillbar {

std::optional<double> naiveNumber(const std::string& text) {
    static const locale_t cLocale = ::newlocale(LC_ALL_MASK, "C", nullptr);
    if (text.empty() || std::string(" \t\n\v\f\r").find(text.front()) != std::string::npos) {
        return std::nullopt;
    }
    char* end = nullptr;
    const double value = ::strtod_l(text.c_str(), &end, cLocale);
    if (end != text.c_str() + text.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

}  // namespace quillbar
