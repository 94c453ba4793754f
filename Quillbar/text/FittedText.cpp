// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/FittedText.h"

#include "Quillbar/text/SystemFont.h"

#include <QFontMetricsF>

namespace quillbar::FittedText {

Fit fit(const QString& text,
        double points,
        QFont::Weight weight,
        double width,
        double smallestScale) {
    const QFont font = systemFont(points, weight);
    const double needed = QFontMetricsF(font).horizontalAdvance(text);
    if (needed <= width) {
        return {.font = font, .text = text};
    }
    // Hinting makes letters wider than their share, so the first guess may be too wide.
    constexpr double kStep = 0.02;
    double scale = width / needed;
    while (scale > smallestScale) {
        const QFont smaller = systemFont(points * scale, weight);
        if (QFontMetricsF(smaller).horizontalAdvance(text) <= width) {
            return {.font = smaller, .text = text};
        }
        scale -= kStep;
    }
    const QFont smallest = systemFont(points * smallestScale, weight);
    const QFontMetricsF metrics(smallest);
    return {.font = smallest, .text = metrics.elidedText(text, Qt::ElideRight, width)};
}

}  // namespace quillbar::FittedText
