// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace quillbar {

/// The relative luminance of an opaque colour, from 0 to 1.
inline double luminanceOf(QRgb color) {
    static const std::vector<double> linear = [] {
        std::vector<double> parts;
        for (int value = 0; value < 256; ++value) {
            const double part = value / 255.0;
            parts.push_back(part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
        }
        return parts;
    }();
    const auto part = [](int value) { return linear[static_cast<std::size_t>(value)]; };
    return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color));
}

/// How well two opaque colours differ, from 1 to 21.
inline double contrastOf(QRgb one, QRgb other) {
    const auto [dark, light] = std::minmax({luminanceOf(one), luminanceOf(other)});
    return (light + 0.05) / (dark + 0.05);
}

/// A translucent tint over an opaque ground.
inline QColor over(const QColor& ground, const QColor& tint) {
    const double opacity = tint.alphaF();
    const auto mix = [opacity](int below, int above) {
        return static_cast<int>(std::lround(below + (above - below) * opacity));
    };
    return {mix(ground.red(), tint.red()),
            mix(ground.green(), tint.green()),
            mix(ground.blue(), tint.blue())};
}

}  // namespace quillbar
