// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/CenteredText.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPaintEvent>
#include <QSize>

#include <cmath>

namespace quillbar {

namespace {

constexpr double kTextSize = 10.5;

}  // namespace

CenteredText::CenteredText(const QString& text, int padding, QWidget* parent)
    : QWidget(parent)
    , m_text(text)
    , m_padding(padding) {
    setAccessibleName(text);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    TextScale::follow(*this, [this] { updateGeometry(); });
}

QSize CenteredText::sizeHint() const {
    const QFontMetricsF metrics(systemFont(kTextSize));
    const double scale = TextScale::of(*this);
    const int padding = 2 * TextScale::length(*this, m_padding);
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(m_text) * scale)) + padding,
            static_cast<int>(std::ceil(metrics.height() * scale)) + padding};
}

void CenteredText::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF area = TextScale::enlarge(painter, *this);
    painter.setFont(systemFont(kTextSize));
    painter.setPen(ThemeKey::value(*this).colors.secondaryText);
    painter.drawText(area, Qt::AlignCenter, m_text);
}

}  // namespace quillbar
