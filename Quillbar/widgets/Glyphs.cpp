// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Glyphs.h"

#include <QColor>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillbar {

namespace {

// Every glyph is drawn in a square of ten units, which reads like graph paper.
constexpr double kSide = 10;
// The strokes of a semibold symbol.
constexpr double kStroke = 1.5;
constexpr double kThinStroke = 1.1;

constexpr int kGearTeeth = 8;
constexpr double kGearOuterRadius = 4.7;
constexpr double kGearInnerRadius = 3.6;
constexpr double kGearHoleRadius = 1.7;

QPainterPath polyline(const QPolygonF& points) {
    QPainterPath path;
    path.addPolygon(points);
    return path;
}

QPainterPath plusPath() {
    QPainterPath path(QPointF(5, 1));
    path.lineTo(5, 9);
    path.moveTo(1, 5);
    path.lineTo(9, 5);
    return path;
}

// A pin seen from the side: its head, its neck, its plate and its needle.
QPainterPath pinPath() {
    QPainterPath path;
    path.addRoundedRect(QRectF(2.6, 0.4, 4.8, 1.3), 0.6, 0.6);
    QPolygonF body;
    body << QPointF(3.4, 1.5) << QPointF(6.6, 1.5) << QPointF(6.9, 4.1) << QPointF(8.3, 5.6)
         << QPointF(8.3, 6.3) << QPointF(1.7, 6.3) << QPointF(1.7, 5.6) << QPointF(3.1, 4.1);
    QPainterPath neck;
    neck.addPolygon(body);
    neck.closeSubpath();
    QPainterPath needle;
    needle.addRoundedRect(QRectF(4.55, 6.1, 0.9, 3.6), 0.45, 0.45);
    return path.united(neck).united(needle);
}

QPointF onCircle(double radius, double angle) {
    return {5 + radius * std::cos(angle), 5 + radius * std::sin(angle)};
}

QPainterPath gearPath() {
    QPolygonF rim;
    const double pitch = 2 * std::numbers::pi / kGearTeeth;
    for (int tooth = 0; tooth < kGearTeeth; ++tooth) {
        const double middle = tooth * pitch;
        rim << onCircle(kGearInnerRadius, middle - 0.30 * pitch)
            << onCircle(kGearOuterRadius, middle - 0.17 * pitch)
            << onCircle(kGearOuterRadius, middle + 0.17 * pitch)
            << onCircle(kGearInnerRadius, middle + 0.30 * pitch);
    }
    QPainterPath path;
    path.addPolygon(rim);
    path.closeSubpath();
    path.addEllipse(QPointF(5, 5), kGearHoleRadius, kGearHoleRadius);
    return path;
}

QPainterPath xmarkPath() {
    QPainterPath path(QPointF(1.6, 1.6));
    path.lineTo(8.4, 8.4);
    path.moveTo(8.4, 1.6);
    path.lineTo(1.6, 8.4);
    return path;
}

QPainterPath trashPath() {
    QPainterPath path;
    path.moveTo(1.2, 2.4);
    path.lineTo(8.8, 2.4);
    path.moveTo(3.6, 2.2);
    path.lineTo(3.9, 1);
    path.lineTo(6.1, 1);
    path.lineTo(6.4, 2.2);
    path.moveTo(2.2, 2.6);
    path.lineTo(2.7, 9.2);
    path.lineTo(7.3, 9.2);
    path.lineTo(7.8, 2.6);
    path.moveTo(4.1, 4.2);
    path.lineTo(4.2, 7.6);
    path.moveTo(5.9, 4.2);
    path.lineTo(5.8, 7.6);
    return path;
}

// A bell: its crown, its body with a wide rim, and its clapper.
QPainterPath bellPath() {
    QPainterPath body;
    body.moveTo(5, 1);
    body.cubicTo(7.2, 1, 8, 2.6, 8, 4.4);
    body.cubicTo(8, 6, 8.4, 6.6, 9.2, 7.4);
    body.lineTo(0.8, 7.4);
    body.cubicTo(1.6, 6.6, 2, 6, 2, 4.4);
    body.cubicTo(2, 2.6, 2.8, 1, 5, 1);
    body.closeSubpath();
    QPainterPath ends;
    ends.addEllipse(QPointF(5, 1), 0.7, 0.7);
    ends.addRoundedRect(QRectF(3.7, 8.1, 2.6, 1.3), 0.65, 0.65);
    return body.united(ends);
}

void stroke(QPainter& painter, const QPainterPath& path, const QColor& color, double width) {
    painter.strokePath(path, QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void drawInUnits(QPainter& painter, Glyph glyph, const QColor& color) {
    switch (glyph) {
    case Glyph::chevronLeft:
        stroke(painter, polyline({{6.7, 1.2}, {2.9, 5}, {6.7, 8.8}}), color, kStroke);
        break;
    case Glyph::chevronRight:
        stroke(painter, polyline({{3.3, 1.2}, {7.1, 5}, {3.3, 8.8}}), color, kStroke);
        break;
    case Glyph::chevronDown:
        stroke(painter, polyline({{1.2, 3.3}, {5, 7.1}, {8.8, 3.3}}), color, kStroke);
        break;
    case Glyph::chevronUp:
        stroke(painter, polyline({{1.2, 6.7}, {5, 2.9}, {8.8, 6.7}}), color, kStroke);
        break;
    case Glyph::plus:
        stroke(painter, plusPath(), color, kStroke);
        break;
    case Glyph::checkmark:
        stroke(painter, polyline({{1.2, 5.4}, {3.9, 8.2}, {8.8, 1.9}}), color, kStroke);
        break;
    case Glyph::trash:
        stroke(painter, trashPath(), color, kThinStroke);
        break;
    case Glyph::xmark:
        stroke(painter, xmarkPath(), color, kStroke);
        break;
    case Glyph::pinFill:
        painter.fillPath(pinPath(), color);
        break;
    case Glyph::bellFill:
        painter.fillPath(bellPath(), color);
        break;
    case Glyph::gear:
        painter.fillPath(gearPath(), color);
        break;
    }
}

}  // namespace

void drawGlyph(QPainter& painter, Glyph glyph, const QRectF& rectangle, const QColor& color) {
    const double side = std::min(rectangle.width(), rectangle.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rectangle.center() - QPointF(side, side) / 2);
    painter.scale(side / kSide, side / kSide);
    drawInUnits(painter, glyph, color);
    painter.restore();
}

}  // namespace quillbar
