// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/PlainButton.h"

#include <QEnterEvent>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QRectF>

namespace quillbar {

PlainButton::PlainButton(QWidget* parent, RingBy ringBy)
    : QAbstractButton(parent)
    , m_ringBy(ringBy) {
    setFocusPolicy(Qt::TabFocus);
}

void PlainButton::drawRing(QPainter& painter, const QRectF& rectangle) const {
    m_focus.drawRing(painter, *this, rectangle);
}

void PlainButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.save();
    drawContent(painter);
    painter.restore();
    if (m_ringBy == RingBy::button) {
        drawRing(painter, QRectF(rect()));
    }
}

void PlainButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            click();
        }
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void PlainButton::focusInEvent(QFocusEvent* event) {
    m_focus.focusIn(event->reason());
    QAbstractButton::focusInEvent(event);
    updateRing();
}

void PlainButton::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    updateRing();
}

void PlainButton::updateRing() {
    // The button itself is painted again by its class.
    if (m_ringBy == RingBy::parent) {
        parentWidget()->update();
    }
}

void PlainButton::enterEvent(QEnterEvent* event) {
    update();
    QAbstractButton::enterEvent(event);
}

void PlainButton::leaveEvent(QEvent* event) {
    update();
    QAbstractButton::leaveEvent(event);
}

}  // namespace quillbar
