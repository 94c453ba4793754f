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

/// Where everything of a price chart lies, in points from the top left corner of the chart. The
/// price axis is on the right of the plot, the time axis below it.
///
/// A candle counts only when all its numbers are finite, its prices are not negative and it opens
/// after the last one that counts, before the year 5000; one that does not leaves a gap in the
/// line.
struct ChartLayout final {
    /// How wide and how high a line of the axes' labels is, in points.
    struct TextMeasure {
        std::function<double(const QString&)> width;
        double height = 0;
    };

    /// What a layout follows from.
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

    /// Where the line is drawn: across from the first candle to the last, up from the bottom of the
    /// price domain to its top. Empty when the chart has no room.
    QRectF plot;
    /// The heights of the horizontal grid lines, from the lowest price up.
    std::vector<double> priceGrid;
    /// The places of the vertical grid lines, from the left.
    std::vector<double> timeGrid;
    /// Labels lie within the chart and never touch each other. A grid line whose label has no room,
    /// or would repeat the one before, has none.
    std::vector<Label> priceLabels;
    std::vector<Label> timeLabels;
    /// From the left.
    std::vector<Point> points;
    /// The line's pieces between the gaps; a piece may be a single point.
    std::vector<QPolygonF> lines;
    /// For each piece of the line, what lies between it and the bottom of the plot.
    std::vector<QPolygonF> areas;
    /// The highest and the lowest price, each at its first candle; absent without candles.
    std::optional<QPointF> high;
    std::optional<QPointF> low;

    /// Pure: the same for the same input.
    [[nodiscard]] static ChartLayout of(const Input& input);

    /// The place in `points` of the one nearest to `x`; absent when there is none.
    [[nodiscard]] std::optional<std::size_t> nearest(double x) const;
};

}  // namespace quillbar
