// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

/// Where a popover goes. Pure; all in logical pixels of the desktop.
namespace quillbar::PopoverPlacement {

/// The popover's distance from its anchor.
inline constexpr int kGap = 4;

/// The rectangle of a popover that wants that size: below its anchor, or above it where only there
/// is room enough, or else over it. Their right edges are on one line, as far as the popover is
/// then inside `workArea`, where it is in any case, shrunk if it must be.
[[nodiscard]] QRect rectangle(QRect anchor, QSize wanted, QRect workArea);

}  // namespace quillbar::PopoverPlacement
