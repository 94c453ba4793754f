// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QString>

namespace quillbar::benchmarks {

/// The least that a bar is for an item: it takes registrations, listens to labels, and clicks.
class TrayHost final : public QObject,
                       protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")

public:
    /// Takes the watcher's name on the session bus; `isWatcher` tells whether that went well.
    TrayHost();

    [[nodiscard]] bool isWatcher() const noexcept { return m_isWatcher; }
    /// Clicks the item that registered last.
    void click();

    // NOLINTNEXTLINE(readability-identifier-naming): the protocol spells it so
    Q_SCRIPTABLE Q_SLOT void RegisterStatusNotifierItem(const QString& service);

private:
    Q_SLOT void newLabel(const QString& label, const QString& guide);

    QDBusConnection m_bus;
    QString m_item;
    bool m_isWatcher;
};

}  // namespace quillbar::benchmarks
