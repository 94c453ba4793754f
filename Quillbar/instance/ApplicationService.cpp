// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ApplicationService.h"

#include "Quillbar/instance/ApplicationNames.h"
#include "Quillbar/instance/BusCalls.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QLatin1String>
#include <QMetaObject>

#include <utility>

namespace quillbar {

namespace {

// The bus's own words for the flag and for its answers.
constexpr uint kDoNotQueue = 4;
constexpr uint kPrimaryOwner = 1;
constexpr uint kAlreadyOwner = 4;

}  // namespace

ApplicationService::ApplicationService(QDBusConnection bus, ApplicationAdaptor::OnAction onAction)
    : m_bus(std::move(bus))
    , m_onAction(std::move(onAction))
    , m_early(std::in_place)
    , m_label(new LabelAdaptor(&m_object))
    , m_alerts(new AlertAdaptor(&m_object)) {
    new ApplicationAdaptor(&m_object,
                           [this](ApplicationAction action, const ActivationTokens& tokens) {
                               if (m_early) {
                                   m_early->emplace_back(action, tokens);
                               } else {
                                   m_onAction(action, tokens);
                               }
                           });
    m_bus.registerObject(
        QLatin1String(ApplicationNames::kObjectPath), &m_object, QDBusConnection::ExportAdaptors);
}

ApplicationService::~ApplicationService() {
    m_bus.unregisterObject(QLatin1String(ApplicationNames::kObjectPath));
    if (m_hasName) {
        QDBusMessage release = callOfTheBus("ReleaseName");
        release << QString(QLatin1String(ApplicationNames::kBusName));
        m_bus.send(release);
    }
}

void ApplicationService::claim(std::function<void(Claim)> onOutcome,
                               std::chrono::milliseconds patience) {
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            &m_object,
            [this, onOutcome = std::move(onOutcome)] { tell(onOutcome, Claim::noBus); },
            Qt::QueuedConnection);
        return;
    }
    QDBusMessage request = callOfTheBus("RequestName");
    request << QString(QLatin1String(ApplicationNames::kBusName)) << kDoNotQueue;
    auto* const watcher = new QDBusPendingCallWatcher(
        m_bus.asyncCall(request, static_cast<int>(patience.count())), &m_object);
    QObject::connect(watcher,
                     &QDBusPendingCallWatcher::finished,
                     &m_object,
                     [this, watcher, onOutcome = std::move(onOutcome)] {
                         watcher->deleteLater();
                         const QDBusPendingReply<uint> reply = *watcher;
                         if (reply.isError()) {
                             tell(onOutcome, Claim::noBus);
                             return;
                         }
                         const uint answer = reply.value();
                         m_hasName = answer == kPrimaryOwner || answer == kAlreadyOwner;
                         tell(onOutcome, m_hasName ? Claim::claimed : Claim::alreadyRunning);
                     });
}

void ApplicationService::tell(const std::function<void(Claim)>& onOutcome, Claim claim) {
    onOutcome(claim);
    const auto early = std::exchange(m_early, std::nullopt);
    if (!early) {
        return;
    }
    for (const auto& [action, tokens] : *early) {
        m_onAction(action, tokens);
    }
}

}  // namespace quillbar
