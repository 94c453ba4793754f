// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/Popover.h"

#include "Quillbar/PopoverPlacement.h"
#include "Quillbar/RoundedWindow.h"
#include "Quillbar/Theme.h"

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
    // Whoever made the window below has found out whether windows are blended.
    const QWidget& below = *anchor.window();
    const bool isTranslucent = below.testAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_TranslucentBackground, isTranslucent);
    m_isMasked = !isTranslucent || !below.mask().isEmpty();
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
    // The press that closes the popover is told again to what it hit; the anchor would reopen it.
    const QPoint point = event->globalPosition().toPoint();
    setAttribute(Qt::WA_NoMouseReplay, onScreen(m_anchor).contains(point));
    QWidget::mousePressEvent(event);
}

void Popover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    RoundedWindow::fill(painter, *this, kCornerRadius, colors.surface);
    RoundedWindow::drawEdge(painter, *this, kCornerRadius, colors.separator);
}

void Popover::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_content->setGeometry(rect());
    if (m_isMasked) {
        RoundedWindow::cutCorners(*this, kCornerRadius);
    }
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
        onScreen(m_anchor), wanted, m_anchor.screen()->availableGeometry()));
}

}  // namespace quillbar
