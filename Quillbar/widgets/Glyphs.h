// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

class QColor;
class QPainter;
class QRectF;

namespace quillbar {

/// The pictures on buttons and rows. They are drawn as paths, so they need no icon theme and no
/// font.
enum class Glyph {
    chevronLeft,
    chevronRight,
    chevronDown,
    chevronUp,
    pinFill,
    plus,
    gear,
    checkmark,
    trash,
    xmark,
    bellFill
};

/// Draws a glyph in one colour, filling the largest square in the middle of `rectangle`. A glyph
/// "at 9 points" is one in a square of 9 points. Leaves the painter as it was.
void drawGlyph(QPainter& painter, Glyph glyph, const QRectF& rectangle, const QColor& color);

}  // namespace quillbar
