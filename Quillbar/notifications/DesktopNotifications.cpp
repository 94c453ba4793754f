// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/notifications/DesktopNotifications.h"

#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/runtime/Logger.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QMetaObject>
#include <QVariantMap>

#include <utility>

namespace quillbar {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
// The action of a click on the notice itself.
const QString kDefaultAction = QStringLiteral("default");
constexpr int kServersOwnTime = -1;
constexpr uchar kNormalUrgency = 1;

// Every sound theme has a sound of this name, for a message that has come.
const QString kSound = QStringLiteral("message-new-instant");

QVariantMap hintsOf(const DesktopNotifications::Notice& notice) {
    QVariantMap hints{
        {QStringLiteral("urgency"), QVariant::fromValue(kNormalUrgency)},
        {QStringLiteral("desktop-entry"), QStringLiteral("io.github.quillbar.Quillbar")}};
    if (notice.hasSound) {
        hints.insert(QStringLiteral("sound-name"), kSound);
    } else {
        hints.insert(QStringLiteral("suppress-sound"), true);
    }
    return hints;
}

QDBusMessage callOf(const QString& method) {
    return QDBusMessage::createMethodCall(kService, kPath, kService, method);
}

}  // namespace

DesktopNotifications::DesktopNotifications(QDBusConnection bus)
    : m_bus(std::move(bus)) {}

void DesktopNotifications::show(const Notice& notice,
                                std::function<void(std::optional<uint> number)> onOutcome) {
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            this,
            [onOutcome = std::move(onOutcome)] { onOutcome(std::nullopt); },
            Qt::QueuedConnection);
        return;
    }
    listen();
    if (m_capabilities) {
        send(notice, std::move(onOutcome));
        return;
    }
    auto* const answer = new QDBusPendingCallWatcher(
        m_bus.asyncCall(callOf(QStringLiteral("GetCapabilities")), kPatienceMs), this);
    connect(answer,
            &QDBusPendingCallWatcher::finished,
            this,
            [this, answer, notice, onOutcome = std::move(onOutcome)] {
                answer->deleteLater();
                const QDBusMessage reply = answer->reply();
                if (reply.type() != QDBusMessage::ReplyMessage) {
                    Logger("Notifications")
                        .log("no notification server: {}", reply.errorMessage().toStdString());
                    watchForServer();
                    onOutcome(std::nullopt);
                    return;
                }
                m_capabilities = reply.arguments().value(0).toStringList();
                send(notice, onOutcome);
            });
}

void DesktopNotifications::send(const Notice& notice,
                                std::function<void(std::optional<uint> number)> onOutcome) {
    const QStringList& capabilities = *m_capabilities;
    QString title = notice.title;
    QString text = notice.text;
    if (!capabilities.contains(QStringLiteral("body"))) {
        title += QStringLiteral(" · ") + text.replace(u'\n', u' ');
        text.clear();
    } else if (capabilities.contains(QStringLiteral("body-markup"))) {
        text = text.toHtmlEscaped();
    }
    QStringList actions;
    if (capabilities.contains(QStringLiteral("actions"))) {
        actions << kDefaultAction << translated("notifications", "查看走势");
    }
    QDBusMessage call = callOf(QStringLiteral("Notify"));
    call << QStringLiteral("Quillbar") << notice.replaces
         << QStringLiteral("io.github.quillbar.Quillbar") << title << text << actions
         << hintsOf(notice) << kServersOwnTime;
    auto* const answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call, kPatienceMs), this);
    connect(answer,
            &QDBusPendingCallWatcher::finished,
            this,
            [this, answer, onOutcome = std::move(onOutcome)] {
                answer->deleteLater();
                const QDBusMessage reply = answer->reply();
                const uint number = reply.arguments().value(0).toUInt();
                if (reply.type() != QDBusMessage::ReplyMessage || number == 0) {
                    Logger("Notifications")
                        .error("a notice was not taken: {}", reply.errorMessage().toStdString());
                    // Another server may come, and can do other things.
                    m_capabilities.reset();
                    watchForServer();
                    onOutcome(std::nullopt);
                    return;
                }
                learnServer([onOutcome, number] { onOutcome(number); });
            });
}

void DesktopNotifications::learnServer(std::function<void()> done) {
    // Anew for each notice, as another server may have come. Qt 6.8 leaves the sender out of
    // replies.
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                                       QStringLiteral("/org/freedesktop/DBus"),
                                                       QStringLiteral("org.freedesktop.DBus"),
                                                       QStringLiteral("GetNameOwner"));
    call << kService;
    auto* const answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call, kPatienceMs), this);
    connect(
        answer, &QDBusPendingCallWatcher::finished, this, [this, answer, done = std::move(done)] {
            answer->deleteLater();
            const QDBusPendingReply<QString> owner = *answer;
            // A server that has gone sends no clicks.
            m_server = owner.isError() ? QString() : owner.value();
            done();
        });
}

void DesktopNotifications::listen() {
    if (std::exchange(m_isListening, true)) {
        return;
    }
    // By no name: asking the bus whose name it is would block. The sender is compared instead.
    m_bus.connect(QString(),
                  kPath,
                  kService,
                  QStringLiteral("ActionInvoked"),
                  this,
                  SLOT(actionInvoked(uint, QString, QDBusMessage)));
    m_bus.connect(QString(),
                  kPath,
                  kService,
                  QStringLiteral("ActivationToken"),
                  this,
                  SLOT(activationToken(uint, QString, QDBusMessage)));
}

void DesktopNotifications::watchForServer() {
    if (std::exchange(m_isWatching, true)) {
        return;
    }
    auto* const owners =
        new QDBusServiceWatcher(kService, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owners,
            &QDBusServiceWatcher::serviceOwnerChanged,
            this,
            [this](const QString& /*service*/, const QString& /*before*/, const QString& owner) {
                m_capabilities.reset();
                if (!owner.isEmpty() && onServer) {
                    onServer();
                }
            });
}

void DesktopNotifications::actionInvoked(uint number,
                                         const QString& action,
                                         const QDBusMessage& message) {
    if (message.service() != m_server) {
        return;
    }
    const auto token = m_tokens.extract(number);
    if (action == kDefaultAction && onChosen) {
        onChosen(number, token ? token.mapped() : QString());
    }
}

void DesktopNotifications::activationToken(uint number,
                                           const QString& token,
                                           const QDBusMessage& message) {
    if (message.service() == m_server) {
        // It comes just before the action that it is for.
        m_tokens.clear();
        m_tokens.emplace(number, token);
    }
}

}  // namespace quillbar
