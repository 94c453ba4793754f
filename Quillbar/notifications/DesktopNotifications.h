// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>

namespace quillbar {

/// The desktop's notices, through org.freedesktop.Notifications on the session bus. Never blocks.
/// What the server can do is asked before the first notice. Main thread; after the destructor
/// nothing is called. Notices that are shown stay.
class DesktopNotifications final : public QObject {
    Q_OBJECT

public:
    /// How long the server may take; the bus may have to start it first.
    static constexpr int kPatienceMs = 10'000;

    struct Notice final {
        QString title;
        /// Plain text.
        QString text;
        /// The notice that this one replaces; 0 for none. A server that does not know it shows a
        /// notice of its own.
        uint replaces = 0;
        /// Whether a sound is asked for. Otherwise the server is asked to make none.
        bool hasSound = false;
    };

    /// Without a connected bus every notice fails.
    explicit DesktopNotifications(QDBusConnection bus);

    /// Shows a notice. `onOutcome` is called once, from the event loop: with the notice's number,
    /// or with nothing when no server took it.
    void show(const Notice& notice, std::function<void(std::optional<uint> number)> onOutcome);

    /// The user has chosen a notice that was shown by this object. `token` lets a window take the
    /// focus, and may be empty.
    std::function<void(uint number, const QString& token)> onChosen;
    /// A server has appeared after a notice had failed.
    std::function<void()> onServer;

private:
    Q_SLOT void actionInvoked(uint number, const QString& action, const QDBusMessage& message);
    Q_SLOT void activationToken(uint number, const QString& token, const QDBusMessage& message);

    void listen();
    void send(const Notice& notice, std::function<void(std::optional<uint> number)> onOutcome);
    void learnServer(std::function<void()> done);
    void watchForServer();

    QDBusConnection m_bus;
    bool m_isListening = false;
    bool m_isWatching = false;
    // What the server can do; absent until it has told.
    std::optional<QStringList> m_capabilities;
    // The server's own name on the bus, and the tokens that it sent, by notice.
    QString m_server;
    std::map<uint, QString> m_tokens;
};

}  // namespace quillbar
