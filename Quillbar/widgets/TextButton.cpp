// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/TextButton.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/TextScale.h"
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
    TextScale::follow(*this, [this] { fit(); });
}

void TextButton::fit() {
    const double width = QFontMetricsF(systemFont(kTextSize)).horizontalAdvance(text());
    setFixedSize(static_cast<int>(std::ceil(width * TextScale::of(*this)))
                     + 2 * TextScale::length(*this, kPadding),
                 TextScale::length(*this, kHeight));
}

void TextButton::drawContent(QPainter& painter) {
    const QRectF area = TextScale::enlarge(painter, *this);
    QFont font = systemFont(kTextSize);
    font.setUnderline(isHovered());
    painter.setFont(font);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    painter.setPen(isEnabled() ? colors.accent : colors.tertiaryText);
    painter.drawText(area, Qt::AlignCenter, text());
}

}  // namespace quillbar
