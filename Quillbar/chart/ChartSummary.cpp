// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartSummary.h"

#include "Quillbar/platform/Translated.h"
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

void add(QStringList& parts, const QString& text, const std::optional<double>& price) {
    if (price) {
        parts << text.arg(QString::fromStdString(PriceFormatter::price(*price)));
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
    add(parts, translated("chart", "起始 %1"), first);
    add(parts, translated("chart", "最新 %1"), last);
    if (changePercent) {
        parts << translated("chart", "区间 %1")
                     .arg(QString::fromStdString(PriceFormatter::percent(*changePercent)));
    }
    add(parts, translated("chart", "高 %1"), high);
    add(parts, translated("chart", "低 %1"), low);
    return parts.join(translated("chart", "，"));
}

}  // namespace quillbar
