// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/KeyboardFocus.h"

#include "Quillbar/widgets/Theme.h"

#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QWidget>

namespace quillbar {

namespace {

constexpr double kRingWidth = 1.5;
constexpr double kRingRadius = 4;

}  // namespace

void KeyboardFocus::focusIn(Qt::FocusReason reason) {
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        m_isByKeyboard = true;
        break;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
        break;
    case Qt::MouseFocusReason:
    case Qt::MenuBarFocusReason:
    case Qt::OtherFocusReason:
    case Qt::NoFocusReason:
        m_isByKeyboard = false;
        break;
    }
}

void KeyboardFocus::drawRing(QPainter& painter,
                             const QWidget& widget,
                             const QRectF& rectangle) const {
    if (!m_isByKeyboard || !widget.hasFocus()) {
        return;
    }
    const double inset = kRingWidth / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ThemeKey::value(widget).colors.accent, kRingWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(
        rectangle.adjusted(inset, inset, -inset, -inset), kRingRadius, kRingRadius);
    painter.restore();
}

}  // namespace quillbar
