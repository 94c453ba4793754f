// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/CheckRow.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPen>
#include <QRect>
#include <QRectF>
#include <QSizePolicy>

#include <algorithm>
#include <cmath>

namespace quillbar {

namespace {

constexpr double kTitleSize = 12;
constexpr double kDetailsSize = 10.5;
constexpr int kPadding = 8;
constexpr int kVerticalPadding = 5;
constexpr int kMarkSize = 13;
constexpr double kMarkWidth = 1.5;
constexpr double kMarkRadius = 3;
constexpr double kCheckMargin = 2.5;
constexpr int kGap = 8;
constexpr double kRadius = 4;
constexpr int kTextLeft = kPadding + kMarkSize + kGap;
/// Enough for any text: what has this height does not limit it.
constexpr int kUnlimited = 100'000;

int textHeight(const QString& text, double size, int width) {
    const QRect room(0, 0, std::max(1, width), kUnlimited);
    return QFontMetrics(systemFont(size)).boundingRect(room, Qt::TextWordWrap, text).height();
}

/// How wide the texts of a row of that width may be.
int roomFor(double width) {
    return static_cast<int>(width) - kTextLeft - kPadding;
}

void drawMark(QPainter& painter,
              const QRectF& box,
              const ThemeColors::Resolved& colors,
              bool isChecked) {
    const double inset = kMarkWidth / 2;
    painter.setPen(QPen(isChecked ? colors.accent : colors.secondaryText, kMarkWidth));
    painter.setBrush(isChecked ? QBrush(colors.accent) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(box.adjusted(inset, inset, -inset, -inset), kMarkRadius, kMarkRadius);
    if (isChecked) {
        drawGlyph(painter,
                  Glyph::checkmark,
                  box.adjusted(kCheckMargin, kCheckMargin, -kCheckMargin, -kCheckMargin),
                  colors.surface);
    }
}

}  // namespace

CheckRow::CheckRow(const QString& title, QWidget* parent)
    : PlainButton(parent) {
    setCheckable(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setTexts(title, QString());
    TextScale::follow(*this, [this] { updateGeometry(); });
}

void CheckRow::setTexts(const QString& title, const QString& details) {
    if (title == text() && details == m_details) {
        return;
    }
    setText(title);
    m_details = details;
    setAccessibleName(details.isEmpty() ? title
                                        : translated("widgets", "%1，%2").arg(title, details));
    updateGeometry();
    update();
}

int CheckRow::heightForWidth(int width) const {
    const int room = roomFor(width / TextScale::of(*this));
    int height = textHeight(text(), kTitleSize, room);
    if (!m_details.isEmpty()) {
        height += textHeight(m_details, kDetailsSize, room);
    }
    return TextScale::length(*this, std::max(kRowHeight, height + 2 * kVerticalPadding));
}

QSize CheckRow::sizeHint() const {
    const int width =
        kTextLeft + kPadding
        + std::max(QFontMetrics(systemFont(kTitleSize)).horizontalAdvance(text()),
                   QFontMetrics(systemFont(kDetailsSize)).horizontalAdvance(m_details));
    const int atSize = static_cast<int>(std::ceil(width * TextScale::of(*this)));
    return {atSize, heightForWidth(atSize)};
}

QSize CheckRow::minimumSizeHint() const {
    return TextScale::size(*this, {kTextLeft + kPadding, kRowHeight});
}

void CheckRow::drawContent(QPainter& painter) {
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    const QRectF area = TextScale::enlarge(painter, *this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isHovered()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.rowHover);
        painter.drawRoundedRect(area, kRadius, kRadius);
    }
    const int room = roomFor(area.width());
    const int titleHeight = textHeight(text(), kTitleSize, room);
    const int detailsHeight = m_details.isEmpty() ? 0 : textHeight(m_details, kDetailsSize, room);
    const int top = (static_cast<int>(area.height()) - titleHeight - detailsHeight) / 2;
    // In the middle of the title's first line.
    const QFont titleFont = systemFont(kTitleSize);
    const double middle = top + QFontMetrics(titleFont).height() / 2.0;
    const QRectF box(kPadding, middle - kMarkSize / 2.0, kMarkSize, kMarkSize);
    drawMark(painter, box, colors, isChecked());
    painter.setFont(titleFont);
    painter.setPen(colors.primaryText);
    painter.drawText(QRect(kTextLeft, top, room, titleHeight), Qt::TextWordWrap, text());
    if (!m_details.isEmpty()) {
        painter.setFont(systemFont(kDetailsSize));
        painter.setPen(colors.secondaryText);
        painter.drawText(
            QRect(kTextLeft, top + titleHeight, room, detailsHeight), Qt::TextWordWrap, m_details);
    }
}

}  // namespace quillbar
