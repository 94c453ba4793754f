// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

/// A program of widgets that registers an item at the bar of the session bus, and does nothing
/// else.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    QObject item;
    bus.registerObject(
        QStringLiteral("/StatusNotifierItem"), &item, QDBusConnection::ExportAllProperties);
    QDBusMessage registration =
        QDBusMessage::createMethodCall(watcher,
                                       QStringLiteral("/StatusNotifierWatcher"),
                                       watcher,
                                       QStringLiteral("RegisterStatusNotifierItem"));
    registration << bus.baseService();
    bus.send(registration);
    return QApplication::exec();
}
