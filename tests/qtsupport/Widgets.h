// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QApplication>
#include <QEnterEvent>
#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

#include <vector>

namespace quillbar {

/// Every widget of that class below `root`, in the order of their making. (Qt's own search knows
/// only classes that the meta-object compiler has seen.)
template <class Widget>
std::vector<Widget*> widgetsOf(const QWidget& root) {
    std::vector<Widget*> found;
    for (QWidget* const each : root.findChildren<QWidget*>()) {
        if (auto* const widget = dynamic_cast<Widget*>(each)) {
            found.push_back(widget);
        }
    }
    return found;
}

/// The first widget below `root` that is shown and has this accessible name; null for none.
inline QWidget* named(const QWidget& root, const QString& name) {
    for (QWidget* const each : root.findChildren<QWidget*>()) {
        if (each->isVisible() && each->accessibleName() == name) {
            return each;
        }
    }
    return nullptr;
}

/// Shows a window and gives it the focus of the keyboard.
inline void showActive(QWidget& window) {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(spinUntil([&window] { return window.isActiveWindow(); }));
}

/// What a widget shows, on the surface of its palette.
inline QImage pictureOf(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(ThemeKey::value(widget).colors.surface);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

/// The pointer comes over a widget, as the window system tells it.
inline void pointerEnters(QWidget& widget) {
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), widget.mapToGlobal(QPointF(1, 1)));
    QApplication::sendEvent(&widget, &event);
}

inline void pointerLeaves(QWidget& widget) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace quillbar
