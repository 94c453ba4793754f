// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/TrayHost.h"

#include <QPoint>

namespace quillbar {

/// Whether the pointer's position, as the window system tells it, is that of this moment. Under
/// Wayland it stands still while the pointer is over other programs' windows.
enum class PointerPosition { current, outdated };

/// Where a position in the pixels of a screen, as hosts under X11 tell it, is in logical pixels, the
/// unit of the pointer's position and of windows. The screen's corner `origin` is the same in both;
/// `ratio` is how many of its pixels one logical pixel has. Pure.
[[nodiscard]] QPoint logicalPosition(QPoint native, QPoint origin, double ratio);

/// Where on the screen a click on the status item was: what the panel opens beside. The pointer's
/// position is better than the one `reported` by the host, where both may be trusted, but for a host
/// that was told by the keyboard: then the pointer is far from it. `reportedInBar` says whether the
/// reported position lies on a screen and outside of its work area. All are in logical pixels. Pure.
[[nodiscard]] QPoint clickAnchor(QPoint reported,
                                 bool reportedInBar,
                                 QPoint pointer,
                                 PointerPosition trust,
                                 TrayHost::ClickPosition host);

}  // namespace quillbar
