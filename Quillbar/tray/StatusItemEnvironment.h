// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/ClickAnchor.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"

#include <QDBusConnection>
#include <QPoint>

#include <functional>
#include <string>

namespace quillbar {

/// What a status item needs of the world. All functions are set, and called on the main thread.
struct StatusItemEnvironment final {
    /// The session bus; one that is not connected counts as none.
    QDBusConnection bus;
    /// Outlives the status item.
    Executor& executor;
    Sleeper sleeper;
    /// Whether there is a tray of the X Window System's older protocol.
    std::function<bool()> hasOlderTray;
    /// The name of a process, as /proc/PID/comm tells it; empty when it cannot be read.
    std::function<std::string(uint processId)> processName;
    /// Where the pointer is, in logical pixels.
    std::function<QPoint()> pointer;
    PointerPosition pointerPosition = PointerPosition::current;
    /// The logical position of one that a host reported.
    std::function<QPoint(QPoint reported)> logicalPosition;
    /// Whether a logical position lies on a screen, but outside of its work area.
    std::function<bool(QPoint)> isInBar;

    /// That of the desktop that the application runs on, with its session bus. Needs a
    /// QApplication.
    [[nodiscard]] static StatusItemEnvironment ofDesktop(QDBusConnection bus,
                                                         Executor& executor,
                                                         Sleeper sleeper);
};

}  // namespace quillbar
