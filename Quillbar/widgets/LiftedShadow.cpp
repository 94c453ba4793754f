// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/LiftedShadow.h"

#include "Quillbar/widgets/LiftedSurface.h"
#include "Quillbar/widgets/Theme.h"

#include <QColor>
#include <QEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QPoint>
#include <QRectF>
#include <QRegion>

namespace quillbar {

namespace {

// Next to the window. A dark ground needs more of it to be seen.
constexpr double kOpacityOnDark = 0.5;
constexpr double kOpacityOnLight = 0.16;
constexpr double kMiddleLightness = 0.5;

/// The share of the full shadow at this distance from the window.
double strengthAt(double distance) {
    const double left = 1 - distance / LiftedShadow::kReach;
    return left * left;
}

}  // namespace

LiftedShadow::LiftedShadow(QWidget& lifted, QWidget& below)
    : QWidget(&below)
    , m_lifted(&lifted)
    , m_below(below) {
    setObjectName(QStringLiteral("shadow"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    lifted.installEventFilter(this);
    below.installEventFilter(this);
    connect(&lifted, &QObject::destroyed, this, &QObject::deleteLater);
}

bool LiftedShadow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
        follow();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void LiftedShadow::paintEvent(QPaintEvent* /*event*/) {
    if (m_lifted == nullptr) {
        return;
    }
    const bool isOnDark = ThemeKey::value(*m_lifted).colors.surface.lightnessF() < kMiddleLightness;
    const double opacity = isOnDark ? kOpacityOnDark : kOpacityOnLight;
    QPainter painter(this);
    // What the window covers needs no shadow, but for its corners.
    const int corner = static_cast<int>(LiftedSurface::kRadius);
    painter.setClipRegion(QRegion(rect()) - m_caster.adjusted(corner, corner, -corner, -corner));
    // None in the corners that the window below does not fill.
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF lowered = m_caster.translated(0, kDrop);
    for (int step = kReach; step > 0; --step) {
        painter.setBrush(QColor::fromRgbF(
            0, 0, 0, static_cast<float>(opacity * (strengthAt(step - 1) - strengthAt(step)))));
        const double radius = LiftedSurface::kRadius + step;
        painter.drawRoundedRect(lowered.adjusted(-step, -step, step, step), radius, radius);
    }
}

void LiftedShadow::follow() {
    const bool isCast = m_lifted != nullptr && m_lifted->isVisible();
    if (isCast) {
        const QRect caster(m_below.mapFromGlobal(m_lifted->mapToGlobal(QPoint(0, 0))),
                           m_lifted->size());
        setGeometry(caster.adjusted(-kReach, kDrop - kReach, kReach, kReach + kDrop));
        m_caster = caster.translated(-pos());
        update();
        raise();
    }
    setVisible(isCast);
}

}  // namespace quillbar
