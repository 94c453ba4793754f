// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace quillbar {

/// Where the panel goes. Pure; all in logical pixels of the desktop.
namespace PanelPlacement {

/// The panel's distance from the bar and from the edges of the work area.
inline constexpr int kGap = 4;
/// How far a panel stands off a pointer that is not on a bar.
inline constexpr int kPointerOffset = 16;

/// The panel's rectangle beside the item at `anchor`: against the bar that the anchor lies on, or
/// else below or above the anchor, whichever side of `screen` has more room; centred on the anchor
/// and inside `workArea` in any case, shrunk where it must be.
[[nodiscard]] QRect rectangle(QPoint anchor, QSize wanted, QRect screen, QRect workArea);

/// What can tell where the item is.
enum class PointerTrust {
    /// An X11 session: the pointer's position is always fresh.
    pointer,
    /// A Wayland session, where an X11 program learns the pointer's position only over its own
    /// windows.
    host,
};

/// The item's place after a click that the host says was at `clicked` (absent when it says nothing)
/// with the pointer at `pointer`. Hosts may report nonsense, so on X11 the pointer is believed,
/// unless it is far from a click that lies on a bar: that was the keyboard.
[[nodiscard]] QPoint anchor(PointerTrust trust,
                            std::optional<QPoint> clicked,
                            QPoint pointer,
                            QRect screenOfClick,
                            QRect workAreaOfClick);

}  // namespace PanelPlacement

}  // namespace quillbar
