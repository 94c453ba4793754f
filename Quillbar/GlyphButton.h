// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ColorRole.h"
#include "Quillbar/Glyphs.h"
#include "Quillbar/PlainButton.h"

#include <QSize>

namespace quillbar {

/// A plain button that shows one glyph in its middle.
class GlyphButton : public PlainButton {
public:
    /// `size` is that of the whole button, `glyphSize` that of the glyph in it, in points.
    GlyphButton(Glyph glyph, double glyphSize, const QSize& size, QWidget* parent = nullptr);

    /// Repaints only for another glyph.
    void setGlyph(Glyph glyph);
    [[nodiscard]] Glyph glyph() const noexcept { return m_glyph; }

    /// The glyph's colour: `role`, and `hoverRole` while the pointer is over the button. Both are
    /// secondaryText and primaryText unless told.
    void setColors(ColorRole role, ColorRole hoverRole);

    /// How opaque the glyph is while the pointer is not over the button; fully unless told.
    void setRestingOpacity(double opacity);
    /// How opaque it is as things stand.
    [[nodiscard]] double glyphOpacity() const { return isHovered() ? 1 : m_restingOpacity; }

protected:
    void drawContent(QPainter& painter) override;

private:
    Glyph m_glyph;
    double m_glyphSize;
    double m_restingOpacity = 1;
    ColorRole m_role = &ThemeColors::Resolved::secondaryText;
    ColorRole m_hoverRole = &ThemeColors::Resolved::primaryText;
};

}  // namespace quillbar
