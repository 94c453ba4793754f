// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

class QPoint;
class QWidget;

/// The windows of this program: the panel with its menus, popovers and dialogs. For the main
/// thread.
namespace quillbar::OwnWindows {

/// Whether one of them has the keyboard's focus.
[[nodiscard]] bool haveFocus();
/// Whether a menu, a popover or a dialog of one of them is open, which takes all presses.
[[nodiscard]] bool haveOpenPopup();
/// Whether one that is shown covers this point of the desktop, its frame included.
[[nodiscard]] bool cover(const QPoint& point);
/// Closes the menus and popovers of this window, which would stay when it is hidden.
void closePopupsOf(const QWidget& window);

}  // namespace quillbar::OwnWindows
