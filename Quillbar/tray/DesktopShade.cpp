// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/DesktopShade.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace quillbar {

namespace {

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

DesktopShade::DesktopShade(QDBusConnection bus, std::function<void(BarShade)> onChange)
    : m_onChange(std::move(onChange)) {
    // Where the process has not used the type on a bus before, Qt 6.4 drops signals that carry a
    // variant.
    qDBusRegisterMetaType<QDBusVariant>();
    // From any sender: to name one would ask the bus for its owner, and wait for the answer.
    bus.connect(QString(),
                kPath,
                kInterface,
                QStringLiteral("SettingChanged"),
                this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                       kPath,
                                       kInterface,
                                       QStringLiteral("Read"));
    question << kGroup << kKey;
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
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
        m_onChange(BarShade::dark);
        break;
    case kPrefersLight:
        m_onChange(BarShade::light);
        break;
    default:
        m_onChange(BarShade::unknown);
    }
}

}  // namespace quillbar
