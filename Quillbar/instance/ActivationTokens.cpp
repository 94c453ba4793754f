// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ActivationTokens.h"

namespace quillbar {

namespace {

const QString kActivationKey = QStringLiteral("activation-token");
const QString kStartupIdKey = QStringLiteral("desktop-startup-id");

QString textAt(const QVariantMap& platformData, const QString& key) {
    const QVariant value = platformData.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

}  // namespace

ActivationTokens ActivationTokens::fromEnvironment(const EnvironmentVariables& variables) {
    return {QString::fromStdString(variables("XDG_ACTIVATION_TOKEN").value_or("")),
            QString::fromStdString(variables("DESKTOP_STARTUP_ID").value_or(""))};
}

ActivationTokens ActivationTokens::fromPlatformData(const QVariantMap& platformData) {
    return {textAt(platformData, kActivationKey), textAt(platformData, kStartupIdKey)};
}

QVariantMap ActivationTokens::platformData() const {
    QVariantMap data;
    if (!activation.isEmpty()) {
        data.insert(kActivationKey, activation);
    }
    if (!startupId.isEmpty()) {
        data.insert(kStartupIdKey, startupId);
    }
    return data;
}

}  // namespace quillbar
