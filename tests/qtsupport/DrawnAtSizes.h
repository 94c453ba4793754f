// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/NumericCell.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/Widgets.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QString>

#include <gtest/gtest.h>

#include <vector>

namespace quillbar {

/// A cell of that width, written at that size, which shows what another does.
inline QImage writtenAt(int width, double size, const NumericCell& like) {
    NumericCell cell(width, size, like.parentWidget());
    cell.resize(like.size());
    cell.setText(like.text());
    cell.setColor(like.color());
    return pictureOf(cell);
}

/// A glyph of that size in the middle of a widget, in the colour of what is said beside the rows.
inline QImage drawnAt(double size, Glyph glyph, const QWidget& in) {
    const ThemeColors::Resolved& colors = ThemeKey::value(in).colors;
    QImage image(in.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(colors.surface);
    QRectF square(0, 0, size, size);
    square.moveCenter(QRectF(in.rect()).center());
    QPainter painter(&image);
    drawGlyph(painter, glyph, square, colors.secondaryText);
    return image;
}

/// A line of that size in the middle of a widget, in that colour, over what is at its corner.
inline QImage lineInTheMiddle(double size, const QString& text, const QColor& color, QWidget& in) {
    QImage image = pictureOf(in);
    image.fill(image.pixelColor(0, 0));
    QPainter painter(&image);
    painter.setFont(systemFont(size));
    painter.setPen(color);
    painter.drawText(in.rect(), Qt::AlignCenter, text);
    return image;
}

/// The widget in the window that says this alone, in a line of 10.5 points.
inline void expectSmallLine(const QWidget& in,
                            const QString& text,
                            QColor ThemeColors::Resolved::*color) {
    QWidget* const line = named(in, text);
    ASSERT_NE(line, nullptr) << text.toStdString();
    EXPECT_EQ(pictureOf(*line),
              lineInTheMiddle(10.5, text, ThemeKey::value(*line).colors.*color, *line))
        << text.toStdString();
}

/// The columns of a picture, from one on, in which anything stands out from the surface.
inline std::vector<int> columnsWithInk(const QImage& picture, int from, QRgb surface) {
    std::vector<int> columns;
    for (int x = from; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (picture.pixel(x, y) != surface) {
                columns.push_back(x);
                break;
            }
        }
    }
    return columns;
}

}  // namespace quillbar
