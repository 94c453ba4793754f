// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelPlacement.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

using PanelPlacement::rectangle;

constexpr QRect kScreen(0, 0, 1280, 800);
constexpr QRect kBelowTopBar(0, 28, 1280, 772);
constexpr QSize kPanel(400, 480);

TEST(PanelPlacementTest, hangsFromABarAtTheTop) {
    EXPECT_EQ(rectangle({700, 14}, kPanel, kScreen, kBelowTopBar), QRect(500, 28, 400, 480));
}

TEST(PanelPlacementTest, standsOnABarAtTheBottom) {
    EXPECT_EQ(rectangle({700, 790}, kPanel, kScreen, {0, 0, 1280, 768}), QRect(500, 288, 400, 480));
}

TEST(PanelPlacementTest, leansOnABarAtTheLeftOrTheRight) {
    EXPECT_EQ(rectangle({10, 400}, kPanel, kScreen, {40, 0, 1240, 800}), QRect(40, 160, 400, 480));
    EXPECT_EQ(rectangle({1270, 400}, kPanel, kScreen, {0, 0, 1240, 800}),
              QRect(840, 160, 400, 480));
}

TEST(PanelPlacementTest, staysInsideTheWorkAreaAtItsCorners) {
    EXPECT_EQ(rectangle({1275, 14}, kPanel, kScreen, kBelowTopBar), QRect(876, 28, 400, 480));
    EXPECT_EQ(rectangle({2, 14}, kPanel, kScreen, kBelowTopBar), QRect(4, 28, 400, 480));
}

TEST(PanelPlacementTest, goesBelowOrAboveAPointerThatIsOnNoBar) {
    EXPECT_EQ(rectangle({700, 100}, kPanel, kScreen, kScreen), QRect(500, 120, 400, 480));
    EXPECT_EQ(rectangle({700, 700}, kPanel, kScreen, kScreen), QRect(500, 200, 400, 480));
}

TEST(PanelPlacementTest, theEdgesOfTheWorkAreaAreOnNoBar) {
    EXPECT_EQ(rectangle({700, 28}, kPanel, kScreen, kBelowTopBar), QRect(500, 48, 400, 480));
    EXPECT_EQ(rectangle({700, 767}, kPanel, kScreen, {0, 0, 1280, 768}), QRect(500, 267, 400, 480));
    EXPECT_EQ(rectangle({40, 400}, kPanel, kScreen, {40, 0, 1240, 800}), QRect(44, 4, 400, 480));
    EXPECT_EQ(rectangle({1239, 400}, kPanel, kScreen, {0, 0, 1240, 800}), QRect(836, 4, 400, 480));
}

TEST(PanelPlacementTest, takesABarOffAWorkAreaThatHasItStill) {
    using PanelPlacement::withoutBar;
    EXPECT_EQ(withoutBar(kScreen, kScreen, {0, 0, 1280, 23}), QRect(0, 23, 1280, 777));
    EXPECT_EQ(withoutBar(kScreen, kScreen, {0, 777, 1280, 23}), QRect(0, 0, 1280, 777));
    EXPECT_EQ(withoutBar(kScreen, kScreen, {0, 0, 40, 800}), QRect(40, 0, 1240, 800));
    EXPECT_EQ(withoutBar(kScreen, kScreen, {1240, 0, 40, 800}), QRect(0, 0, 1240, 800));
    EXPECT_EQ(withoutBar(kBelowTopBar, kScreen, {0, 0, 1280, 23}), kBelowTopBar);
}

TEST(PanelPlacementTest, takesNothingOffForWhatIsNoBarAtAnEdge) {
    using PanelPlacement::withoutBar;
    EXPECT_EQ(withoutBar(kScreen, kScreen, {0, 100, 1280, 23}), kScreen);
    EXPECT_EQ(withoutBar(kScreen, kScreen, {100, 0, 40, 799}), kScreen);
    EXPECT_EQ(withoutBar(kScreen, kScreen, kScreen), kScreen);
    EXPECT_EQ(withoutBar(kScreen, kScreen, {0, 0, 700, 800}), kScreen);
}

TEST(PanelPlacementTest, goesAboveAPointerFromTheMiddleOfTheScreenOn) {
    EXPECT_EQ(rectangle({700, 398}, kPanel, kScreen, kScreen), QRect(500, 316, 400, 480));
    EXPECT_EQ(rectangle({700, 399}, kPanel, kScreen, kScreen), QRect(500, 4, 400, 480));
}

TEST(PanelPlacementTest, shrinksToASmallWorkArea) {
    EXPECT_EQ(rectangle({150, 10}, kPanel, {0, 0, 320, 240}, {0, 20, 320, 220}),
              QRect(4, 20, 312, 216));
}

TEST(PanelPlacementTest, leavesAPanelWhereItWasPutButInsideTheWorkArea) {
    using PanelPlacement::rectangleAt;
    EXPECT_EQ(rectangleAt({37, 41}, kPanel, kBelowTopBar), QRect(37, 41, 400, 480));
    EXPECT_EQ(rectangleAt({1200, 700}, kPanel, kBelowTopBar), QRect(880, 320, 400, 480));
    EXPECT_EQ(rectangleAt({-30, -30}, kPanel, kBelowTopBar), QRect(0, 28, 400, 480));
    EXPECT_EQ(rectangleAt({10, 10}, kPanel, {0, 0, 320, 240}), QRect(0, 0, 320, 240));
}

TEST(PanelPlacementTest, keepsToTheScreenOfItsAnchor) {
    const QRect second(1280, 0, 1920, 1080);
    EXPECT_EQ(rectangle({3190, 10}, kPanel, second, {1280, 30, 1920, 1050}),
              QRect(2796, 30, 400, 480));
}

TEST(PanelPlacementTest, withoutAnAnchorItGoesToTheEndOfTheBar) {
    const auto place = [](QRect workArea) {
        return PanelPlacement::rectangleWithoutAnchor(kPanel, kScreen, workArea);
    };
    EXPECT_EQ(place(kBelowTopBar), QRect(876, 28, 400, 480));
    EXPECT_EQ(place({0, 0, 1280, 768}), QRect(876, 288, 400, 480));
    EXPECT_EQ(place({40, 0, 1240, 800}), QRect(40, 316, 400, 480));
    EXPECT_EQ(place({0, 0, 1240, 800}), QRect(840, 316, 400, 480));
    EXPECT_EQ(place(kScreen), QRect(440, 160, 400, 480));
}

}  // namespace

}  // namespace quillbar
