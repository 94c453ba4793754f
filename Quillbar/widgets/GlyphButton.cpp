// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/GlyphButton.h"

#include "Quillbar/widgets/TextScale.h"

#include <QPainter>
#include <QPointF>
#include <QRectF>

namespace quillbar {

GlyphButton::GlyphButton(Glyph glyph, double glyphSize, const QSize& size, QWidget* parent)
    : PlainButton(parent)
    , m_glyph(glyph)
    , m_glyphSize(glyphSize) {
    TextScale::follow(*this, [this, size] { setFixedSize(TextScale::size(*this, size)); });
}

void GlyphButton::setGlyph(Glyph glyph) {
    if (glyph != m_glyph) {
        m_glyph = glyph;
        update();
    }
}

void GlyphButton::setColors(ColorRole role, ColorRole hoverRole) {
    m_role = role;
    m_hoverRole = hoverRole;
    update();
}

void GlyphButton::setLit(bool isLit) {
    m_isLit = isLit;
    update();
}

void GlyphButton::setRestingOpacity(double opacity) {
    m_restingOpacity = opacity;
    update();
}

void GlyphButton::drawContent(QPainter& painter) {
    QRectF square(0, 0, m_glyphSize, m_glyphSize);
    square.moveCenter(TextScale::enlarge(painter, *this).center());
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    painter.setOpacity(glyphOpacity());
    drawGlyph(painter, m_glyph, square, colors.*(isBright() ? m_hoverRole : m_role));
}

}  // namespace quillbar
