// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/AlertMark.h"

#include <QImage>
#include <QPainter>
#include <QPen>
#include <QRectF>

namespace quillbar::AlertMark {

namespace {

/// The height in pixels that the measures of this file are for.
constexpr double kDesignHeight = 22;
constexpr double kFrameWidth = 1;
/// Rounder corners would reach into the texts.
constexpr double kFrameRadius = 1.5;
constexpr QRectF kDot{1, 1, 7, 7};

}  // namespace

void drawFrame(QImage& image) {
    const double scale = image.height() / kDesignHeight;
    const double width = kFrameWidth * scale;
    const double inset = width / 2;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kColor, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(image.rect()).adjusted(inset, inset, -inset, -inset),
                            kFrameRadius * scale,
                            kFrameRadius * scale);
}

void drawDot(QImage& image) {
    const double scale = image.height() / kDesignHeight;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kColor);
    painter.drawEllipse(kDot);
}

}  // namespace quillbar::AlertMark
