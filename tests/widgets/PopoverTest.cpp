// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/LiftedSurface.h"
#include "Quillbar/widgets/Popover.h"
#include "Quillbar/widgets/PopoverPlacement.h"
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/Widgets.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPointer>
#include <QRegion>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

namespace quillbar {
namespace {

// Where it goes

constexpr QRect kWorkArea(0, 30, 1000, 700);
constexpr QSize kSize(280, 240);

TEST(PopoverPlacementTest, standsBelowItsAnchorWithTheRightEdgesOnOneLine) {
    EXPECT_EQ(PopoverPlacement::rectangle({500, 100, 24, 24}, kSize, kWorkArea),
              QRect(524 - 280, 124 + 4, 280, 240));
}

TEST(PopoverPlacementTest, fillsTheRoomBelowToTheLastLine) {
    const QRect atTheEdge(500, 730 - 240 - 4 - 24, 24, 24);
    EXPECT_EQ(PopoverPlacement::rectangle(atTheEdge, kSize, kWorkArea).bottom(), 729);
    EXPECT_EQ(PopoverPlacement::rectangle(atTheEdge.translated(0, 1), kSize, kWorkArea).bottom(),
              atTheEdge.top() + 1 - 4 - 1)
        << "one more and it stands above";
}

TEST(PopoverPlacementTest, standsAboveWhereThereIsNoRoomBelow) {
    EXPECT_EQ(PopoverPlacement::rectangle({500, 600, 24, 24}, kSize, kWorkArea),
              QRect(244, 600 - 4 - 240, 280, 240));
}

TEST(PopoverPlacementTest, coversItsAnchorWhereNeitherSideHasRoom) {
    EXPECT_EQ(PopoverPlacement::rectangle({500, 150, 24, 24}, kSize, {0, 30, 1000, 300}),
              QRect(244, 330 - 240, 280, 240));
}

TEST(PopoverPlacementTest, staysInsideTheSidesOfTheScreen) {
    EXPECT_EQ(PopoverPlacement::rectangle({40, 100, 24, 24}, kSize, kWorkArea).left(), 0);
    EXPECT_EQ(PopoverPlacement::rectangle({990, 100, 24, 24}, kSize, kWorkArea).right(), 999);
}

TEST(PopoverPlacementTest, staysOnAScreenThatBeginsElsewhere) {
    EXPECT_EQ(PopoverPlacement::rectangle({-1910, -50, 24, 24}, kSize, {-1920, -100, 1920, 1080}),
              QRect(-1920, -50 + 24 + 4, 280, 240));
}

TEST(PopoverPlacementTest, shrinksToASmallerScreen) {
    EXPECT_EQ(PopoverPlacement::rectangle({10, 10, 24, 24}, kSize, {0, 0, 200, 100}),
              QRect(0, 0, 200, 100));
}

TEST(PopoverPlacementTest, widensToWholePixelsOfTheScreen) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 1.125}) {
        for (int width = 113; width <= 121; ++width) {
            const int whole = PopoverPlacement::wholeInPixels(width, scale);
            EXPECT_GE(whole, width);
            EXPECT_LT(whole, width + 8);
            EXPECT_EQ(whole * scale, std::floor(whole * scale)) << width << " at " << scale;
        }
    }
    EXPECT_EQ(PopoverPlacement::wholeInPixels(119, 1), 119) << "no wider than needed";
    EXPECT_EQ(PopoverPlacement::wholeInPixels(118, 1.5), 118);
    EXPECT_EQ(PopoverPlacement::wholeInPixels(119, 1.5), 120);
    EXPECT_EQ(PopoverPlacement::wholeInPixels(119, 1.2345), 119) << "no width nearby is whole";
}

// The window

/// A window with a button's place in it and a field that has the focus, and a popover at the button
/// with a field of its own.
struct PopoverTest : testing::Test {
    class Window final : public QWidget {
    public:
        int keys = 0;

    protected:
        void keyPressEvent(QKeyEvent* /*event*/) override { ++keys; }
    };

