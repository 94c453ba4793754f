// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>

class QScreen;

namespace quillbar {

/// What bars leave free of the screen that the item at `anchor` is on, in logical pixels. Window
/// managers tell it; i3 does not, so there the bar's window is looked for at the anchor. Main thread.
[[nodiscard]] QRect workAreaBeside(QPoint anchor, const QScreen& screen);

}  // namespace quillbar
