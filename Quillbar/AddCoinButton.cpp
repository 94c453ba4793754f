// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/AddCoinButton.h"

#include "Quillbar/AddCoinView.h"
#include "Quillbar/Glyphs.h"
#include "Quillbar/Popover.h"
#include "Quillbar/Theme.h"

#include <QPainter>
#include <QRectF>

namespace quillbar {

namespace {

constexpr int kSize = 24;
constexpr double kGlyphSize = 13;

}  // namespace

AddCoinButton::AddCoinButton(const ViewEnvironment& environment, QWidget* parent)
    : PlainButton(parent)
    , m_environment(environment) {
    setFixedSize(kSize, kSize);
    setAccessibleName(QStringLiteral("添加币种"));
    setToolTip(QStringLiteral("添加币种"));
    QObject::connect(this, &QAbstractButton::clicked, this, [this] { toggle(); });
}

void AddCoinButton::drawContent(QPainter& painter) {
    QRectF square(0, 0, kGlyphSize, kGlyphSize);
    square.moveCenter(QRectF(rect()).center());
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    drawGlyph(painter,
              Glyph::plus,
              square,
              isOpen() || isHovered() ? colors.primaryText : colors.secondaryText);
}

void AddCoinButton::toggle() {
    if (isOpen()) {
        m_popover->close();
        return;
    }
    m_popover = new Popover(*this);
    m_popover->onClosed = [this] {
        m_popover.clear();
        update();
    };
    m_popover->open(new AddCoinView(
        m_environment, [popover = m_popover.data()] { popover->close(); }, m_popover));
    update();
}

}  // namespace quillbar
