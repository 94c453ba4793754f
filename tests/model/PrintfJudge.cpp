// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/model/PrintfJudge.h"

#include <array>
#include <clocale>
#include <cstddef>
#include <cstdio>

namespace quillbar {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

std::string printfText(const char* format, double value) {
    static const locale_t kCLocale = ::newlocale(LC_ALL_MASK, "C", nullptr);
    const locale_t before = ::uselocale(kCLocale);
    std::array<char, 512> text{};
    const int size = std::snprintf(text.data(), text.size(), format, value);
    ::uselocale(before);
    return {text.data(), static_cast<std::size_t>(size)};
}

#pragma GCC diagnostic pop

}  // namespace quillbar
