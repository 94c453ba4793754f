// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/ChartSummary.h"

#include "QuillbarCore/model/PriceFormatter.h"

#include <QStringList>

#include <cmath>

namespace quillbar {

namespace {

std::optional<double> change(double open, double close) {
    const double percent = (close - open) / open * 100;
    return open == 0 || !std::isfinite(percent) ? std::nullopt : std::optional<double>(percent);
}

}  // namespace

ChartSummary ChartSummary::of(const std::vector<Candle>& candles) {
    ChartSummary summary;
    for (const Candle& candle : candles) {
        if (!std::isnan(candle.high) && !(summary.high && *summary.high >= candle.high)) {
            summary.high = candle.high;
        }
        if (!std::isnan(candle.low) && !(summary.low && *summary.low <= candle.low)) {
            summary.low = candle.low;
        }
    }
    if (!candles.empty()) {
        summary.changePercent = change(candles.front().open, candles.back().close);
    }
    return summary;
}

QString ChartSummary::text() const {
    QStringList parts;
    if (changePercent) {
        parts << QStringLiteral("区间 ")
                     + QString::fromStdString(PriceFormatter::percent(*changePercent));
    }
    if (high) {
        parts << QStringLiteral("高 ") + QString::fromStdString(PriceFormatter::price(*high));
    }
    if (low) {
        parts << QStringLiteral("低 ") + QString::fromStdString(PriceFormatter::price(*low));
    }
    return parts.join(QStringLiteral(", "));
}

}  // namespace quillbar
