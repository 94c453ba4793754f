// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartPicture.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillbar::ChartPicture {

namespace {

constexpr double kLabelSize = 9.5;
constexpr double kGridWidth = 0.5;
constexpr double kLineWidth = 1.5;
constexpr float kAreaOpacity = 0.18F;
// The area of a marker in square points, its ring included.
constexpr double kExtremeSymbolSize = 18;
constexpr double kExtremeRingWidth = 1.1;
constexpr double kStemWidth = 1;
constexpr double kLastPriceWidth = 1;
constexpr double kLastPriceDash = 3;
constexpr float kLastPriceOpacity = 0.6F;
constexpr double kTagRadius = 3;
constexpr double kReadingDotRadius = 4;
constexpr double kReadingHaloRadius = 7;
constexpr float kReadingHaloOpacity = 0.25F;
constexpr double kBubbleRadius = 4;
constexpr double kBubblePadding = 5;
constexpr double kBubbleSpacing = 6;

/// Rounds down to a whole pixel of the device, so that all thin lines look alike.
double snapped(double position, const QPainter& painter) {
    const double scale = painter.device()->devicePixelRatioF();
    return std::floor(position * scale) / scale;
}

QColor faded(QColor color, float opacity) {
    color.setAlphaF(opacity);
    return color;
}

void paintGrid(QPainter& painter, const ChartLayout& layout, const QColor& color) {
    const QRectF& plot = layout.plot;
    for (const double y : layout.priceGrid) {
        painter.fillRect(QRectF(plot.left(), snapped(y, painter), plot.width(), kGridWidth), color);
    }
    for (const double x : layout.timeGrid) {
        painter.fillRect(QRectF(snapped(x, painter), plot.top(), kGridWidth, plot.height()), color);
    }
}

void paintLabels(QPainter& painter, const ChartLayout& layout, const QColor& color) {
    painter.setPen(color);
    for (const auto* const labels : {&layout.priceLabels, &layout.timeLabels}) {
        for (const ChartLayout::Label& label : *labels) {
            if (!layout.lastPrice || !label.rectangle.intersects(layout.lastPrice->rectangle)) {
                TabularText::draw(
                    painter, label.rectangle, Qt::AlignLeft | Qt::AlignVCenter, label.text, font());
            }
        }
    }
}

void paintAreas(QPainter& painter, const ChartLayout& layout, const QColor& color) {
    painter.setPen(Qt::NoPen);
    for (const QPolygonF& area : layout.areas) {
        QLinearGradient gradient(0, area.boundingRect().top(), 0, layout.plot.bottom());
        gradient.setColorAt(0, faded(color, kAreaOpacity));
        gradient.setColorAt(1, faded(color, 0));
        painter.setBrush(gradient);
        painter.drawPolygon(area);
    }
}

/// Across the plot at the height of the last close, on whole pixels of the device.
void paintLastPrice(QPainter& painter, const ChartLayout& layout, const QColor& color) {
    if (layout.points.empty()) {
        return;
    }
    const QRectF& plot = layout.plot;
    const double y =
        snapped(layout.points.back().position.y(), painter) + snapped(kLastPriceWidth, painter) / 2;
    QPen pen(faded(color, kLastPriceOpacity), kLastPriceWidth, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({kLastPriceDash, kLastPriceDash});
    painter.setPen(pen);
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
}

void paintTag(QPainter& painter,
              const ChartLayout& layout,
              const QColor& color,
              const QColor& textColor) {
    if (!layout.lastPrice) {
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(layout.lastPrice->rectangle, kTagRadius, kTagRadius);
    painter.setPen(textColor);
    TabularText::draw(painter,
                      layout.lastPrice->rectangle,
                      Qt::AlignHCenter | Qt::AlignVCenter,
                      layout.lastPrice->text,
                      font());
}

void paintLines(QPainter& painter, const ChartLayout& layout, const QColor& color) {
    painter.setPen(QPen(color, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    for (const QPolygonF& line : layout.lines) {
        if (line.size() == 1) {
            painter.drawPoint(line.first());
        } else {
            painter.drawPolyline(line);
        }
    }
}

/// A ring with a transparent inside. If the extreme price is not the candle's close, a stem joins
/// it to the line.
void paintExtreme(QPainter& painter,
                  const ChartLayout& layout,
                  const QPointF& extreme,
                  const QColor& color) {
    const double radius = std::sqrt(kExtremeSymbolSize / std::numbers::pi);
    if (const auto place = layout.nearest(extreme.x())) {
        painter.setPen(QPen(color, kStemWidth, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(layout.points[*place].position, extreme);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawEllipse(extreme, radius, radius);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(color, kExtremeRingWidth));
    painter.setBrush(Qt::NoBrush);
    const double middle = radius - kExtremeRingWidth / 2;
    painter.drawEllipse(extreme, middle, middle);
}

double bubbleWidth(const Reading& reading) {
    double width = TabularText::width(reading.time, font()) + kBubbleSpacing
                   + TabularText::width(reading.price, font()) + 2 * kBubblePadding;
    if (!reading.change.isEmpty()) {
        width += kBubbleSpacing + TabularText::width(reading.change, font());
    }
    return width;
}

void paintReading(QPainter& painter,
                  const ChartLayout& layout,
                  const QPointF& position,
                  const Reading& reading,
                  const ThemeColors::Resolved& colors) {
    const double width = bubbleWidth(reading);
    const double height = QFontMetricsF(font()).height() + 4;
    const QRectF& plot = layout.plot;
    // Beside the prices of the axis, if there is room.
    const double furthest = std::max(0.0, plot.right() - width);
    const double left = std::clamp(position.x() - width / 2, 0.0, furthest);
    // At the end of the crosshair that is away from the price.
    const bool isPriceBelow = position.y() > plot.center().y();
    const double top = isPriceBelow ? plot.top() : plot.bottom() - height;
    const QRectF bubble(left, top, width, height);
    painter.setPen(QPen(colors.separator, 1));
    painter.setBrush(colors.surface);
    painter.drawRoundedRect(bubble.adjusted(0.5, 0.5, -0.5, -0.5), kBubbleRadius, kBubbleRadius);
    QRectF text = bubble.adjusted(kBubblePadding, 0, -kBubblePadding, 0);
    const auto write = [&painter, &text](const QString& what, const QColor& color) {
        painter.setPen(color);
        TabularText::draw(painter, text, Qt::AlignLeft | Qt::AlignVCenter, what, font());
        text.setLeft(text.left() + TabularText::width(what, font()) + kBubbleSpacing);
    };
    write(reading.time, colors.secondaryText);
    write(reading.price, colors.primaryText);
    write(reading.change, reading.changeColor);
}

}  // namespace

QFont font() {
    return systemFont(kLabelSize);
}

void paint(QPainter& painter,
           const ChartLayout& layout,
           const QColor& lineColor,
           const ThemeColors::Resolved& colors) {
    paintGrid(painter, layout, colors.separator);
    paintLabels(painter, layout, colors.secondaryText);
    paintAreas(painter, layout, lineColor);
    paintLastPrice(painter, layout, lineColor);
    paintLines(painter, layout, lineColor);
    for (const auto& extreme : {layout.high, layout.low}) {
        if (extreme) {
            paintExtreme(painter, layout, *extreme, lineColor);
        }
    }
    paintTag(painter, layout, lineColor, colors.surface);
}

void paintCrosshair(QPainter& painter,
                    const ChartLayout& layout,
                    const ChartLayout::Point& point,
                    const Reading& reading,
                    const QColor& lineColor,
                    const ThemeColors::Resolved& colors) {
    const QRectF& plot = layout.plot;
    painter.fillRect(QRectF(point.position.x() - 0.5, plot.top(), 1, plot.height()),
                     faded(colors.secondaryText, 0.5F));
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(lineColor, kReadingHaloOpacity));
    painter.drawEllipse(point.position, kReadingHaloRadius, kReadingHaloRadius);
    painter.setBrush(lineColor);
    painter.drawEllipse(point.position, kReadingDotRadius, kReadingDotRadius);
    paintReading(painter, layout, point.position, reading, colors);
}

}  // namespace quillbar::ChartPicture
