// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/WorkArea.h"

#include "Quillbar/window/PanelPlacement.h"
#include "Quillbar/window/X11Session.h"

#include <QScreen>

namespace quillbar {

QRect workAreaBeside(QPoint anchor, const QScreen& screen) {
    const QRect area = screen.geometry();
    const QRect workArea = screen.availableGeometry();
    if (!workArea.contains(anchor)) {
        return workArea;
    }
    // Qt scales a screen, and what is on it, from the screen's own corner.
    const qreal ratio = screen.devicePixelRatio();
    const QPoint corner = area.topLeft();
    const auto dock = X11Session::dockAt(corner + (anchor - corner) * ratio);
    if (!dock) {
        return workArea;
    }
    const QRect bar(corner + (dock->topLeft() - corner) / ratio, dock->size() / ratio);
    return PanelPlacement::withoutBar(workArea, area, bar);
}

}  // namespace quillbar
