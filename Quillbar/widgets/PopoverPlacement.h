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

}  // namespace quillbar::PopoverPlacement
