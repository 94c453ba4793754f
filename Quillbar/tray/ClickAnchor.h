// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/TrayHost.h"

#include <QPoint>

#include <optional>

namespace quillbar {

/// Whether the position of the pointer that the window system tells is up to date. Under Wayland it
/// does not change while the pointer is over windows of other programs.
enum class PointerPosition { current, outdated };

/// Converts a position from the pixels of a screen, which hosts under X11 report, to logical
/// pixels, the unit of the pointer's position and of windows. The screen's corner `origin` is the
/// same in both. `ratio` is the number of device pixels for each logical pixel. Pure.
[[nodiscard]] QPoint logicalPosition(QPoint native, QPoint origin, double ratio);

/// Where on the screen a click on the status item was: the panel opens beside it. If both positions
/// can be trusted, the pointer's is better than the one that the host has `reported`, except when
/// the item was activated by the keyboard: the pointer is far away then. Absent if neither can be
/// trusted. `reportedInBar` says whether the reported position is on a screen but outside of its
/// work area. All positions are in logical pixels. Pure.
[[nodiscard]] std::optional<QPoint> clickAnchor(QPoint reported,
                                                bool reportedInBar,
                                                QPoint pointer,
                                                PointerPosition trust,
                                                TrayHost::ClickPosition host);

}  // namespace quillbar
