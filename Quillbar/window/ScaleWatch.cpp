// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/ScaleWatch.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace quillbar {

ScaleWatch::Ratios ScaleWatch::ratiosOf(const QWindow& window) {
    const double ofWindow = window.devicePixelRatio();
    const QScreen* const screen = window.screen();
    return {.ofWindow = ofWindow,
            .ofScreen = screen != nullptr ? screen->devicePixelRatio() : ofWindow};
}

ScaleWatch::ScaleWatch(QWidget& window, LookUp lookUp, std::function<void()> onOutdated)
    : m_window(window)
    , m_lookUp(std::move(lookUp))
    , m_onOutdated(std::move(onOutdated)) {
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](const QScreen* screen) {
        follow(screen);
    });
    for (const QScreen* const screen : QGuiApplication::screens()) {
        follow(screen);
    }
}

void ScaleWatch::follow(const QScreen* screen) {
    // Newer versions of Qt have updated the window before the event loop runs again.
    connect(
        screen,
        &QScreen::physicalDotsPerInchChanged,
        this,
        [this] { check(); },
        Qt::QueuedConnection);
}

void ScaleWatch::check() {
    const QWindow* const native = m_window.windowHandle();
    if (native == nullptr) {
        return;
    }
    const Ratios ratios = m_lookUp(*native);
    if (ratios.ofWindow != ratios.ofScreen) {
        m_onOutdated();
    }
}

}  // namespace quillbar
