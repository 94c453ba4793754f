// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/SystemColorScheme.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace quillbar {

namespace {

const QString& portal() {
    static const QString name = QStringLiteral("org.freedesktop.portal.Desktop");
    return name;
}

const QString& path() {
    static const QString name = QStringLiteral("/org/freedesktop/portal/desktop");
    return name;
}

const QString& settings() {
    static const QString name = QStringLiteral("org.freedesktop.portal.Settings");
    return name;
}

const QString& group() {
    static const QString name = QStringLiteral("org.freedesktop.appearance");
    return name;
}

const QString& key() {
    static const QString name = QStringLiteral("color-scheme");
    return name;
}

ColorScheme schemeOfPalette() {
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness()
                   < palette.color(QPalette::WindowText).lightness()
               ? ColorScheme::dark
               : ColorScheme::light;
}

// The portal's numbers; every other one, 0 among them, means that it has no preference.
std::optional<ColorScheme> schemeOf(const QVariant& value) {
    switch (value.toUInt()) {
    case 1:
        return ColorScheme::dark;
    case 2:
        return ColorScheme::light;
    default:
        return std::nullopt;
    }
}

}  // namespace

SystemColorScheme::SystemColorScheme(QDBusConnection bus)
    : m_scheme(schemeOfPalette()) {
    qGuiApp->installEventFilter(this);
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(portal(),
                path(),
                settings(),
                QStringLiteral("SettingChanged"),
                this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(portal(), path(), settings(), QStringLiteral("Read"));
    question << group() << key();
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError()) {
            apply(reply.value().variant());
        }
        answer->deleteLater();
    });
}

bool SystemColorScheme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) {
        refresh();
    }
    return QObject::eventFilter(watched, event);
}

void SystemColorScheme::settingChanged(const QString& changedGroup,
                                       const QString& changedKey,
                                       const QDBusVariant& value) {
    if (changedGroup == group() && changedKey == key()) {
        apply(value.variant());
    }
}

void SystemColorScheme::apply(const QVariant& answer) {
    // Portals answer `Read` with a variant in a variant.
    const QVariant value =
        answer.canConvert<QDBusVariant>() ? answer.value<QDBusVariant>().variant() : answer;
    m_preference = schemeOf(value);
    refresh();
}

void SystemColorScheme::refresh() {
    m_scheme.set(m_preference ? *m_preference : schemeOfPalette());
}

}  // namespace quillbar
