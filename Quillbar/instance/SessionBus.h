// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/Environment.h"

#include <QDBusConnection>

#include <chrono>
#include <optional>

namespace quillbar::SessionBus {

/// How long a bus may take for its first word.
inline constexpr std::chrono::milliseconds kPatience{2000};

/// Whether a session bus is there and says its first word in time. Blocks, for `patience` at the
/// longest; a bus that is not there costs nothing, one that works about a millisecond.
///
/// Asks DBUS_SESSION_BUS_ADDRESS, or else the socket "bus" in XDG_RUNTIME_DIR. An address that is
/// no local socket is believed.
[[nodiscard]] bool answers(const EnvironmentVariables& variables,
                           std::chrono::milliseconds patience = kPatience);

/// The session bus; absent when there is none, or when it hangs, in which case Qt alone would wait
/// for 25 s. Starts no bus.
[[nodiscard]] std::optional<QDBusConnection> connect(
    const EnvironmentVariables& variables,
    std::chrono::milliseconds patience = kPatience);

/// Has everything in this process, and what it starts, find no session bus from here on: Qt asks
/// for one of its own accord (for screen readers, and for input methods), and waits without end for
/// one that hangs. To be called before the QApplication is made, and before anybody has asked for
/// the bus but through `answers`: the bus's library notes the address at its first use.
void putOutOfReach();

}  // namespace quillbar::SessionBus
