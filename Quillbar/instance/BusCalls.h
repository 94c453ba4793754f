// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QLatin1String>

namespace quillbar {

/// A call of one of the bus's own methods, without its arguments.
[[nodiscard]] inline QDBusMessage callOfTheBus(const char* method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"),
                                          QLatin1String(method));
}

}  // namespace quillbar
