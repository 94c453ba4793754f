// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/model/Calendar.h"

#include <QLocale>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace quillbar {

/// The places of all parts of a price chart, in points from the top left corner of the chart. The
/// price axis is on the right of the plot, the time axis below it.
///
/// A candle counts only if all its numbers are finite, its prices are not negative, and it opens
/// after the last candle that counts and before the year 5000. A candle that does not count leaves
/// a gap in the line.
struct ChartLayout final {
    /// How wide and how high a line of the axes' labels is, in points.
    struct TextMeasure {
        std::function<double(const QString&)> width;
        double height = 0;
    };

    /// The input of a layout.
    struct Input {
        const std::vector<Candle>& candles;
        QSizeF size;
        TextMeasure text;
        Calendar calendar;
        QLocale locale;
    };

    struct Label {
        QString text;
        QRectF rectangle;

        [[nodiscard]] bool operator==(const Label&) const = default;
    };

    /// The close price of one of the candles that were given.
    struct Point {
        std::size_t candle = 0;
        QPointF position;

        [[nodiscard]] bool operator==(const Point&) const = default;
    };

    /// The area of the line: its width is from the first candle to the last, its height from the
    /// bottom of the price domain to the top. Empty when the chart has no room.
    QRectF plot;
    /// The heights of the horizontal grid lines, from the lowest price up.
    std::vector<double> priceGrid;
    /// The places of the vertical grid lines, from the left.
    std::vector<double> timeGrid;
    /// Labels are within the chart and never touch each other. A grid line has no label if there is
    /// no room for it, or if the text is that of the label before.
    std::vector<Label> priceLabels;
    std::vector<Label> timeLabels;
    /// The last close, in a tag on the price axis; absent without candles, and when it has no room.
    /// It may cover labels of the axis.
    std::optional<Label> lastPrice;
    /// From the left.
    std::vector<Point> points;
    /// The pieces of the line between gaps. A piece may be a single point.
    std::vector<QPolygonF> lines;
    /// For each piece of the line, what lies between it and the bottom of the plot.
    std::vector<QPolygonF> areas;
    /// The highest and the lowest price, each at its first candle; absent without candles.
    std::optional<QPointF> high;
    std::optional<QPointF> low;

    /// Pure: the same input gives the same layout.
    [[nodiscard]] static ChartLayout of(const Input& input);

    /// The index in `points` of the point that is nearest to `x`; absent when there is none.
    [[nodiscard]] std::optional<std::size_t> nearest(double x) const;
};

}  // namespace quillbar
