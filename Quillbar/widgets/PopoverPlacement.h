// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

/// Where a popover goes. Pure; all in logical pixels of the desktop.
namespace quillbar::PopoverPlacement {

/// The popover's distance from its anchor.
inline constexpr int kGap = 4;

/// The rectangle of a popover that wants that size: below its anchor, or above it if there is
/// enough room only there, or else over it. It is always inside `workArea`, and is shrunk if it
/// must be. Their right edges are in line if that is possible.
[[nodiscard]] QRect rectangle(QRect anchor, QSize wanted, QRect workArea);

/// The least width from `width` up, in points, that is a whole number of pixels at that scale;
/// `width` itself for a scale at which no width of the next few is one. Qt rounds places to whole
/// pixels, so two windows have their right edges on one pixel, wherever they are, only if their
/// widths are whole.
[[nodiscard]] int wholeInPixels(int width, double scale);

}  // namespace quillbar::PopoverPlacement
