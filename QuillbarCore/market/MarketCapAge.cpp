// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapAge.h"

#include <fmt/format.h>

#include <cmath>

namespace quillbar {

namespace {

constexpr Seconds kHour{3600};
constexpr Seconds kDay{24 * kHour};

}  // namespace

std::optional<std::string> MarketCapAge::textIfOld(std::optional<Seconds> age) {
    if (!age) {
        return std::nullopt;
    }
    if (*age < Seconds(0)) {
        // The clock was set back, so the age is unknown.
        return "数据的时间晚于系统时钟";
    }
    if (*age <= kOldAge) {
        return std::nullopt;
    }
    const bool isInHours = *age < 2 * kDay;
    return fmt::format("数据为{:.0f} {}前的",
                       std::floor(*age / (isInHours ? kHour : kDay)),
                       isInHours ? "小时" : "天");
}

}  // namespace quillbar
