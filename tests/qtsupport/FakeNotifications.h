// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVariantMap>

#include <vector>

namespace quillbar {

/// A desktop's notification server.
class FakeNotifications final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Notice {
        uint number;
        uint replaces;
        QString title;
        QString text;
        QStringList actions;
        QVariantMap hints;
        QString application = {};
        QString icon = {};
        int time = 0;
    };

    explicit FakeNotifications(const QString& address)
        : m_name(QUuid::createUuid().toString())
        , m_bus(QDBusConnection::connectToBus(address, m_name)) {
        m_bus.registerObject(
            QStringLiteral("/org/freedesktop/Notifications"),
            this,
            QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableSignals);
    }
    FakeNotifications(const FakeNotifications&) = delete;
    FakeNotifications& operator=(const FakeNotifications&) = delete;
    FakeNotifications(FakeNotifications&&) = delete;
    FakeNotifications& operator=(FakeNotifications&&) = delete;
    ~FakeNotifications() override { QDBusConnection::disconnectFromBus(m_name); }

    /// Takes the server's name on the bus.
    void begin() { m_bus.registerService(QStringLiteral("org.freedesktop.Notifications")); }
    /// Gives it back.
    void end() { m_bus.unregisterService(QStringLiteral("org.freedesktop.Notifications")); }

    /// The user clicks a notice.
    void choose(uint number, const QString& token) {
        giveToken(number, token);
        act(number, QStringLiteral("default"));
    }
    /// Half of that each.
    void giveToken(uint number, const QString& token) { Q_EMIT ActivationToken(number, token); }
    void act(uint number, const QString& action) { Q_EMIT ActionInvoked(number, action); }

    // NOLINTBEGIN(readability-identifier-naming, modernize-use-nodiscard): as the protocol has them
    Q_SCRIPTABLE Q_SLOT QStringList GetCapabilities() const { return capabilities; }
    // NOLINTNEXTLINE(readability-function-size): the protocol has eight arguments
    Q_SCRIPTABLE Q_SLOT uint Notify(const QString& application,
                                    uint replaces,
                                    const QString& icon,
                                    const QString& title,
                                    const QString& text,
                                    const QStringList& actions,
                                    const QVariantMap& hints,
                                    int time) {
        if (isRefusing) {
            ++refused;
            return 0;
        }
        const uint number = replaces == 0 ? ++m_last : replaces;
        notices.push_back({number, replaces, title, text, actions, hints, application, icon, time});
        return number;
    }
    Q_SCRIPTABLE Q_SIGNAL void ActionInvoked(uint number, const QString& action);
    Q_SCRIPTABLE Q_SIGNAL void ActivationToken(uint number, const QString& token);
    // NOLINTEND(readability-identifier-naming, modernize-use-nodiscard)

    QStringList capabilities{QStringLiteral("actions"),
                             QStringLiteral("body"),
                             QStringLiteral("body-markup")};
    std::vector<Notice> notices;
    /// Whether it answers with no number to every notice, and to how many it did.
    bool isRefusing = false;
    int refused = 0;

private:
    QString m_name;
    QDBusConnection m_bus;
    uint m_last = 40;
};

}  // namespace quillbar