    PopoverTest() {
        window.setGeometry(200, 100, 400, 300);
        anchor = new QWidget(&window);
        anchor->setGeometry(340, 8, 24, 24);
        place = new QWidget(&window);
        place->setGeometry(10, 100, 100, 30);
        below = new QLineEdit(&window);
        below->setGeometry(10, 200, 100, 30);
        showActive(window);
        below->setFocus(Qt::TabFocusReason);
    }

    void open() {
        popover = new Popover(*anchor);
        popover->onClosed = [this] { ++closings; };
        content = new QWidget;
        content->setAccessibleName(QStringLiteral("content"));
        content->setFixedSize(280, 200);
        field = new QLineEdit(content);
        content->setFocusProxy(field);
        popover->open(content);
    }

    /// Presses there on the window below, of which an open popover is told first.
    void pressWindow(QPoint point) {
        const QPoint onPopover = popover->mapFromGlobal(window.mapToGlobal(point));
        QTest::mousePress(popover.data(), Qt::LeftButton, {}, onPopover);
        ASSERT_FALSE(popover.isNull());
    }
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    /// Where the popover belongs: below the anchor, at the right edge of the window.
    [[nodiscard]] QPoint belowAnchor() const {
        return {window.mapToGlobal(QPoint(400 - popover->width(), 0)).x(),
                anchor->mapToGlobal(QPoint(0, 24 + 4)).y()};
    }

    Window window;
    QWidget* anchor;
    QWidget* place;
    QLineEdit* below;
    QPointer<Popover> popover;
    QPointer<QWidget> content;
    QPointer<QLineEdit> field;
    int closings = 0;
};

TEST_F(PopoverTest, showsItsContentBelowTheAnchorWithTheFocus) {
    open();
    EXPECT_TRUE(popover->isVisible());
    EXPECT_EQ(popover->geometry(), QRect(200 + 400 - 280, 100 + 32 + 4, 280, 200));
    EXPECT_EQ(content->geometry(), popover->rect());
    EXPECT_EQ(QApplication::focusWidget(), field);
    EXPECT_EQ(popover->accessibleName(), QStringLiteral("content"));
    press(Qt::Key_A);
    EXPECT_EQ(field->text(), QStringLiteral("a"));
}

TEST_F(PopoverTest, escapeClosesOnlyThePopover) {
    open();
    press(Qt::Key_Escape);
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.keys, 0);
    EXPECT_EQ(QApplication::focusWidget(), below);
    EXPECT_TRUE(spinUntil([this] { return popover.isNull() && content.isNull(); }));
    EXPECT_EQ(closings, 1);
}

TEST_F(PopoverTest, aPressOutsideClosesItAndMayGoOnToWhatItHits) {
    open();
    pressWindow(place->geometry().center());
    EXPECT_EQ(closings, 1);
    EXPECT_FALSE(popover->testAttribute(Qt::WA_NoMouseReplay));
}

TEST_F(PopoverTest, aPressOnTheAnchorClosesItAndGoesNoFurther) {
    open();
    pressWindow(anchor->geometry().center());
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(popover->testAttribute(Qt::WA_NoMouseReplay));
}

TEST_F(PopoverTest, aPressInsideLeavesItOpen) {
    open();
    QTest::mouseClick(content, Qt::LeftButton, {}, QPoint(100, 150));
    EXPECT_EQ(closings, 0);
    EXPECT_TRUE(popover->isVisible());
}

TEST_F(PopoverTest, closesWithTheWindowOfItsAnchor) {
    open();
    window.hide();
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(spinUntil([this] { return popover.isNull(); }));
}

TEST_F(PopoverTest, followsItsAnchor) {
    open();
    const QPoint before = popover->pos();
    window.move(250, 150);
    EXPECT_TRUE(spinUntil([&] { return popover->pos() != before; }));
    EXPECT_EQ(popover->pos(), belowAnchor());
    anchor->move(320, 8);
    EXPECT_EQ(popover->pos(), belowAnchor());
}

