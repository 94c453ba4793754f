// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/SearchRow.h"

#include "Quillbar/text/FittedText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QPointF>

#include <cmath>

namespace quillbar {

namespace {

constexpr double kNameSize = 13;
constexpr double kSmallestNameScale = 0.8;
constexpr double kSecondarySize = 9.5;
// The width that is left to the text beside a long name.
constexpr double kLeastBesideWidth = 48;

// Draws on the baseline of the name, which is that of the whole row.
void drawOn(QPainter& painter, double x, double baseline, const FittedText::Fit& text) {
    painter.setFont(text.font);
    painter.drawText(QPointF(x, baseline), text.text);
}

}  // namespace

SearchRow::SearchRow(QWidget* parent)
    : ListRow(parent) {
    // The field keeps the focus, whatever is clicked.
    setFocusPolicy(Qt::NoFocus);
}

void SearchRow::setTexts(const Texts& texts) {
    if (texts != m_texts) {
        m_texts = texts;
        update();
    }
}

void SearchRow::setPickable(bool isPickable) {
    if (isPickable != m_isPickable) {
        m_isPickable = isPickable;
        setReactsToPointer(isPickable);
        update();
    }
}

void SearchRow::paintEvent(QPaintEvent* event) {
    ListRow::paintEvent(event);
    QPainter painter(this);
    const QRectF area = TextScale::enlarge(painter, *this);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    const double left = kPadding + kIconSize + kSpacing;
    double right = area.width() - kPadding;
    const QFontMetricsF nameMetrics(systemFont(kNameSize, QFont::Medium));
    const double baseline =
        std::round((area.height() - nameMetrics.height()) / 2 + nameMetrics.ascent());

    painter.setPen(colors.secondaryText);
    if (!m_texts.atEnd.isEmpty()) {
        const QFont font = systemFont(kSecondarySize);
        right -= QFontMetricsF(font).horizontalAdvance(m_texts.atEnd);
        drawOn(painter, right, baseline, {.font = font, .text = m_texts.atEnd});
        right -= kSpacing;
    }
    const FittedText::Fit name = FittedText::fit(m_texts.name,
                                                 kNameSize,
                                                 QFont::Medium,
                                                 right - left - kLeastBesideWidth - kSpacing,
                                                 kSmallestNameScale);
    const double besideLeft =
        left + QFontMetricsF(name.font).horizontalAdvance(name.text) + kSpacing;
    drawOn(painter,
           besideLeft,
           baseline,
           FittedText::fit(m_texts.beside, kSecondarySize, QFont::Normal, right - besideLeft, 1));
    painter.setPen(m_isPickable ? colors.primaryText : colors.secondaryText);
    drawOn(painter, left, baseline, name);
}

void SearchRow::mousePressEvent(QMouseEvent* event) {
    // Only a widget that accepts the press gets the release.
    event->setAccepted(event->button() == Qt::LeftButton && m_isPickable);
}

void SearchRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && m_isPickable
        && rect().contains(event->position().toPoint())) {
        onClick();
    }
}

}  // namespace quillbar
