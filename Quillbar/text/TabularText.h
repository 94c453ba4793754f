// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;

/// Text whose digits all have the same width in every font, so that changing numbers do not move
/// and columns align. Qt 6.4 cannot use the tabular figures of a font.
namespace quillbar::TabularText {

/// The width of the text in points. Texts that differ only in their digits have the same width.
[[nodiscard]] double width(const QString& text, const QFont& font);

/// Draws one line in the painter's pen. `alignment` is one of the horizontal and one of the
/// vertical alignments; a text wider than the rectangle runs out of it on the side away from its
/// alignment.
void draw(QPainter& painter,
          const QRectF& rectangle,
          Qt::Alignment alignment,
          const QString& text,
          const QFont& font);

}  // namespace quillbar::TabularText
