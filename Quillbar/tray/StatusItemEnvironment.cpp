// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusItemEnvironment.h"

#include <QCursor>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QSystemTrayIcon>

#include <utility>

namespace quillbar {

namespace {

bool isOnX11() {
    return QGuiApplication::platformName() == QStringLiteral("xcb");
}

std::string nameOfProcess(uint processId) {
    QFile file(QStringLiteral("/proc/%1/comm").arg(processId));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll().trimmed().toStdString();
}

// Other window systems report positions in logical pixels.
QPoint logicalOnX11(QPoint reported) {
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const double ratio = screen->devicePixelRatio();
        const QRect logical = screen->geometry();
        if (QRect(logical.topLeft(), logical.size() * ratio).contains(reported)) {
            return logicalPosition(reported, logical.topLeft(), ratio);
        }
    }
    return reported;
}

bool liesInBar(QPoint position) {
    const QScreen* const screen = QGuiApplication::screenAt(position);
    return screen != nullptr && !screen->availableGeometry().contains(position);
}

}  // namespace

StatusItemEnvironment StatusItemEnvironment::ofDesktop(QDBusConnection bus,
                                                       Executor& executor,
                                                       Sleeper sleeper) {
    const bool knowsPointer = isOnX11() && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    return {
        .bus = std::move(bus),
        .executor = executor,
        .sleeper = std::move(sleeper),
        .hasOlderTray = [] { return isOnX11() && QSystemTrayIcon::isSystemTrayAvailable(); },
        .processName = nameOfProcess,
        .pointer = [] { return QCursor::pos(); },
        .pointerPosition = knowsPointer ? PointerPosition::current : PointerPosition::outdated,
        .logicalPosition =
            [](QPoint reported) { return isOnX11() ? logicalOnX11(reported) : reported; },
        .isInBar = liesInBar,
        .hasThemeIcon = [](const QString& name) { return QIcon::hasThemeIcon(name); },
        .canPopUpMenus = !QGuiApplication::platformName().startsWith(QStringLiteral("wayland")),
    };
}

}  // namespace quillbar
