// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"

#include <QString>

#include <optional>
#include <vector>

namespace quillbar {

/// The figures that sum up the candles of a chart. A plain value.
struct ChartSummary final {
    /// The greatest high and the smallest low; absent without candles. A NaN is ignored.
    std::optional<double> high;
    std::optional<double> low;
    /// The change from the first open to the last close, in percent. Absent without candles, if the
    /// first open is 0, or if one of the two is not a number.
    std::optional<double> changePercent;
    /// The first open and the last close; absent without candles, or if it is not a number.
    std::optional<double> first;
    std::optional<double> last;

    [[nodiscard]] static ChartSummary of(const std::vector<Candle>& candles);

    /// The change from the first open to this price, in percent; absent without a first open, or if
    /// the change is not a number.
    [[nodiscard]] std::optional<double> changeTo(double price) const;

    /// The text for screen readers: "起始 67,000.00，最新 67,824.10，区间 +1.23%，高 68,000.00，低 66,800.00",
    /// without what is absent.
    [[nodiscard]] QString text() const;

    [[nodiscard]] bool operator==(const ChartSummary&) const = default;
};

}  // namespace quillbar
