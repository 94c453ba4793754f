// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/SystemEvents.h"

#include <QDBusConnection>
#include <QString>

#include <utility>

namespace quillbar {

namespace {

/// NetworkManager's NM_STATE_CONNECTED_SITE; what it counts higher is connected too.
constexpr uint kConnected = 60;

}  // namespace

SystemEvents::SystemEvents(std::function<void()> onResume)
    : m_onResume(std::move(onResume)) {
    // A system without one of them, or without a bus, answers false; there is nothing to do about
    // it.
    QDBusConnection bus = QDBusConnection::systemBus();
    bus.connect(QStringLiteral("org.freedesktop.login1"),
                QStringLiteral("/org/freedesktop/login1"),
                QStringLiteral("org.freedesktop.login1.Manager"),
                QStringLiteral("PrepareForSleep"),
                this,
                SLOT(prepareForSleep(bool)));
    // Not QNetworkInformation: it loads every backend there is, GLib's network stack among them,
    // which is 3 MB and a thread, and whose own backend never reports a change (Qt 6.4).
    bus.connect(QStringLiteral("org.freedesktop.NetworkManager"),
                QStringLiteral("/org/freedesktop/NetworkManager"),
                QStringLiteral("org.freedesktop.NetworkManager"),
                QStringLiteral("StateChanged"),
                this,
                SLOT(networkStateChanged(uint)));
}

void SystemEvents::prepareForSleep(bool isGoingToSleep) {
    if (!isGoingToSleep) {
        m_onResume();
    }
}

void SystemEvents::networkStateChanged(uint state) {
    const bool isConnected = state >= kConnected;
    const bool wasConnected = std::exchange(m_isConnected, isConnected);
    if (isConnected && !wasConnected) {
        m_onResume();
    }
}

}  // namespace quillbar
