// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>

#include <optional>

class QPainter;

/// Numbers in whole pixels, eight high and three to five wide, because an outline font of this size
/// is blurred. It has the characters that `ShortNumbers` writes.
namespace quillbar::PixelText {

/// The height of every character above the baseline, in pixels.
inline constexpr int kHeight = 8;
/// How far a count of zeros reaches below the baseline, in pixels.
inline constexpr int kCountDepth = 1;

/// The width of a digit: four pixels, or three if there is no room for four.
enum class Digits { wide, narrow };

/// The width in pixels; absent when a character is not known. Texts that differ only in their
/// digits have the same width.
[[nodiscard]] std::optional<int> width(const QString& text, Digits digits);

/// The widest digits with which the text takes no more than `space` pixels; absent when none do, or
/// when a character is not known.
[[nodiscard]] std::optional<Digits> fitting(const QString& text, int space);

/// Draws the text in the painter's pen with its top left corner at `corner`; characters that are
/// not known are left out. The painter draws on pixels, not scaled.
void draw(QPainter& painter, QPoint corner, const QString& text, Digits digits);

}  // namespace quillbar::PixelText
