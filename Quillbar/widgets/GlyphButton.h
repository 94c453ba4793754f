// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ColorRole.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/PlainButton.h"

#include <QSize>

namespace quillbar {

/// A plain button that shows one glyph in its middle.
class GlyphButton : public PlainButton {
public:
    /// `size` is the size of the whole button, `glyphSize` that of the glyph in it; both are in
    /// points at a text size of 100 %.
    GlyphButton(Glyph glyph, double glyphSize, const QSize& size, QWidget* parent = nullptr);

    /// Repaints only for another glyph.
    void setGlyph(Glyph glyph);
    [[nodiscard]] Glyph glyph() const noexcept { return m_glyph; }

    /// The glyph's colour: `role`, or `hoverRole` while the pointer is over the button. The
    /// defaults are secondaryText and primaryText.
    void setColors(ColorRole role, ColorRole hoverRole);

    /// Draws the button as if the pointer were over it, for as long as what it opened is open.
    void setLit(bool isLit);

    /// How opaque the glyph is while the pointer is not over the button. The default is fully
    /// opaque.
    void setRestingOpacity(double opacity);
    /// How opaque it is now.
    [[nodiscard]] double glyphOpacity() const { return isBright() ? 1 : m_restingOpacity; }

protected:
    void drawContent(QPainter& painter) override;

private:
    [[nodiscard]] bool isBright() const { return isHovered() || m_isLit; }

    Glyph m_glyph;
    double m_glyphSize;
    double m_restingOpacity = 1;
    bool m_isLit = false;
    ColorRole m_role = &ThemeColors::Resolved::secondaryText;
    ColorRole m_hoverRole = &ThemeColors::Resolved::primaryText;
};

}  // namespace quillbar
