// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/TraySearch.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

#include <utility>

namespace quillbar {

namespace {

const QString kWatcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kProcessQuestion = QStringLiteral("GetConnectionUnixProcessID");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");

// A busy host that does not answer in time has got the registration nevertheless.
bool isSilence(const QDBusMessage& reply) {
    const QDBusError::ErrorType type = QDBusError(reply).type();
    return type == QDBusError::NoReply || type == QDBusError::Timeout
           || type == QDBusError::TimedOut;
}

QDBusMessage questionToBus(const QString& method, const QString& argument) {
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage question =
        QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
    question << argument;
    return question;
}

}  // namespace

TraySearch::TraySearch(const StatusItemEnvironment& environment, Handlers handlers)
    : m_environment(environment)
    , m_handlers(std::move(handlers))
    , m_scope(environment.executor) {}

void TraySearch::start() {
    if (m_environment.bus.isConnected()) {
        auto* const owners = new QDBusServiceWatcher(
            kWatcherService, m_environment.bus, QDBusServiceWatcher::WatchForOwnerChange, this);
        connect(
            owners,
            &QDBusServiceWatcher::serviceOwnerChanged,
            this,
            [this](const QString& /*service*/, const QString& /*before*/, const QString& owner) {
                watcherIs(owner);
            });
        lookForHost();
    } else {
        reportOffered();
    }
    waitForWatcher();
}

// The host's name and its process are asked for at once, so that a start waits for one answer less.
// Should another host come between the two answers, the bus tells of it, and it is met in its turn.
void TraySearch::lookForHost() {
    ask(questionToBus(QStringLiteral("GetNameOwner"), kWatcherService),
        [this](const QDBusMessage& reply) {
            const QString owner = reply.type() == QDBusMessage::ReplyMessage
                                      ? reply.arguments().value(0).toString()
                                      : QString();
            if (owner.isEmpty()) {
                reportOffered();
            } else if (owner != m_watcher) {
                setWatcher(owner);
                m_firstHost = owner;
                meetFirst();
            }
        });
    ask(questionToBus(kProcessQuestion, kWatcherService), [this](const QDBusMessage& reply) {
        m_firstProcess = reply;
        meetFirst();
    });
}

// Qt may hand over the two answers in either order.
void TraySearch::meetFirst() {
    if (!m_firstHost.isEmpty() && m_firstProcess) {
        meet(std::exchange(m_firstHost, QString()), *m_firstProcess);
    }
}

void TraySearch::ask(const QDBusMessage& question, Reply reply) {
    auto* const answer = new QDBusPendingCallWatcher(m_environment.bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, reply = std::move(reply)] {
        answer->deleteLater();
        reply(answer->reply());
    });
}

void TraySearch::watcherIs(const QString& owner) {
    if (owner == m_watcher) {
        return;
    }
    m_firstHost.clear();
    if (owner.isEmpty()) {
        loseWatcher();
        return;
    }
    setWatcher(owner);
    ask(questionToBus(kProcessQuestion, owner),
        [this, owner](const QDBusMessage& reply) { meet(owner, reply); });
}

void TraySearch::setWatcher(const QString& owner) {
    m_watcher = owner;
    m_isRefused = false;
    m_registering.cancel();
    m_waiting.cancel();
}

// Makes the item ready before the host is told of it.
void TraySearch::meet(const QString& owner, const QDBusMessage& process) {
    if (owner != m_watcher) {
        return;
    }
    m_handlers.hostFound(process.type() == QDBusMessage::ReplyMessage ? TrayHost::ofProcess(
                             m_environment.processName(process.arguments().value(0).toUInt()))
                                                                      : TrayHost{});
    registerWith(owner);
}

void TraySearch::registerWith(const QString& owner) {
    // Registered by the name of the connection. With a name of its own, GNOME's extension 46 loses
    // the item in two of five starts.
    QDBusMessage question = QDBusMessage::createMethodCall(
        owner, kWatcherPath, kWatcherService, QStringLiteral("RegisterStatusNotifierItem"));
    question << m_environment.bus.baseService();
    ask(question, [this, owner](const QDBusMessage& reply) {
        if (owner != m_watcher) {
            return;
        }
        if (reply.type() == QDBusMessage::ErrorMessage && !isSilence(reply)) {
            registrationFailed(owner, reply.errorMessage());
            return;
        }
        m_isRefused = false;
        m_waiting.cancel();
        m_handlers.hostTook();
        reportTray();
    });
    reportOffered();
}

void TraySearch::registrationFailed(const QString& owner, const QString& why) {
    // A second refusal of the same host changes nothing, and must not begin the wait again.
    if (!m_isRefused) {
        m_isRefused = true;
        m_logger.error("the tray host refused the item: {}", why.toStdString());
        waitForWatcher();
    }
    m_registering = m_scope.spawn(registerLater(owner));
}

Task<void> TraySearch::registerLater(QString owner) {
    co_await m_environment.sleeper(kPatience);
    registerWith(owner);
}

void TraySearch::loseWatcher() {
    m_watcher.clear();
    m_isRefused = false;
    m_registering.cancel();
    waitForWatcher();
}

void TraySearch::waitForWatcher() {
    m_waiting.cancel();
    m_waiting = m_scope.spawn(lookForOlderTray());
}

Task<void> TraySearch::lookForOlderTray() {
    const bool hasBus = m_environment.bus.isConnected();
    while (true) {
        // Without a bus no watcher can come.
        bool hasWaited = hasBus;
        if (hasWaited) {
            co_await m_environment.sleeper(kPatience);
        }
        while (!m_environment.hasOlderTray()) {
            if (hasWaited) {
                reportNoTray();
            }
            co_await m_environment.sleeper(kPatience);
            hasWaited = true;
        }
        m_handlers.olderTray(true);
        reportTray();
        if (hasBus) {
            // Even if this tray goes, commands still reach the application.
            co_return;
        }
        co_await untilOlderTrayIsGone();
        m_handlers.olderTray(false);
        // As at the start: without a bus nothing else reaches the application.
        m_hadTray = false;
    }
}

Task<void> TraySearch::untilOlderTrayIsGone() {
    while (m_environment.hasOlderTray()) {
        co_await m_environment.sleeper(kPatience);
    }
}

void TraySearch::reportOffered() {
    if (const auto report = std::exchange(m_handlers.offered, nullptr)) {
        report();
    }
}

void TraySearch::reportNoTray() {
    if (m_hadTray || m_toldNoTray) {
        return;
    }
    m_toldNoTray = true;
    m_logger.log("no tray host: the panel opens as a window");
    m_handlers.noTray();
}

void TraySearch::reportTray() {
    m_hadTray = true;
    if (std::exchange(m_toldNoTray, false)) {
        m_handlers.tray();
    }
}

}  // namespace quillbar