TEST_F(PopoverTest, growsWithItsContent) {
    open();
    content->setFixedSize(300, 220);
    EXPECT_TRUE(spinUntil([this] { return popover->size() == QSize(300, 220); }));
}

TEST_F(PopoverTest, standsAboveAnAnchorAtTheFootOfTheScreen) {
    const QRect screen = window.screen()->availableGeometry();
    window.move(screen.right() - 400, screen.bottom() - 299);
    anchor->move(340, 270);
    open();
    EXPECT_EQ(popover->geometry().bottom() + 1, anchor->mapToGlobal(QPoint()).y() - 4);
    EXPECT_TRUE(screen.contains(popover->geometry()));
}

TEST_F(PopoverTest, hasTheThemeOfItsAnchorAndFollowsIt) {
    ThemeKey::set(window, {.colors = ThemeColors::light()});
    open();
    EXPECT_EQ(popover->grab().toImage().pixelColor(140, 100),
              LiftedSurface::color(ThemeColors::light()));
    ThemeKey::set(window, {.colors = ThemeColors::dark()});
    EXPECT_EQ(popover->grab().toImage().pixelColor(140, 100),
              LiftedSurface::color(ThemeColors::dark()));
}

TEST_F(PopoverTest, itsCornersAreRound) {
    open();
    EXPECT_FALSE(popover->mask().contains(QPoint(0, 0)));
    EXPECT_FALSE(popover->mask().contains(QPoint(279, 199)));
    EXPECT_TRUE(popover->mask().contains(QPoint(140, 0)));
}

TEST_F(PopoverTest, aCutCornerIsRoundByEightPoints) {
    open();
    const QRegion shape = popover->mask();
    std::string corner;
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 9; ++x) {
            corner += shape.contains(QPoint(x, y)) ? '#' : '.';
        }
        corner += '\n';
    }
    EXPECT_EQ(corner,
              drawing({
                  ".....####",
                  "...######",
                  "..#######",
                  ".########",
                  ".########",
                  "#########",
                  "#########",
                  "#########",
                  "#########",
              }));
}

TEST_F(PopoverTest, nothingShowsThroughAtTheEdgeOfACutCorner) {
    ThemeKey::set(window, {.colors = ThemeColors::dark()});
    window.setPalette(QPalette(Qt::white, Qt::white));
    open();
    const QImage picture = popover->grab().toImage();
    const QRegion foot = popover->mask() & QRect(0, 190, 280, 10);
    ASSERT_FALSE(foot.contains(QPoint(0, 199)));
    int lightest = 0;
    for (const QRect& part : foot) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                lightest = std::max(lightest, picture.pixelColor(x, y).lightness());
            }
        }
    }
    // The hairline, on its straight parts.
    EXPECT_EQ(lightest, picture.pixelColor(140, 199).lightness());
}

TEST_F(PopoverTest, itsCornersAreClearWhereWindowsAreBlended) {
    Window translucent;
    translucent.setAttribute(Qt::WA_TranslucentBackground);
    anchor = new QWidget(&translucent);
    showActive(translucent);
    open();
    EXPECT_TRUE(popover->mask().isEmpty());
    QImage expected(280, 200, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    {
        const ThemeColors::Resolved& colors = ThemeColors::dark();
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(LiftedSurface::color(colors));
        painter.drawRoundedRect(QRectF(0, 0, 280, 200), 8, 8);
        painter.setPen(QPen(colors.separator, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(0.5, 0.5, 279, 199), 7.5, 7.5);
    }
    field->hide();
    EXPECT_LE(difference(popover->grab().toImage(), expected), 2);
}

TEST_F(PopoverTest, goesWithItsAnchor) {
    open();
    delete anchor;
    EXPECT_TRUE(popover.isNull());
    EXPECT_TRUE(content.isNull());
    EXPECT_EQ(closings, 0);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(PopoverTest, mayBeClosedTwice) {
    open();
    popover->close();
    popover->close();
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(spinUntil([this] { return popover.isNull(); }));
}

}  // namespace
}  // namespace quillbar
