// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelWindow.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/window/PanelContent.h"

#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using AskedBy = PanelWindow::AskedBy;

struct PanelWindowStandaloneTest : ::testing::Test {
    PanelWindowStandaloneTest() { window.setStandalone(true); }

    /// The window manager moves the window, for itself or because the user drags it.
    void moveByWindowManager(QPoint by) {
        QWindow& native = *window.windowHandle();
        native.setPosition(native.position() + by);
        spinUntilIdle();
    }
    /// The user drags the window, after it has opened.
    void dragTo(QPoint place) {
        elapsed += 1s;
        moveByWindowManager(place - window.pos());
    }
    void growTo(int height) {
        content->grow({400, height});
        ASSERT_TRUE(spinUntil([&] { return window.height() == height; }));
    }

    // Its absence: these tests may themselves run in a session of sway.
    TemporaryEnvironment swaySocket{"SWAYSOCK", std::nullopt};
    std::chrono::milliseconds elapsed{0};
    PanelContent* content = new PanelContent({400, 300});
    PanelWindow window{content, [this] { return elapsed; }};
};

TEST_F(PanelWindowStandaloneTest, staysWhereItWasDraggedTo) {
    window.open(AskedBy::command);
    const QPoint first = window.pos();
    dragTo({37, 41});
    growTo(350);
    EXPECT_EQ(window.pos(), QPoint(37, 41));
    window.dismiss();
    window.open(AskedBy::command);
    EXPECT_EQ(window.pos(), QPoint(37, 41));
    window.setStandalone(false);
    window.dismiss();
    window.open(AskedBy::command);
    EXPECT_NE(window.pos(), QPoint(37, 41)) << "beside the item, or where that would be";
    EXPECT_EQ(window.x(), first.x());
}

TEST_F(PanelWindowStandaloneTest, goesToItsPlaceOnceMoreWhenAWindowManagerMovesItAsItOpens) {
    window.open(AskedBy::command);
    const QRect first = window.geometry();
    moveByWindowManager({2, 20});
    EXPECT_EQ(window.geometry(), first);
    dragTo({37, 41});
    window.dismiss();
    window.open(AskedBy::command);
    moveByWindowManager({2, 20});
    EXPECT_EQ(window.pos(), QPoint(37, 41));
}

TEST_F(PanelWindowStandaloneTest, doesNotWanderWhereAWindowManagerInsistsOnAnotherPlace) {
    window.open(AskedBy::command);
    dragTo({37, 41});
    for (int height = 310; height <= 350; height += 10) {
        window.dismiss();
        window.open(AskedBy::command);
        EXPECT_EQ(window.pos(), QPoint(37, 41));
        moveByWindowManager({2, 20});
        moveByWindowManager({2, 20});
        elapsed += 1s;
        growTo(height);
        EXPECT_EQ(window.pos(), QPoint(39, 61)) << "who insists is right";
    }
}

TEST_F(PanelWindowStandaloneTest, isPushedOntoTheScreenWhenItGrows) {
    window.open(AskedBy::command);
    const QRect workArea = window.screen()->availableGeometry();
    dragTo({37, workArea.bottom() + 1 - 300});
    growTo(350);
    EXPECT_EQ(window.geometry(), QRect(37, workArea.bottom() + 1 - 350, 400, 350));
}

}  // namespace

}  // namespace quillbar
