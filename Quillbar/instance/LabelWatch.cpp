// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/LabelWatch.h"

#include "Quillbar/instance/ApplicationNames.h"
#include "Quillbar/instance/BusCalls.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QLatin1String>
#include <QStringList>

#include <utility>

namespace quillbar {

LabelWatch::LabelWatch(QDBusConnection bus, std::function<void()> onChange)
    : LabelWatch(std::move(bus), std::move(onChange), Timing()) {}

LabelWatch::LabelWatch(QDBusConnection bus, std::function<void()> onChange, Timing timing)
    : m_bus(std::move(bus))
    , m_onChange(std::move(onChange))
    , m_timing(timing) {
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, &LabelWatch::read);
    m_bus.connect(QStringLiteral("org.freedesktop.DBus"),
                  QStringLiteral("/org/freedesktop/DBus"),
                  QStringLiteral("org.freedesktop.DBus"),
                  QStringLiteral("NameOwnerChanged"),
                  {QString(QLatin1String(ApplicationNames::kBusName))},
                  QString(),
                  this,
                  SLOT(ownerChanged(QString, QString, QString)));
    // From any sender: for a named sender, Qt asks the bus for the owner of the name, and waits for
    // the answer.
    m_bus.connect(QString(),
                  QLatin1String(ApplicationNames::kObjectPath),
                  QLatin1String(ApplicationNames::kLabelInterface),
                  QStringLiteral("Changed"),
                  this,
                  SLOT(labelChanged(QVariantMap, QDBusMessage)));
    findOwner();
}

void LabelWatch::findOwner() {
    QDBusMessage question = callOfTheBus("GetNameOwner");
    question << QString(QLatin1String(ApplicationNames::kBusName));
    auto* const watcher = new QDBusPendingCallWatcher(
        m_bus.asyncCall(question, static_cast<int>(m_timing.patience.count())), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QString> reply = *watcher;
        // A change that came before this answer is newer.
        if (m_owner.isEmpty()) {
            setOwner(reply.isError() ? QString() : reply.value());
        }
    });
}

void LabelWatch::ownerChanged(const QString& /*name*/,
                              const QString& /*oldOwner*/,
                              const QString& newOwner) {
    setOwner(newOwner);
}

void LabelWatch::setOwner(const QString& owner) {
    m_owner = owner;
    if (m_owner.isEmpty()) {
        resolve(std::nullopt);
    } else {
        read();
    }
}

void LabelWatch::read() {
    const QString asked = m_owner;
    const QDBusMessage question =
        QDBusMessage::createMethodCall(asked,
                                       QLatin1String(ApplicationNames::kObjectPath),
                                       QLatin1String(ApplicationNames::kLabelInterface),
                                       QStringLiteral("Read"));
    auto* const watcher = new QDBusPendingCallWatcher(
        m_bus.asyncCall(question, static_cast<int>(m_timing.patience.count())), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, asked] {
        watcher->deleteLater();
        if (asked != m_owner) {
            return;
        }
        const QDBusPendingReply<QVariantMap> reply = *watcher;
        resolve(reply.isError() ? std::nullopt : labelReport(reply.value()));
    });
}

void LabelWatch::labelChanged(const QVariantMap& label, const QDBusMessage& message) {
    if (!m_owner.isEmpty() && message.service() == m_owner) {
        resolve(labelReport(label));
    }
}

void LabelWatch::resolve(std::optional<LabelReport> report) {
    if (m_owner.isEmpty()) {
        m_silence.stop();
    } else {
        m_silence.start(m_timing.interval);
    }
    if (m_isResolved && m_report == report) {
        return;
    }
    m_isResolved = true;
    m_report = std::move(report);
    m_onChange();
}

}  // namespace quillbar
