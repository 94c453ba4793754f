// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/DesktopShade.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <utility>

namespace quillbar {

namespace {

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");

// The answer to a question is a variant in a variant.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

}  // namespace

DesktopShade::DesktopShade(QDBusConnection bus, std::function<void(ShadePreference)> onChange)
    : m_bus(std::move(bus))
    , m_onChange(std::move(onChange)) {
    // Qt 6.4 drops signals with a variant if the process has not used that type on a bus before.
    qDBusRegisterMetaType<QDBusVariant>();
    // From any sender: for a named sender, Qt asks the bus for the owner of the name, and waits for
    // the answer.
    m_bus.connect(QString(),
                  kPath,
                  kInterface,
                  QStringLiteral("SettingChanged"),
                  this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
    // An application that starts with the session may start before the portal.
    auto* const portals =
        new QDBusServiceWatcher(kPortal, m_bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(portals, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
    ask();
}

void DesktopShade::ask() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(kPortal, kPath, kInterface, QStringLiteral("Read"));
    question << kGroup << kKey;
    auto* const answer = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError()) {
            tell(reply.value().variant());
        }
        answer->deleteLater();
    });
}

void DesktopShade::settingChanged(const QString& group,
                                  const QString& key,
                                  const QDBusVariant& value) {
    if (group == kGroup && key == kKey) {
        tell(value.variant());
    }
}

void DesktopShade::tell(const QVariant& scheme) const {
    constexpr uint kPrefersDark = 1;
    constexpr uint kPrefersLight = 2;
    switch (unwrapped(scheme).toUInt()) {
    case kPrefersDark:
        m_onChange(ShadePreference::dark);
        break;
    case kPrefersLight:
        m_onChange(ShadePreference::light);
        break;
    default:
        m_onChange(ShadePreference::unknown);
    }
}

}  // namespace quillbar
