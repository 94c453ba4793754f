// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/OlderTray.h"

#include <QEvent>
#include <QIcon>
#include <QPixmap>
#include <QWheelEvent>

#include <utility>

namespace quillbar {

OlderTray::OlderTray(QMenu& menu, Handlers handlers)
    : m_handlers(std::move(handlers))
    , m_icon(new QSystemTrayIcon(this)) {
    m_icon->setContextMenu(&menu);
    connect(m_icon, &QSystemTrayIcon::activated, this, &OlderTray::handle);
    // The icon gets the wheel as an event, and has no signal for it.
    m_icon->installEventFilter(this);
}

void OlderTray::show(const LabelPicture& picture, const QString& tooltip) {
    if (m_picture != picture) {
        m_picture = picture;
        QIcon icon;
        for (const int height : kSquareHeights) {
            icon.addPixmap(QPixmap::fromImage(picture.drawn(height)));
        }
        m_icon->setIcon(icon);
    }
    if (m_icon->toolTip() != tooltip) {
        m_icon->setToolTip(tooltip);
    }
    // An icon cannot be shown before it has a picture.
    if (!m_icon->isVisible()) {
        m_icon->show();
    }
}

bool OlderTray::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        const int delta = dynamic_cast<QWheelEvent&>(*event).angleDelta().y();
        if (delta != 0) {
            m_handlers.scroll(delta < 0 ? 1 : -1);
        }
    }
    return QObject::eventFilter(watched, event);
}

void OlderTray::handle(QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger) {
        m_handlers.activate();
    } else if (reason == QSystemTrayIcon::MiddleClick) {
        m_handlers.secondaryActivate();
    }
}

}  // namespace quillbar
