// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/NativeShape.h"

#include <QGuiApplication>
#include <QSizeF>
#include <QtGui/qguiapplication_platform.h>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>
#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace quillbar::NativeShape {

namespace {

/// How many pixels of that line, counted from the edge, are outside a corner.
int cutAt(int line, double radius) {
    const double fromCenter = radius - (line + 0.5);
    if (fromCenter <= 0) {
        return 0;
    }
    const double half = std::sqrt(radius * radius - fromCenter * fromCenter);
    return static_cast<int>(std::lround(radius - half));
}

}  // namespace

xcb_connection_t* connection() {
    // Without a screen, Qt's offscreen platform offers the interface too, with nothing behind it.
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr && QGuiApplication::platformName() == QLatin1String("xcb")
               ? x11->connection()
               : nullptr;
}

std::vector<QRect> outline(QSize pixels, double radius) {
    const int corner = std::min(static_cast<int>(std::ceil(radius)), pixels.height() / 2);
    std::vector<QRect> parts;
    for (int y = 0; y < corner; ++y) {
        const int cut = cutAt(y, radius);
        parts.emplace_back(cut, y, pixels.width() - 2 * cut, 1);
    }
    parts.emplace_back(0, corner, pixels.width(), pixels.height() - 2 * corner);
    for (int y = corner - 1; y >= 0; --y) {
        const QRect& mirrored = parts[static_cast<std::size_t>(y)];
        parts.emplace_back(mirrored.left(), pixels.height() - 1 - y, mirrored.width(), 1);
    }
    return parts;
}

void cutCorners(const QWidget& window, double radius) {
    xcb_connection_t* const server = connection();
    const QWindow* const native = window.windowHandle();
    if (server == nullptr || native == nullptr || native->handle() == nullptr) {
        return;
    }
    const double scale = window.devicePixelRatioF();
    std::vector<xcb_rectangle_t> parts;
    for (const QRect& part : outline((QSizeF(window.size()) * scale).toSize(), radius * scale)) {
        parts.push_back({static_cast<std::int16_t>(part.x()),
                         static_cast<std::int16_t>(part.y()),
                         static_cast<std::uint16_t>(std::max(0, part.width())),
                         static_cast<std::uint16_t>(std::max(0, part.height()))});
    }
    xcb_shape_rectangles(server,
                         XCB_SHAPE_SO_SET,
                         XCB_SHAPE_SK_BOUNDING,
                         XCB_CLIP_ORDERING_YX_BANDED,
                         static_cast<xcb_window_t>(native->winId()),
                         0,
                         0,
                         static_cast<std::uint32_t>(parts.size()),
                         parts.data());
    xcb_flush(server);
}

}  // namespace quillbar::NativeShape
