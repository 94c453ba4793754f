// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Spinner.h"
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace quillbar {
namespace {

QImage pictureOf(Spinner& spinner) {
    QImage image(spinner.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    spinner.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

TEST(SpinnerTest, turnsOnlyWhileItIsShown) {
    Spinner spinner(16);
    EXPECT_FALSE(spinner.isTurning());
    spinner.show();
    EXPECT_TRUE(spinner.isTurning());
    spinner.hide();
    EXPECT_FALSE(spinner.isTurning());
    QWidget panel;
    spinner.setParent(&panel);
    spinner.show();
    EXPECT_FALSE(spinner.isTurning());
    panel.show();
    EXPECT_TRUE(spinner.isTurning());
    panel.hide();
    EXPECT_FALSE(spinner.isTurning());
    spinner.setParent(nullptr);
}

TEST(SpinnerTest, goesFromSpokeToSpoke) {
    Spinner spinner(16);
    EXPECT_EQ(spinner.phase(), 0);
    spinner.show();
    EXPECT_TRUE(spinUntil([&spinner] { return spinner.phase() == 1; }));
    EXPECT_TRUE(spinUntil([&spinner] { return spinner.phase() == 0; }));
}

TEST(SpinnerTest, eightSpokesFadeAgainstTheClock) {
    Spinner spinner(200);
    const QImage image = pictureOf(spinner);
    // In the middle of each spoke, clockwise from the top, which is the brightest at first.
    const std::vector<QPoint> places{
        {100, 30}, {149, 50}, {169, 99}, {149, 149}, {99, 169}, {50, 149}, {30, 99}, {50, 50}};
    const std::vector<double> opacities{1, 0.15, 0.271, 0.393, 0.514, 0.636, 0.757, 0.879};
    for (std::size_t spoke = 0; spoke < places.size(); ++spoke) {
        EXPECT_NEAR(image.pixelColor(places[spoke]).alphaF(), opacities[spoke], 0.01) << spoke;
    }
}

TEST(SpinnerTest, itsSpokesGoFromAQuarterOfItsDiameterToItsEdge) {
    Spinner spinner(200);
    const QImage image = pictureOf(spinner);
    EXPECT_EQ(boundsOfInk(image), image.rect());
    const QRect top = boundsOfInk(image.copy(85, 0, 30, 60));
    // Eleven hundredths of the diameter wide, and round at the ends.
    EXPECT_EQ(top, QRect(4, 0, 22, 60));
    const QRect middle = boundsOfInk(image.copy(85, 50, 30, 30));
    EXPECT_EQ(middle.bottom(), 10);
}

TEST(SpinnerTest, isDrawnInTheColourOfSecondaryText) {
    Spinner spinner(200);
    EXPECT_EQ(pictureOf(spinner).pixelColor(100, 30), ThemeColors::dark().secondaryText);
}

TEST(SpinnerTest, turnsAsItsPhaseSays) {
    Spinner spinner(200);
    spinner.show();
    ASSERT_TRUE(spinUntil([&spinner] { return spinner.phase() == 2; }));
    const QImage image = pictureOf(spinner);
    EXPECT_EQ(image.pixelColor(169, 99).alpha(), 255);
    EXPECT_NEAR(image.pixelColor(149, 50).alphaF(), 0.879, 0.01);
}

TEST(SpinnerTest, hasItsDiameter) {
    EXPECT_EQ(Spinner(16).size(), QSize(16, 16));
    EXPECT_EQ(Spinner(11.2).size(), QSize(12, 12));
}

}  // namespace
}  // namespace quillbar
