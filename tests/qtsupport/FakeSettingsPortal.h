// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QUuid>

namespace quillbar {

/// The desktop's settings portal, with one setting.
class FakeSettingsPortal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    FakeSettingsPortal(const QString& address, uint colorScheme)
        : m_name(QUuid::createUuid().toString())
        , m_bus(QDBusConnection::connectToBus(address, m_name))
        , m_scheme(colorScheme) {
        m_bus.registerObject(
            QStringLiteral("/org/freedesktop/portal/desktop"),
            this,
            QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableSignals);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    FakeSettingsPortal(const FakeSettingsPortal&) = delete;
    FakeSettingsPortal& operator=(const FakeSettingsPortal&) = delete;
    FakeSettingsPortal(FakeSettingsPortal&&) = delete;
    FakeSettingsPortal& operator=(FakeSettingsPortal&&) = delete;
    ~FakeSettingsPortal() override { QDBusConnection::disconnectFromBus(m_name); }

    /// Tells of a change.
    void change(const QString& group, const QString& key, uint value) {
        Q_EMIT SettingChanged(group, key, QDBusVariant(value));
    }

    // NOLINTBEGIN(readability-identifier-naming): the protocol spells them so
    Q_SCRIPTABLE Q_SLOT QDBusVariant Read(const QString& group, const QString& key) {
        asked = group + u'/' + key;
        // A variant in a variant, as the real one answers.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(m_scheme)));
    }

    Q_SCRIPTABLE Q_SIGNAL void SettingChanged(const QString& group,
                                              const QString& key,
                                              const QDBusVariant& value);
    // NOLINTEND(readability-identifier-naming)

    QString asked;

private:
    QString m_name;
    QDBusConnection m_bus;
    uint m_scheme;
};

}  // namespace quillbar
