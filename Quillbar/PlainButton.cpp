// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/PlainButton.h"

#include <QEnterEvent>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QRectF>

namespace quillbar {

PlainButton::PlainButton(QWidget* parent)
    : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);
}

void PlainButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawContent(painter);
    m_focus.drawRing(painter, *this, QRectF(rect()));
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
