// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <QPoint>
#include <QTest>
#include <QWidget>
#include <QWindow>

/// The mouse as the window system tells a window of it: the widget that is pressed hears of
/// everything until the release, wherever the pointer is. Places are in a widget.
namespace quillbar::pointer {

inline QWindow* windowOf(const QWidget& widget) {
    return widget.window()->windowHandle();
}
inline QPoint inWindow(const QWidget& widget, const QPoint& place) {
    return widget.mapTo(widget.window(), place);
}

inline void press(const QWidget& widget, const QPoint& place, Qt::MouseButton button) {
    QTest::mousePress(windowOf(widget), button, {}, inWindow(widget, place));
}
inline void pull(const QWidget& widget, const QPoint& place) {
    QTest::mouseMove(windowOf(widget), inWindow(widget, place));
}
inline void release(const QWidget& widget, const QPoint& place, Qt::MouseButton button) {
    QTest::mouseRelease(windowOf(widget), button, {}, inWindow(widget, place));
}

/// Lets go of the left button when it is still held, of which the application, and with it every
/// window that comes after this one, would know for good.
inline void letGo(const QWidget& widget) {
    if (QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) {
        release(widget, {}, Qt::LeftButton);
    }
}

}  // namespace quillbar::pointer
