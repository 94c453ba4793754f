// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelWindow.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/window/PanelContent.h"

#include <QPointer>
#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

struct PanelWindowRenewalTest : ::testing::Test {
    void click() {
        window.toggle(PanelWindow::AskedBy::pointer, QPoint{300, 0});
        elapsed += 1s;
    }

    // Its absence: these tests may themselves run in a session of sway.
    TemporaryEnvironment swaySocket{"SWAYSOCK", std::nullopt};
    std::chrono::milliseconds elapsed{0};
    ScaleWatch::Ratios ratios{.ofWindow = 1, .ofScreen = 1};
    PanelWindow window{new PanelContent({400, 300}),
                       [this] { return elapsed; },
                       [this](const QWindow& /*window*/) { return ratios; }};
};

TEST_F(PanelWindowRenewalTest, staysOpenWhileItsNativeWindowIsMadeAnew) {
    int told = 0;
    window.onOpened = [&told] { ++told; };
    window.onClosed = [&told] { ++told; };
    click();
    const QRect before = window.geometry();
    const QPointer<QWindow> native = window.windowHandle();
    window.renew();
    EXPECT_EQ(native, nullptr);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.geometry(), before);
    EXPECT_EQ(told, 1) << "that it opened";
    click();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(told, 2);
}

TEST_F(PanelWindowRenewalTest, staysClosedWhileItsNativeWindowIsMadeAnew) {
    click();
    window.dismiss();
    window.renew();
    EXPECT_EQ(window.windowHandle(), nullptr);
    EXPECT_FALSE(window.isVisible());
    click();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PanelWindowRenewalTest, keepsItsNativeWindowWhileThatHasTheScaleOfItsScreen) {
    click();
    const QPointer<QWindow> native = window.windowHandle();
    Q_EMIT window.screen()->physicalDotsPerInchChanged(192);
    spinUntilIdle();
    EXPECT_EQ(window.windowHandle(), native);
    EXPECT_NE(native, nullptr);
}

TEST_F(PanelWindowRenewalTest, getsANewNativeWindowWhenItsScreenHasAnotherScale) {
    click();
    const QPointer<QWindow> native = window.windowHandle();
    ASSERT_NE(native, nullptr);
    ratios.ofScreen = 2;
    Q_EMIT window.screen()->physicalDotsPerInchChanged(192);
    spinUntilIdle();
    EXPECT_EQ(native, nullptr);
    EXPECT_NE(window.windowHandle(), nullptr);
    EXPECT_TRUE(window.isVisible());
}

TEST(ScaleWatchTest, looksUpTheScaleOfAWindowAndOfItsScreen) {
    QWindow native;
    native.create();
    const ScaleWatch::Ratios ratios = ScaleWatch::ratiosOf(native);
    EXPECT_EQ(ratios.ofWindow, native.devicePixelRatio());
    EXPECT_EQ(ratios.ofScreen, native.screen()->devicePixelRatio());
}

}  // namespace

}  // namespace quillbar
