// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QHBoxLayout>
#include <QImage>
#include <QPainter>
#include <QTransform>
#include <QWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A view in a window of a text size.
struct TextScaleTest : ::testing::Test {
    void setScale(double scale) {
        ThemeKey::set(window, {.colors = ThemeColors::dark(), .scale = scale});
    }

    QWidget window;
    QWidget* view = new QWidget(&window);
};

TEST_F(TextScaleTest, isOneUntilTheThemeSaysOtherwise) {
    EXPECT_EQ(TextScale::of(*view), 1);
    setScale(1.3);
    EXPECT_EQ(TextScale::of(*view), 1.3);
}

TEST_F(TextScaleTest, lengthsAreTheNearestWholePoints) {
    EXPECT_EQ(TextScale::length(*view, 28), 28);
    setScale(1.15);
    // 32.2, 4.6 and 11.5
    EXPECT_EQ(TextScale::length(*view, 28), 32);
    EXPECT_EQ(TextScale::length(*view, 4), 5);
    EXPECT_EQ(TextScale::length(*view, 10), 12);
    EXPECT_EQ(TextScale::size(*view, {28, 4}), QSize(32, 5));
    EXPECT_EQ(TextScale::margins(*view, {28, 4, 10, 0}), QMargins(32, 5, 12, 0));
}

TEST_F(TextScaleTest, fontsGrowAsLengthsDoAndKeepTheirWeight) {
    EXPECT_EQ(TextScale::font(*view, systemFont(12)), systemFont(12));
    setScale(1.3);
    EXPECT_EQ(TextScale::font(*view, 10), systemFont(13));
    EXPECT_EQ(TextScale::font(*view, 10, QFont::DemiBold), systemFont(13, QFont::DemiBold));
    const QFont grown = TextScale::font(*view, systemFont(10, QFont::DemiBold));
    EXPECT_NEAR(grown.pointSizeF(), systemFont(13).pointSizeF(), 0.01);
    EXPECT_EQ(grown.weight(), systemFont(13, QFont::DemiBold).weight());
}

TEST_F(TextScaleTest, aFontOfWholePixelsGrowsToo) {
    QFont font;
    font.setPixelSize(10);
    EXPECT_EQ(TextScale::font(*view, font), font);
    setScale(1.3);
    EXPECT_EQ(TextScale::font(*view, font).pixelSize(), 13);
}

TEST_F(TextScaleTest, aPainterDrawsInTheUnitsOfTheNormalSize) {
    setScale(1.25);
    view->resize(100, 50);
    QImage image(100, 50, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    EXPECT_EQ(TextScale::enlarge(painter, *view), QRectF(0, 0, 80, 40));
    EXPECT_EQ(painter.transform(), QTransform::fromScale(1.25, 1.25));
}

TEST_F(TextScaleTest, aPainterStaysAsItIsAtTheNormalSize) {
    view->resize(100, 50);
    QImage image(100, 50, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    EXPECT_EQ(TextScale::enlarge(painter, *view), QRectF(0, 0, 100, 50));
    EXPECT_TRUE(painter.transform().isIdentity());
}

TEST_F(TextScaleTest, whoFollowsIsToldAtOnceAndOfEachOtherSize) {
    setScale(1.15);
    std::vector<double> told;
    TextScale::follow(*view, [&] { told.push_back(TextScale::of(*view)); });
    EXPECT_THAT(told, ElementsAre(1.15));
    setScale(1.3);
    setScale(1.3);
    EXPECT_THAT(told, ElementsAre(1.15, 1.3));
    // Other colours alone are none of its business.
    ThemeKey::set(window, {.colors = ThemeColors::light(), .scale = 1.3});
    EXPECT_THAT(told, ElementsAre(1.15, 1.3));
}

TEST_F(TextScaleTest, whoFollowsTakesTheSizeOfWhatItIsPutInto) {
    setScale(1.15);
    QWidget alone;
    std::vector<double> told;
    auto* const moved = new QWidget(&alone);
    TextScale::follow(*moved, [&] { told.push_back(TextScale::of(*moved)); });
    moved->setParent(&window);
    EXPECT_THAT(told, ElementsAre(1, 1.15));
}

TEST_F(TextScaleTest, whoFollowsTakesTheSizeOfWhatItsParentIsPutIntoWhenItIsShown) {
    setScale(1.15);
    auto* const between = new QWidget;
    auto* const inside = new QWidget(between);
    std::vector<double> told;
    TextScale::follow(*inside, [&] { told.push_back(TextScale::of(*inside)); });
    between->setParent(&window);
    window.show();
    between->show();
    EXPECT_THAT(told, ElementsAre(1, 1.15));
}

TEST_F(TextScaleTest, nobodyIsToldForAViewThatIsGone) {
    std::vector<double> told;
    TextScale::follow(*view, [&told] { told.push_back(0); });
    told.clear();
    delete view;
    setScale(1.15);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(TextScaleTest, marginsAndSpacingFollow) {
    auto* const layout = new QHBoxLayout(view);
    TextScale::followSpaces(*view, *layout, QMargins(10, 20, 30, 40), 8);
    TextScale::followMargins(window, QMargins(1, 2, 3, 4));
    EXPECT_EQ(layout->contentsMargins(), QMargins(10, 20, 30, 40));
    EXPECT_EQ(layout->spacing(), 8);
    setScale(1.3);
    EXPECT_EQ(layout->contentsMargins(), QMargins(13, 26, 39, 52));
    EXPECT_EQ(layout->spacing(), 10);
    EXPECT_EQ(window.contentsMargins(), QMargins(1, 3, 4, 5));
}

}  // namespace
}  // namespace quillbar
