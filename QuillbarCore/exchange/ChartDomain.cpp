// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ChartDomain.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillbar {

namespace {

// The part of the price that pads candles which are all at one price.
constexpr double kFlatPaddingRatio = 0.005;

double padding(double low, double high, double ratio) {
    const double span = high - low;
    if (span > 0) {
        return span * ratio;
    }
    return std::max(std::abs(low) * kFlatPaddingRatio, std::numeric_limits<double>::min());
}

}  // namespace

std::optional<PriceRange> ChartDomain::priceRange(const std::vector<Candle>& candles,
                                                  double paddingRatio) {
    if (candles.empty()) {
        return std::nullopt;
    }
    double low = candles.front().low;
    double high = candles.front().high;
    for (const Candle& candle : candles) {
        // False for a NaN, which so changes nothing.
        if (candle.low < low) {
            low = candle.low;
        }
        if (candle.high > high) {
            high = candle.high;
        }
    }
    const double pad = padding(low, high, paddingRatio);
    const double lower = std::max(low - pad, 0.0);
    return PriceRange{lower, std::max(high + pad, lower)};
}

}  // namespace quillbar
