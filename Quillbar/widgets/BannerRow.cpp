// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/BannerRow.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QColor>
#include <QPainter>
#include <QRectF>

namespace quillbar {

namespace {

constexpr double kFontSize = 9.5;
constexpr float kBackgroundOpacity = 0.1F;

}  // namespace

BannerRow::BannerRow(QWidget* parent)
    : QWidget(parent) {
    TextScale::follow(*this, [this] { setFixedHeight(TextScale::length(*this, kHeight)); });
    Announcement::mark(*this);
}

void BannerRow::setText(const QString& text) {
    if (text != m_text) {
        m_text = text;
        setAccessibleName(text);
        update();
    }
}

void BannerRow::setTextIndent(int indent) {
    m_indent = indent;
    update();
}

void BannerRow::paintEvent(QPaintEvent* /*event*/) {
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    QPainter painter(this);
    QColor background = colors.warning;
    background.setAlphaF(kBackgroundOpacity);
    painter.fillRect(rect(), background);
    painter.setPen(colors.warning);
    const QRectF area =
        TextScale::enlarge(painter, *this).adjusted(kPadding + m_indent, 0, -kPadding, 0);
    TabularText::draw(
        painter, area, Qt::AlignLeft | Qt::AlignVCenter, m_text, systemFont(kFontSize));
}

}  // namespace quillbar
