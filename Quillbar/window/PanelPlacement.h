// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// Where the panel goes. Pure; all in logical pixels of the desktop.
namespace quillbar::PanelPlacement {

/// The panel's distance from the edges of the work area. It touches the bar with the item, so that
/// the pointer passes over no other window on its way to the panel. On desktops where the focus
/// follows the pointer, such a window would take the focus.
inline constexpr int kGap = 4;
/// The distance of the panel from a pointer that is not on a bar.
inline constexpr int kPointerOffset = 16;

/// The panel's rectangle beside the item at `anchor`. If the anchor is on a bar, the panel touches
/// that bar; otherwise it is below or above the anchor, where `screen` has more room. It is centred
/// on the anchor as far as it fits into `workArea`, and shrunk if it must be.
[[nodiscard]] QRect rectangle(QPoint anchor, QSize wanted, QRect screen, QRect workArea);

/// The work area of a screen with a bar that no window manager has taken off it: `workArea` without
/// the side that `bar` lies along. Unchanged for a bar that touches no edge of `screen`, or takes
/// half of it.
[[nodiscard]] QRect withoutBar(QRect workArea, QRect screen, QRect bar);

/// The panel's rectangle when the place of the item is unknown: beside the end of the bar, where
/// items usually are, or in the middle of a screen without a bar.
[[nodiscard]] QRect rectangleWithoutAnchor(QSize wanted, QRect screen, QRect workArea);

/// The rectangle of a panel that the user has dragged somewhere. Its upper left corner stays,
/// unless the panel would not be inside `workArea`. It is shrunk if it must be.
[[nodiscard]] QRect rectangleAt(QPoint topLeft, QSize wanted, QRect workArea);

}  // namespace quillbar::PanelPlacement
