// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/Spinner.h"
#include "Quillbar/Theme.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

QColor colorAt(QWidget& widget, QPoint point) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image.pixelColor(point);
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

TEST(SpinnerTest, isDrawnInItsRole) {
    Spinner spinner(32);
    spinner.setColorRole(&ThemeColors::Resolved::accent);
    // The top spoke is the brightest at first.
    const QColor top = colorAt(spinner, {16, 4});
    EXPECT_EQ(top.alpha(), 255);
    EXPECT_NEAR(top.blue(), ThemeColors::dark().accent.blue(), 2);
    const QColor next = colorAt(spinner, {28, 16});
    EXPECT_LT(next.alpha(), 255);
}

TEST(SpinnerTest, hasItsDiameter) {
    EXPECT_EQ(Spinner(16).size(), QSize(16, 16));
    EXPECT_EQ(Spinner(11.2).size(), QSize(12, 12));
}

}  // namespace
}  // namespace quillbar
