// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/RunningApplication.h"

#include "Quillbar/instance/ApplicationNames.h"
#include "Quillbar/instance/BusCalls.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusReply>
#include <QVariantList>

#include <string_view>

namespace quillbar::RunningApplication {

bool isRunning(const QDBusConnection& bus, std::chrono::milliseconds patience) {
    QDBusMessage question = callOfTheBus("NameHasOwner");
    question << QString(QLatin1String(ApplicationNames::kBusName));
    const QDBusReply<bool> reply =
        bus.call(question, QDBus::Block, static_cast<int>(patience.count()));
    return reply.isValid() && reply.value();
}

Outcome activate(const QDBusConnection& bus,
                 ApplicationAction action,
                 const ActivationTokens& tokens,
                 std::chrono::milliseconds patience) {
    QDBusMessage request =
        QDBusMessage::createMethodCall(QLatin1String(ApplicationNames::kBusName),
                                       QLatin1String(ApplicationNames::kObjectPath),
                                       QLatin1String(ApplicationNames::kApplicationInterface),
                                       QStringLiteral("ActivateAction"));
    const std::string_view name = actionName(action);
    request << QString(QLatin1String(name.data(), static_cast<qsizetype>(name.size())))
            << QVariant(QVariantList()) << tokens.platformData();
    request.setAutoStartService(false);
    const QDBusMessage reply = bus.call(request, QDBus::Block, static_cast<int>(patience.count()));
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return Outcome::done;
    }
    switch (QDBusError(reply).type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::Disconnected:
        return Outcome::notRunning;
    default:
        return reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")
                   ? Outcome::notRunning
                   : Outcome::failed;
    }
}

Outcome request(const QDBusConnection& bus,
                const AppOptions& options,
                const ActivationTokens& tokens) {
    if (options.manner == StartManner::background) {
        return isRunning(bus) ? Outcome::done : Outcome::notRunning;
    }
    return activate(bus, options.action.value_or(ApplicationAction::togglePanel), tokens);
}

}  // namespace quillbar::RunningApplication
