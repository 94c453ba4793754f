// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/Theme.h"

#include <QImage>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QSize>

namespace quillbar {

/// The ring of the focus alone: a line of one and a half points inside a rectangle, round at its
/// corners.
inline QImage ringIn(const QRectF& rectangle,
                     const QSize& size,
                     const ThemeColors::Resolved& colors) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(colors.surface);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.accent, 1.5));
    painter.drawRoundedRect(rectangle.adjusted(0.75, 0.75, -0.75, -0.75), 4, 4);
    return image;
}

}  // namespace quillbar
