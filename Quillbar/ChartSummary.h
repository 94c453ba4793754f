// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"

#include <QString>

#include <optional>
#include <vector>

namespace quillbar {

/// What is said of a chart's candles in one line. A plain value.
struct ChartSummary final {
    /// The greatest high and the smallest low; absent without candles. A NaN is passed over.
    std::optional<double> high;
    std::optional<double> low;
    /// From the first open to the last close, in percent; absent without candles, and where the
    /// first open is 0 or either of the two is no number.
    std::optional<double> changePercent;

    [[nodiscard]] static ChartSummary of(const std::vector<Candle>& candles);

    /// For who hears the chart: "区间 +1.23%, 高 68,000.00, 低 66,800.00", without what is absent.
    [[nodiscard]] QString text() const;

    [[nodiscard]] bool operator==(const ChartSummary&) const = default;
};

}  // namespace quillbar
