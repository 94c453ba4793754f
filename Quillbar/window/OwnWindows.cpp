// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/OwnWindows.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPoint>
#include <QWidget>

#include <algorithm>

namespace quillbar::OwnWindows {

namespace {

// Other windows count, unlike with QWidget::isAncestorOf(). False for null.
bool isInside(const QWidget* widget, const QWidget& window) {
    while (widget != nullptr && widget != &window) {
        widget = widget->parentWidget();
    }
    return widget != nullptr;
}

}  // namespace

bool haveFocus() {
    return haveOpenPopup() || QGuiApplication::focusWindow() != nullptr;
}

bool haveOpenPopup() {
    return QApplication::activePopupWidget() != nullptr
           || QApplication::activeModalWidget() != nullptr;
}

bool cover(const QPoint& point) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [&point](const QWidget* window) {
        return window->isVisible() && window->frameGeometry().contains(point);
    });
}

void closePopupsOf(const QWidget& window) {
    const QWidget* closed = nullptr;
    QWidget* popup = QApplication::activePopupWidget();
    // One that refuses is not asked again.
    while (popup != closed && isInside(popup, window)) {
        closed = popup;
        popup->close();
        popup = QApplication::activePopupWidget();
    }
}

}  // namespace quillbar::OwnWindows
