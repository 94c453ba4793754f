// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/SystemEvents.h"

#include <QDBusConnection>
#include <QNetworkInformation>
#include <QString>

#include <utility>

namespace quillbar {

SystemEvents::SystemEvents(std::function<void()> onResume)
    : m_onResume(std::move(onResume)) {
    // A system without logind or without a bus answers false; there is nothing to do about it.
    QDBusConnection::systemBus().connect(QStringLiteral("org.freedesktop.login1"),
                                         QStringLiteral("/org/freedesktop/login1"),
                                         QStringLiteral("org.freedesktop.login1.Manager"),
                                         QStringLiteral("PrepareForSleep"),
                                         this,
                                         SLOT(prepareForSleep(bool)));
    watchNetwork();
}

void SystemEvents::prepareForSleep(bool isGoingToSleep) {
    if (!isGoingToSleep) {
        m_onResume();
    }
}

void SystemEvents::watchNetwork() {
    if (!QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability)) {
        return;
    }
    connect(QNetworkInformation::instance(),
            &QNetworkInformation::reachabilityChanged,
            this,
            [this](QNetworkInformation::Reachability reachability) {
                if (reachability == QNetworkInformation::Reachability::Online) {
                    m_onResume();
                }
            });
}

}  // namespace quillbar
