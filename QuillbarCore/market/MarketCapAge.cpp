// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapAge.h"

#include <algorithm>
#include <cmath>

namespace quillbar {

namespace {

constexpr Seconds kHour{3600};
constexpr Seconds kDay{24 * kHour};
/// Far above any age, and small enough for every integer.
constexpr double kMaximumCount = 1e6;

int wholeUnits(Seconds age, Seconds unit) {
    return static_cast<int>(std::min(std::floor(age / unit), kMaximumCount));
}

}  // namespace

std::optional<MarketCapAge> MarketCapAge::ifOld(std::optional<Seconds> age) {
    if (!age) {
        return std::nullopt;
    }
    if (*age < Seconds(0)) {
        return MarketCapAge{.unit = Unit::unknown};
    }
    if (*age <= kOldAge) {
        return std::nullopt;
    }
    const bool isInHours = *age < 2 * kDay;
    return MarketCapAge{.unit = isInHours ? Unit::hours : Unit::days,
                        .count = wholeUnits(*age, isInHours ? kHour : kDay)};
}

}  // namespace quillbar
