// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/TextButton.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Theme.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace quillbar {

namespace {

constexpr double kTextSize = 10.5;
constexpr int kPadding = 4;

}  // namespace

TextButton::TextButton(const QString& text, QWidget* parent)
    : PlainButton(parent) {
    setText(text);
    setAccessibleName(text);
    const QFontMetricsF metrics(systemFont(kTextSize));
    setFixedSize(static_cast<int>(std::ceil(metrics.horizontalAdvance(text))) + 2 * kPadding,
                 kHeight);
}

void TextButton::drawContent(QPainter& painter) {
    QFont font = systemFont(kTextSize);
    font.setUnderline(isHovered());
    painter.setFont(font);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    painter.setPen(isEnabled() ? colors.accent : colors.tertiaryText);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

}  // namespace quillbar
