// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Popover.h"

#include "Quillbar/widgets/LiftedSurface.h"
#include "Quillbar/widgets/PopoverPlacement.h"

#include <QEvent>
#include <QHideEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QPoint>
#include <QRect>
#include <QResizeEvent>
#include <QScreen>
#include <QSize>

namespace quillbar {

namespace {

QRect onScreen(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

}  // namespace

Popover::Popover(QWidget& anchor)
    : QWidget(&anchor, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
    , m_anchor(anchor) {
    setAttribute(Qt::WA_DeleteOnClose);
    LiftedSurface::lift(*this);
}

void Popover::open(QWidget* content) {
    m_content = content;
    m_content->setParent(this);
    m_content->show();
    m_anchor.installEventFilter(this);
    m_anchor.window()->installEventFilter(this);
    setAccessibleName(m_content->accessibleName());
    setWindowTitle(m_content->accessibleName());
    place();
    m_content->setFocus(Qt::PopupFocusReason);
    show();
}

bool Popover::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        place();
    }
    return QWidget::event(event);
}

bool Popover::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Hide:
        if (watched == &m_anchor) {
            close();
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
        place();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void Popover::mousePressEvent(QMouseEvent* event) {
    // Qt repeats the press that closes the popover to the widget under it. The anchor would open
    // the popover again.
    const QPoint point = event->globalPosition().toPoint();
    setAttribute(Qt::WA_NoMouseReplay, onScreen(m_anchor).contains(point));
    QWidget::mousePressEvent(event);
}

void Popover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    LiftedSurface::paint(painter, *this);
}

void Popover::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_content->setGeometry(rect());
}

void Popover::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous() && onClosed) {
        onClosed();
    }
}

void Popover::place() {
    const QSize wanted = m_content->sizeHint()
                             .expandedTo(m_content->minimumSize())
                             .boundedTo(m_content->maximumSize());
    setGeometry(PopoverPlacement::rectangle(
        LiftedSurface::anchorOf(m_anchor), wanted, m_anchor.screen()->availableGeometry()));
}

}  // namespace quillbar
