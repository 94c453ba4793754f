// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartSummary.h"

#include "QuillbarCore/model/PriceFormatter.h"

#include <QStringList>

#include <cmath>

namespace quillbar {

namespace {

std::optional<double> change(double open, double close) {
    const double percent = (close - open) / open * 100;
    return open == 0 || !std::isfinite(percent) ? std::nullopt : std::optional<double>(percent);
}

std::optional<double> number(double value) {
    return std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

void add(QStringList& parts, const QString& label, const std::optional<double>& price) {
    if (price) {
        parts << label + u' ' + QString::fromStdString(PriceFormatter::price(*price));
    }
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
        summary.first = number(candles.front().open);
        summary.last = number(candles.back().close);
        summary.changePercent = change(candles.front().open, candles.back().close);
    }
    return summary;
}

std::optional<double> ChartSummary::changeTo(double price) const {
    return first ? change(*first, price) : std::nullopt;
}

QString ChartSummary::text() const {
    QStringList parts;
    add(parts, QStringLiteral("起始"), first);
    add(parts, QStringLiteral("最新"), last);
    if (changePercent) {
        parts << QStringLiteral("区间 ")
                     + QString::fromStdString(PriceFormatter::percent(*changePercent));
    }
    add(parts, QStringLiteral("高"), high);
    add(parts, QStringLiteral("低"), low);
    return parts.join(QStringLiteral("，"));
}

}  // namespace quillbar
