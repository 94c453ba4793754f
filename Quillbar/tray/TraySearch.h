// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/StatusItemEnvironment.h"
#include "Quillbar/tray/TrayHost.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QDBusMessage>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace quillbar {

/// Finds a tray for the status item, and another one when that is gone. It takes a
/// StatusNotifierWatcher on D-Bus whenever there is one. If there was none for `kPatience`, it
/// takes a tray of the older protocol until a watcher comes. A watcher that refuses the item counts
/// as none, and is asked again after each `kPatience`. A watcher that does not answer counts as
/// having taken the item.
///
/// Lives on the main thread, which it never blocks.
class TraySearch final : public QObject {
public:
    /// How long a tray host may take to start.
    static constexpr Seconds kPatience{10};

    /// Called for what is found. All are set. None may destroy the search.
    struct Handlers final {
        /// A host has come, and gets the item next. The item must be ready for it when this
        /// returns.
        std::function<void(const TrayHost& host)> hostFound;
        /// The host has taken the item.
        std::function<void()> hostTook;
        /// The item must appear in the older tray, or leave it. It must also leave it when a host
        /// is found or takes the item.
        std::function<void(bool isUsed)> olderTray;
        /// There is no tray, and there was none; without a bus, also when a tray is gone. It is
        /// called again only after a tray took the item.
        std::function<void()> noTray;
        /// After `noTray`, a tray came and took the item. At most once for each `noTray`.
        std::function<void()> tray;
        /// A host was asked to take the item, or there is none. Called once, perhaps inside
        /// `start`, or never if the bus does not answer.
        std::function<void()> offered;
    };

    /// The environment outlives the search.
    TraySearch(const StatusItemEnvironment& environment, Handlers handlers);

    /// Begins the search. Call it once, after the item was exported on the bus.
    void start();

    /// Whether there is a host, even one that refuses the item.
    [[nodiscard]] bool hasHost() const { return !m_watcher.isEmpty(); }
    /// Whether there is a host that has not refused the item.
    [[nodiscard]] bool isOffered() const { return hasHost() && !m_isRefused; }

private:
    using Reply = std::function<void(const QDBusMessage&)>;

    void ask(const QDBusMessage& question, Reply reply);
    void lookForHost();
    void meetFirst();
    void watcherIs(const QString& owner);
    void setWatcher(const QString& owner);
    void meet(const QString& owner, const QDBusMessage& process);
    void registerWith(const QString& owner);
    void registrationFailed(const QString& owner, const QString& why);
    Task<void> registerLater(QString owner);
    void loseWatcher();

    void waitForWatcher();
    Task<void> lookForOlderTray();
    Task<void> untilOlderTrayIsGone();

    void reportOffered();
    void reportNoTray();
    void reportTray();

    const StatusItemEnvironment& m_environment;
    Handlers m_handlers;
    Logger m_logger{"StatusItem"};
    /// The unique name of the watcher; empty without one.
    QString m_watcher;
    /// The watcher that was there at the start, until the bus tells of another owner.
    QString m_firstHost;
    /// The bus's answer about its process.
    std::optional<QDBusMessage> m_firstProcess;
    bool m_isRefused = false;
    bool m_hadTray = false;
    bool m_toldNoTray = false;
    TaskScope::Handle m_waiting;
    TaskScope::Handle m_registering;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
