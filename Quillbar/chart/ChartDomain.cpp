// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartDomain.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillbar {

namespace {

// The padding of candles that are all at one price, as a part of that price.
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
        // The comparison is false for a NaN, so a NaN changes nothing.
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
