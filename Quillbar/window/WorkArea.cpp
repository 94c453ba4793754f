// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/WorkArea.h"

#include "Quillbar/window/PanelPlacement.h"
#include "Quillbar/window/X11Session.h"

#include <QScreen>

namespace quillbar {

std::optional<QRect> barInWorkArea(QPoint anchor, const QScreen& screen) {
    if (!screen.availableGeometry().contains(anchor)) {
        return std::nullopt;
    }
    // Qt scales a screen, and what is on it, from the screen's own corner.
    const qreal ratio = screen.devicePixelRatio();
    const QPoint corner = screen.geometry().topLeft();
    const auto dock = X11Session::dockAt(corner + (anchor - corner) * ratio);
    if (!dock) {
        return std::nullopt;
    }
    return QRect(corner + (dock->topLeft() - corner) / ratio, dock->size() / ratio);
}

QRect workAreaWithout(const std::optional<QRect>& bar, const QScreen& screen) {
    const QRect workArea = screen.availableGeometry();
    return bar ? PanelPlacement::withoutBar(workArea, screen.geometry(), *bar) : workArea;
}

}  // namespace quillbar
