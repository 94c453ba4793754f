// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"

#include <QGuiApplication>
#include <QScreen>

namespace quillbar {

namespace {

constexpr double kTypographicPointsPerInch = 72;
constexpr double kUsualPixelsPerInch = 96;

}  // namespace

QFont systemFont(double points, QFont::Weight weight) {
    // A size in pixels is a whole number in Qt, so the size goes through typographic points, which
    // Qt turns back into pixels with the resolution of the primary screen.
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const double resolution =
        screen != nullptr ? screen->logicalDotsPerInchY() : kUsualPixelsPerInch;
    QFont font = QGuiApplication::font();
    font.setPointSizeF(points * kTypographicPointsPerInch / resolution);
    font.setWeight(weight);
    return font;
}

}  // namespace quillbar
