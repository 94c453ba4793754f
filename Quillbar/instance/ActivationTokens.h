// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/Environment.h"

#include <QString>
#include <QVariantMap>

namespace quillbar {

/// What a desktop hands to a program that the user starts, so that its window may take the
/// keyboard's focus and the busy pointer ends. A plain value; each token is empty when there is
/// none.
struct ActivationTokens final {
    /// Wayland's token.
    QString activation;
    /// The startup notification of the X Window System.
    QString startupId;

    /// What XDG_ACTIVATION_TOKEN and DESKTOP_STARTUP_ID hold. To be read before the QApplication is
    /// made, which takes them out of the environment.
    [[nodiscard]] static ActivationTokens fromEnvironment(const EnvironmentVariables& variables);

    /// What the platform data of an org.freedesktop.Application call says; anything that is not a
    /// text counts as absent.
    [[nodiscard]] static ActivationTokens fromPlatformData(const QVariantMap& platformData);

    /// As platform data; absent tokens have no entry.
    [[nodiscard]] QVariantMap platformData() const;

    bool operator==(const ActivationTokens&) const = default;
};

}  // namespace quillbar
