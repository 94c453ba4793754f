// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// Where the panel goes. Pure; all in logical pixels of the desktop.
namespace quillbar::PanelPlacement {

/// The panel's distance from the bar and from the edges of the work area.
inline constexpr int kGap = 4;
/// How far a panel stands off a pointer that is not on a bar.
inline constexpr int kPointerOffset = 16;

/// The panel's rectangle beside the item at `anchor`: against the bar that the anchor lies on, or
/// else below or above the anchor, whichever side of `screen` has more room; centred on the anchor
/// and inside `workArea` in any case, shrunk where it must be.
[[nodiscard]] QRect rectangle(QPoint anchor, QSize wanted, QRect screen, QRect workArea);

/// Where the panel goes when nobody can tell where the item is: beside the end of the bar, where
/// items usually are, and on a screen without a bar in the middle.
[[nodiscard]] QRect rectangleWithoutAnchor(QSize wanted, QRect screen, QRect workArea);

}  // namespace quillbar::PanelPlacement
