// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/ClickAnchor.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"

#include <QDBusConnection>
#include <QPoint>
#include <QString>

#include <functional>
#include <string>

namespace quillbar {

/// What a status item needs from outside. All functions are set, and are called on the main thread.
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
    /// Whether an icon of that name is installed for the desktop's theme.
    std::function<bool(const QString& name)> hasThemeIcon;
    /// Whether a menu that belongs to none of our windows can be shown. A Wayland compositor would
    /// show it as an ordinary window.
    bool canPopUpMenus = true;

    /// The environment of the desktop that the application runs on. Needs a QApplication.
    [[nodiscard]] static StatusItemEnvironment ofDesktop(QDBusConnection bus,
                                                         Executor& executor,
                                                         Sleeper sleeper);
};

}  // namespace quillbar
