// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ApplicationAdaptor.h"

#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/OutsideText.h"

#include <cstddef>
#include <utility>

namespace quillbar {

namespace {

// Any program of the session may send one of any length.
constexpr std::size_t kLongestNameInLog = 64;

}  // namespace

ApplicationAdaptor::ApplicationAdaptor(QObject* object, OnAction onAction)
    : QDBusAbstractAdaptor(object)
    , m_onAction(std::move(onAction)) {}

void ApplicationAdaptor::Activate(const QVariantMap& platformData) {
    m_onAction(ApplicationAction::togglePanel, ActivationTokens::fromPlatformData(platformData));
}

void ApplicationAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platformData) {
    m_onAction(ApplicationAction::showPanel, ActivationTokens::fromPlatformData(platformData));
}

void ApplicationAdaptor::ActivateAction(const QString& name,
                                        const QVariantList& /*parameters*/,
                                        const QVariantMap& platformData) {
    const std::string asked = name.toStdString();
    const auto action = actionNamed(asked);
    if (!action) {
        Logger("Application")
            .error("ignoring the unknown action \"{}\"",
                   OutsideText::shortened(asked, kLongestNameInLog));
        return;
    }
    m_onAction(*action, ActivationTokens::fromPlatformData(platformData));
}

}  // namespace quillbar
