// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/RoundedWindow.h"

#include "Quillbar/widgets/NativeShape.h"

#include <QBitmap>
#include <QColor>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QWidget>

namespace quillbar {

void RoundedWindow::cutCorners(QWidget& window, double radius) {
    QBitmap shape(window.size());
    shape.clear();
    QPainter painter(&shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(window.rect(), radius, radius);
    painter.end();
    window.setMask(shape);
    NativeShape::cutCorners(window, radius);
}

void RoundedWindow::fill(QPainter& painter,
                         const QWidget& window,
                         double radius,
                         const QColor& color) {
    if (!window.mask().isEmpty()) {
        painter.fillRect(window.rect(), color);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(window.rect()), radius, radius);
}

void RoundedWindow::drawEdge(QPainter& painter,
                             const QWidget& widget,
                             double radius,
                             const QColor& color) {
    constexpr double kHalf = 0.5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(widget.rect()).adjusted(kHalf, kHalf, -kHalf, -kHalf),
                            radius - kHalf,
                            radius - kHalf);
}

}  // namespace quillbar
