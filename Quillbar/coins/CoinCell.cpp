// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/coins/CoinCell.h"

#include "Quillbar/coins/CoinIconView.h"
#include "Quillbar/text/FittedText.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPaintEvent>
#include <QRectF>
#include <QResizeEvent>

namespace quillbar {

namespace {

constexpr double kNameSize = 13;
constexpr double kSmallestNameScale = 0.8;
constexpr double kMarkSize = 9;

}  // namespace

CoinCell::CoinCell(const ViewEnvironment& environment, QWidget* parent)
    : QWidget(parent)
    , m_icon(new CoinIconView(environment, kIconSize, this)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CoinCell::setBaseAsset(const std::string& baseAsset) {
    if (baseAsset != m_baseAsset) {
        m_baseAsset = baseAsset;
        m_icon->setBaseAsset(baseAsset);
        update();
    }
}

void CoinCell::setPinMark(PinMark mark) {
    if (mark != m_mark) {
        m_mark = mark;
        update();
    }
}

void CoinCell::setBellMark(BellMark mark) {
    if (mark != m_bell) {
        m_bell = mark;
        update();
    }
}

void CoinCell::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    const QRectF area = TextScale::enlarge(painter, *this);
    const double left = kIconSize + kSpacing;
    const int marks = (m_mark == PinMark::pinned ? 1 : 0) + (m_bell == BellMark::bell ? 1 : 0);
    const double room = area.width() - left - marks * (kMarkSize + kSpacing);
    const FittedText::Fit name = FittedText::fit(
        OneLineText::of(m_baseAsset), kNameSize, QFont::DemiBold, room, kSmallestNameScale);
    painter.setFont(name.font);
    painter.setPen(colors.primaryText);
    painter.drawText(
        QRectF(left, 0, room, area.height()),
        static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip),
        name.text);
    const double end = left + QFontMetricsF(name.font).horizontalAdvance(name.text);
    QRectF mark(end + kSpacing, (area.height() - kMarkSize) / 2, kMarkSize, kMarkSize);
    if (m_mark == PinMark::pinned) {
        drawGlyph(painter, Glyph::pinFill, mark, colors.accent);
        mark.translate(kMarkSize + kSpacing, 0);
    }
    if (m_bell == BellMark::bell) {
        drawGlyph(painter, Glyph::bellFill, mark, colors.secondaryText);
    }
}

void CoinCell::resizeEvent(QResizeEvent* event) {
    m_icon->move(0, (height() - TextScale::length(*this, kIconSize)) / 2);
    QWidget::resizeEvent(event);
}

}  // namespace quillbar
