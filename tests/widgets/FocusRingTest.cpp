// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/PlainButton.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/RingIn.h"
#include "tests/qtsupport/Widgets.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

/// A button that shows nothing but its ring.
class Bare final : public PlainButton {
public:
    explicit Bare(QWidget* parent)
        : PlainButton(parent) {
        setFixedSize(32, 28);
    }

protected:
    void drawContent(QPainter& /*painter*/) override {}
};

struct FocusRingTest : testing::Test {
    FocusRingTest() { window.resize(200, 60); }

    QWidget window;
};

TEST_F(FocusRingTest, ofAButtonIsAlongItsEdges) {
    Bare button(&window);
    showActive(window);
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(pictureOf(button), ringIn(QRectF(0, 0, 32, 28), {32, 28}, ThemeColors::dark()));
}

TEST_F(FocusRingTest, isShownForTheKeyboardAndKeptOverAMenuOrAnotherWindow) {
    Bare button(&window);
    showActive(window);
    const auto hasRingAfter = [&button](Qt::FocusReason reason) {
        button.clearFocus();
        button.setFocus(reason);
        return !boundsOfInk(pictureOf(button), ThemeColors::dark().surface).isEmpty();
    };
    for (const auto byKeyboard :
         {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ShortcutFocusReason}) {
        EXPECT_FALSE(hasRingAfter(Qt::MouseFocusReason));
        EXPECT_FALSE(hasRingAfter(Qt::PopupFocusReason));
        EXPECT_FALSE(hasRingAfter(Qt::ActiveWindowFocusReason));
        EXPECT_TRUE(hasRingAfter(byKeyboard)) << byKeyboard;
        EXPECT_TRUE(hasRingAfter(Qt::PopupFocusReason));
        EXPECT_TRUE(hasRingAfter(Qt::ActiveWindowFocusReason));
        EXPECT_FALSE(hasRingAfter(Qt::OtherFocusReason));
    }
}

}  // namespace
}  // namespace quillbar
