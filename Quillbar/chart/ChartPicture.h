// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/chart/ChartLayout.h"
#include "Quillbar/widgets/Theme.h"

#include <QColor>
#include <QFont>
#include <QString>

class QPainter;

/// How a price chart is drawn, once its layout is known. For the main thread; the painter stands at
/// the top left corner of the chart and smooths edges.
namespace quillbar::ChartPicture {

/// The texts of the crosshair about a candle.
struct Reading final {
    QString time;
    QString price;
    /// The change up to there, and its colour; empty for none.
    QString change;
    QColor changeColor;
};

/// The font of all texts, which a layout is measured in.
[[nodiscard]] QFont font();

/// All but the crosshair: grid, axes, line and area, the highest and the lowest price as rings, the
/// last price as a dashed line with a tag. A label of the axis that the tag would cover is left
/// out. The painter's background must be transparent, because the insides of the rings are cut out.
void paint(QPainter& painter,
           const ChartLayout& layout,
           const QColor& lineColor,
           const ThemeColors::Resolved& colors);

/// The crosshair on one of the layout's points, with its texts.
void paintCrosshair(QPainter& painter,
                    const ChartLayout& layout,
                    const ChartLayout::Point& point,
                    const Reading& reading,
                    const QColor& lineColor,
                    const ThemeColors::Resolved& colors);

}  // namespace quillbar::ChartPicture
