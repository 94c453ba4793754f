// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>

#include <optional>

class QScreen;

namespace quillbar {

/// The bar that the item at `anchor` lies in, in logical pixels, where it takes nothing from the
/// work area: i3 tells nobody of its bar, so the bar's window is looked for at the anchor. Asks the
/// X server and waits for its answers. None where the window manager tells of the bar. Main thread.
[[nodiscard]] std::optional<QRect> barInWorkArea(QPoint anchor, const QScreen& screen);

/// What bars leave free of the screen, in logical pixels; `bar` is one that is in the work area.
[[nodiscard]] QRect workAreaWithout(const std::optional<QRect>& bar, const QScreen& screen);

}  // namespace quillbar
