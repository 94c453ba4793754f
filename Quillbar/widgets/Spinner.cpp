// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Spinner.h"

#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QPainter>
#include <QPen>
#include <QTimerEvent>

#include <cmath>

namespace quillbar {

namespace {

constexpr double kSpokeWidthRatio = 0.11;
constexpr double kInnerRadiusRatio = 0.25;
constexpr float kFaintest = 0.15F;
constexpr double kFullTurn = 360;

}  // namespace

Spinner::Spinner(double diameter, QWidget* parent)
    : QWidget(parent)
    , m_diameter(diameter) {
    TextScale::follow(*this, [this] {
        const int side = static_cast<int>(std::ceil(m_diameter * TextScale::of(*this)));
        setFixedSize(side, side);
    });
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Spinner::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(TextScale::enlarge(painter, *this).center());
    const double width = m_diameter * kSpokeWidthRatio;
    const double outer = (m_diameter - width) / 2;
    const double inner = m_diameter * kInnerRadiusRatio;
    QColor color = ThemeKey::value(*this).colors.secondaryText;
    for (int spoke = 0; spoke < kSpokes; ++spoke) {
        const int age = (m_phase - spoke + kSpokes) % kSpokes;
        const float fading = static_cast<float>(age) / (kSpokes - 1);
        color.setAlphaF(1 - (1 - kFaintest) * fading);
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -inner), QPointF(0, -outer));
        painter.rotate(kFullTurn / kSpokes);
    }
}

void Spinner::showEvent(QShowEvent* event) {
    m_timer.start(static_cast<int>(kStep.count()), this);
    QWidget::showEvent(event);
}

void Spinner::hideEvent(QHideEvent* event) {
    m_timer.stop();
    QWidget::hideEvent(event);
}

void Spinner::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_timer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    m_phase = (m_phase + 1) % kSpokes;
    update();
}

}  // namespace quillbar
