// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/window/PanelWindow.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/window/PanelContent.h"

#include <QEnterEvent>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <QWindowStateChangeEvent>

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace quillbar {

/// A panel without an item of a desktop, in a time of its own.
class PanelWindowFixture : public ::testing::Test {
protected:
    void clickItem() {
        m_window.toggle(PanelWindow::AskedBy::pointer, QPoint{300, 0});
        m_elapsed += std::chrono::seconds(1);
    }

    /// The focus goes where no window of the program is.
    void loseFocus() {
        {
            QWidget other;
            other.show();
            other.activateWindow();
            EXPECT_TRUE(spinUntil([&other] { return other.isActiveWindow(); }));
        }
        ASSERT_EQ(QGuiApplication::focusWindow(), nullptr);
        QEvent deactivated(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(&m_window, &deactivated);
    }

    /// Runs while the window waits for the focus to come back.
    [[nodiscard]] QTimer& focusWait() const {
        return *m_window.findChild<QTimer*>(QStringLiteral("focus"));
    }
    /// The window has waited long enough.
    void endFocusWait() {
        focusWait().stop();
        QMetaObject::invokeMethod(&focusWait(), "timeout");
    }

    void movePointerInside() {
        QEnterEvent entered({50, 50}, {50, 50}, {350, 50});
        QCoreApplication::sendEvent(&m_window, &entered);
    }

    /// The window manager moves the window, and tells it.
    void moveByWindowManager(QPoint by) {
        QWindow& native = *m_window.windowHandle();
        native.setPosition(native.position() + by);
        spinUntilIdle();
    }

    /// The window manager makes an icon of the window, or shows it again.
    void becomes(Qt::WindowStates states) {
        QWindow& native = *m_window.windowHandle();
        const Qt::WindowStates before = native.windowStates();
        native.setWindowStates(states);
        QWindowStateChangeEvent changed(before);
        QCoreApplication::sendEvent(&native, &changed);
    }

    // Its absence: these tests may themselves run in a session of sway.
    TemporaryEnvironment m_swaySocket{"SWAYSOCK", std::nullopt};
    std::chrono::milliseconds m_elapsed{0};
    PanelContent* m_content = new PanelContent({400, 300});
    PanelWindow m_window{m_content, [this] { return m_elapsed; }};
};

}  // namespace quillbar
