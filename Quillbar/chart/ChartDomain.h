// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"

#include <optional>
#include <vector>

namespace quillbar {

/// The vertical axis of a chart: a closed interval of prices.
struct PriceRange final {
    double lower = 0;
    double upper = 0;

    [[nodiscard]] bool operator==(const PriceRange&) const = default;
};

/// The rule for a chart's vertical axis.
namespace ChartDomain {

/// The part of the candles' span that is left free above and below them.
inline constexpr double kDefaultPaddingRatio = 0.04;

/// From the lowest low to the highest high, padded on both sides by `paddingRatio` of the span, or
/// by 0.5 % of the price for flat candles. It never goes below 0, and its ends are in order. Absent
/// without candles. A NaN among the prices is ignored, except in the first candle.
[[nodiscard]] std::optional<PriceRange> priceRange(const std::vector<Candle>& candles,
                                                   double paddingRatio);

}  // namespace ChartDomain

}  // namespace quillbar
