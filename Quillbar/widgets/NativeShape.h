// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

#include <vector>

struct xcb_connection_t;
class QWidget;

/// The outline of a window as the X server knows it. Qt's masks are made of logical pixels, which
/// are blocks on a screen that is scaled.
namespace quillbar::NativeShape {

/// Qt's connection to the X server, which it owns; null on other platforms. Needs a
/// QGuiApplication.
[[nodiscard]] xcb_connection_t* connection();

/// What is left of a rectangle of that size when its corners are round, in lines from above. Pure.
[[nodiscard]] std::vector<QRect> outline(QSize pixels, double radius);

/// Cuts the corners of a window off, round to the pixel of the screen, at the window's size. Call
/// it after the window has got a mask, which it replaces in the server. Does nothing before there
/// is a native window, and on other platforms.
void cutCorners(const QWidget& window, double radius);

}  // namespace quillbar::NativeShape
