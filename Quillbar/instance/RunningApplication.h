// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/ActivationTokens.h"
#include "Quillbar/instance/ApplicationAction.h"
#include "Quillbar/instance/AppOptions.h"

#include <QDBusConnection>

#include <chrono>

/// The application that runs in this session, as another program of the user's sees it. Blocking
/// calls, for programs that do nothing else meanwhile; none starts the application.
namespace quillbar::RunningApplication {

/// The result of asking for an action.
enum class Outcome {
    /// The application has taken it.
    done,
    /// No application runs, or there is no bus.
    notRunning,
    /// It runs, but refused or did not answer in time.
    failed,
};

/// Whether the application runs. False when the bus does not answer within `patience`.
[[nodiscard]] bool isRunning(const QDBusConnection& bus,
                             std::chrono::milliseconds patience = std::chrono::seconds(2));

/// Asks the application for an action, and waits until it has taken it, for `patience` at the
/// longest.
[[nodiscard]] Outcome activate(const QDBusConnection& bus,
                               ApplicationAction action,
                               const ActivationTokens& tokens,
                               std::chrono::milliseconds patience = std::chrono::seconds(5));

/// Does what a start with these options asks of the application that runs: nothing in the
/// background, where its name on the bus is enough.
[[nodiscard]] Outcome request(const QDBusConnection& bus,
                              const AppOptions& options,
                              const ActivationTokens& tokens);

}  // namespace quillbar::RunningApplication
