// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>

#include <optional>

class QPainter;

/// Numbers in whole pixels, eight high and mostly four wide: at this size an outline font is a blur.
/// It knows the characters that `ShortNumbers` writes.
namespace quillbar::PixelText {

/// The height of every character in pixels.
inline constexpr int kHeight = 8;

/// The width in pixels; absent when a character is not known. Every digit has the same.
[[nodiscard]] std::optional<int> width(const QString& text);

/// Draws the text in the painter's pen with its top left corner at `corner`; characters that are not
/// known are left out. The painter draws on pixels, not scaled.
void draw(QPainter& painter, QPoint corner, const QString& text);

}  // namespace quillbar::PixelText
