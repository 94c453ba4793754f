// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/FittedText.h"

#include "Quillbar/text/SystemFont.h"

#include <QFontMetricsF>

#include <algorithm>

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
    const QFont smaller = systemFont(points * std::max(smallestScale, width / needed), weight);
    const QFontMetricsF metrics(smaller);
    // Hinting rounds the letters' widths, so the scaled text may be a hair wider than computed.
    constexpr double kSlack = 1;
    if (metrics.horizontalAdvance(text) <= width + kSlack) {
        return {.font = smaller, .text = text};
    }
    return {.font = smaller, .text = metrics.elidedText(text, Qt::ElideRight, width)};
}

}  // namespace quillbar::FittedText
