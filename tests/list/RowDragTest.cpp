// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/DetailFactory.h"
#include "Quillbar/list/RowDrag.h"
#include "tests/list/RowDragFixture.h"
#include "tests/qtsupport/Pointer.h"
#include "tests/qtsupport/Widgets.h"

#include <QPainter>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr int kRow = kDragRow;
constexpr int kHeight = kDragHeight;

using RowDragTest = RowDragFixture;

// Places

TEST_F(RowDragTest, aRowThatIsPulledDownLeavesAGapWhereItWouldBeDropped) {
    show(5);
    drag("1", 3);
    EXPECT_THAT(others(), ElementsAre("0", "2", "3", "-", "4"));
    EXPECT_EQ(top("1"), 3 * kRow);
    EXPECT_THAT(moved, IsEmpty());
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("1", 4)));
    EXPECT_THAT(others(), ElementsAre("0", "2", "3", "1", "4"));
    EXPECT_EQ(list->lifted(), std::nullopt);
}

TEST_F(RowDragTest, aRowIsPulledUp) {
    show(5);
    drag("3", 1);
    EXPECT_THAT(others(), ElementsAre("0", "-", "1", "2", "4"));
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("3", 1)));
    EXPECT_THAT(others(), ElementsAre("0", "3", "1", "2", "4"));
}

TEST_F(RowDragTest, beyondTheFirstRowIsTheTop) {
    show(5);
    press("3");
    pullTo(-400);
    EXPECT_EQ(top("3"), 0);
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("3", 0)));
}

TEST_F(RowDragTest, beyondTheLastRowIsTheEnd) {
    show(5);
    press("1");
    pullTo(4000);
    EXPECT_EQ(top("1"), kHeight - kRow) << "it stays in the view";
    EXPECT_THAT(others(), ElementsAre("0", "2", "3", "4", "-"));
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("1", 5)));
    EXPECT_THAT(others(), ElementsAre("0", "2", "3", "4", "1"));
}

TEST_F(RowDragTest, aRowTakesThePlaceThatItIsNearerTo) {
    show(5);
    press("1");
    pullBy(kRow / 2 - 1);
    EXPECT_THAT(others(), ElementsAre("0", "-", "2", "3", "4"));
    pullBy(1);
    EXPECT_THAT(others(), ElementsAre("0", "2", "-", "3", "4"));
}

TEST_F(RowDragTest, whereItWasNothingIsAsked) {
    show(5);
    drag("1", 4);
    pullToRow(1);
    release();
    EXPECT_THAT(moved, IsEmpty());
    EXPECT_THAT(others(), ElementsAre("0", "1", "2", "3", "4"));
}

TEST_F(RowDragTest, theReleaseSaysWhere) {
    show(5);
    drag("1", 3);
    line = 4 * kRow + kRow / 2;
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("1", 5)));
}

TEST_F(RowDragTest, aPressThatHardlyMovesIsNoDrag) {
    show(5);
    press("1");
    pullBy(QApplication::startDragDistance() - 1);
    EXPECT_EQ(list->lifted(), std::nullopt);
    pullBy(1);
    EXPECT_EQ(list->lifted(), "1");
}

TEST_F(RowDragTest, theRowFollowsThePointerThatHoldsIt) {
    show(5);
    press("1");
    for (int each = 0; each < 60; ++each) {
        pullBy(1);
        if (list->lifted()) {
            EXPECT_EQ(top("1"), line - kRow / 2);
        }
    }
    EXPECT_EQ(list->childAt(200, line), list->row("1")) << "above the others";
    EXPECT_TRUE(list->row("1")->isHovering());
}

TEST_F(RowDragTest, theRowCastsAShadowOfEightPointsOnTheOthers) {
    ThemeKey::set(window, {.colors = ThemeColors::light()});
    show(5);
    press("1");
    pullBy(12);
    ASSERT_EQ(list->lifted(), "1");
    ASSERT_EQ(top("1"), 40);
    const QImage picture = pictureOf(*list);
    const auto light = [&picture](int y) { return picture.pixelColor(300, y).value(); };
    // From the strongest beside the row to nothing, over the gap above it and the row below it.
    double above = 0;
    double below = 0;
    for (int distance = 1; distance < 8; ++distance) {
        EXPECT_LT(light(40 - distance), light(39 - distance)) << distance;
        EXPECT_LT(light(67 + distance), light(68 + distance)) << distance;
        above += 1 - light(39 - distance) / static_cast<double>(light(30));
        below += 1 - light(68 + distance) / static_cast<double>(light(80));
    }
    EXPECT_EQ(light(31), light(30));
    EXPECT_EQ(light(76), light(80));
    // Black, of 70 in 255 at its strongest.
    const double whole = 70 / 255.0 * (6.5 + 5.5 + 4.5 + 3.5 + 2.5 + 1.5 + 0.5) / 8;
    EXPECT_NEAR(above, whole, 0.01);
    EXPECT_NEAR(below, whole, 0.01);
}

TEST_F(RowDragTest, theRowHasASurfaceOfItsOwnBetweenTwoLines) {
    ThemeKey::set(window, {.colors = ThemeColors::light()});
    show(5);
    press("1");
    pullBy(12);
    const QImage picture = pictureOf(*list);
    const ThemeColors::Resolved& colors = ThemeColors::light();
    QImage expected(1, 1, QImage::Format_ARGB32_Premultiplied);
    expected.fill(colors.surface);
    QPainter(&expected).fillRect(0, 0, 1, 1, colors.rowHover);
    for (const int y : {40, 54, 67}) {
        EXPECT_EQ(picture.pixelColor(300, y), expected.pixelColor(0, 0)) << y;
    }
    // The lines are darker than the shadow beside them.
    EXPECT_LT(picture.pixelColor(300, 39).value(), picture.pixelColor(300, 38).value() - 10);
    EXPECT_LT(picture.pixelColor(300, 68).value(), picture.pixelColor(300, 69).value() - 10);
}

TEST_F(RowDragTest, theTintsStayWhereTheyAre) {
    show(5);
    drag("1", 3);
    list->refreshAll();
    EXPECT_FALSE(list->row("0")->isAlternate());
    EXPECT_TRUE(list->row("2")->isAlternate());
    EXPECT_FALSE(list->row("3")->isAlternate());
    EXPECT_TRUE(list->row("1")->isAlternate());
    key(Qt::Key_Escape);
    EXPECT_FALSE(list->row("2")->isAlternate());
    EXPECT_TRUE(list->row("3")->isAlternate());
    release();
}

TEST_F(RowDragTest, whatChangesMeanwhileIsShown) {
    show(5);
    drag("1", 3);
    presented = 0;
    list->refresh("1");
    EXPECT_EQ(presented, 1);
    EXPECT_EQ(list->lifted(), "1");
}

// Scrolling

TEST_F(RowDragTest, aLongListScrollsNearItsEdgesUntilItsEnd) {
    show(1000);
    drag("2", 5);
    EXPECT_FALSE(scrolling().isActive());
    pullTo(kHeight - RowDrag::kScrollZone + 1);
    scrollOnce();
    EXPECT_EQ(list->scrollOffset(), 1) << "slowly at first";
    pullTo(kHeight + 300);
    scrollOnce();
    EXPECT_EQ(list->scrollOffset(), 1 + RowDrag::kGreatestStep);
    EXPECT_EQ(top("2"), kHeight - kRow);
    const int end = 1000 * kRow - kHeight;
    for (int each = 0; each <= end / RowDrag::kGreatestStep && scrolling().isActive(); ++each) {
        QMetaObject::invokeMethod(&scrolling(), "timeout");
    }
    EXPECT_EQ(list->scrollOffset(), end);
    EXPECT_FALSE(scrolling().isActive()) << "there is no further";
    EXPECT_LE(list->widgetCount(), 11 + 2 * RowList::kMargin);
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("2", 1000)));
    EXPECT_EQ(list->ids().back(), "2");
    EXPECT_EQ(top("2"), kHeight - kRow);
}

TEST_F(RowDragTest, scrollsUpToTheTop) {
    show(100);
    list->scrollTo(20 * kRow);
    drag("25", 0);
    const int before = list->scrollOffset();
    scrollOnce();
    EXPECT_LT(list->scrollOffset(), before);
    pullTo(-300);
    for (int each = 0; each < 100 && scrolling().isActive(); ++each) {
        QMetaObject::invokeMethod(&scrolling(), "timeout");
    }
    EXPECT_EQ(list->scrollOffset(), 0);
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("25", 0)));
}

TEST_F(RowDragTest, scrollsOnceForEveryFrameOfTheScreen) {
    EXPECT_EQ(scrollInterval, 16);
}

TEST_F(RowDragTest, scrollsNoMoreOnceTheRowIsPutDown) {
    show(100);
    press("2");
    pullTo(kHeight);
    EXPECT_TRUE(scrolling().isActive());
    release();
    EXPECT_FALSE(scrolling().isActive());
}

TEST_F(RowDragTest, staysUnderThePointerWhileTheListIsTurned) {
    show(100);
    drag("2", 4);
    list->scrollTo(10 * kRow);
    expectConsistent();
    EXPECT_EQ(top("2"), 4 * kRow);
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("2", 15)));
}

TEST_F(RowDragTest, staysUnderThePointerWhenTheListItselfMoves) {
    show(5);
    drag("1", 3);
    list->move(0, 50 + kRow);
    EXPECT_EQ(top("1"), 2 * kRow);
    EXPECT_THAT(others(), ElementsAre("0", "2", "-", "3", "4"));
}

// Details

TEST_F(RowDragTest, anOpenDetailMovesWithItsRow) {
    show(5);
    list->setFixedHeight(5 * kRow + kDetailHeight);
    list->setExpanded("1");
    ASSERT_TRUE(spinUntil([this] { return !list->isMoving(); }));
    drag("1", 2);
    EXPECT_EQ(top("2"), kRow);
    EXPECT_EQ(list->detail("1")->y(), 3 * kRow);
    EXPECT_EQ(top("3"), 3 * kRow + kDetailHeight);
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("1", 3)));
    EXPECT_EQ(list->detail("1")->y(), 3 * kRow);
}

TEST_F(RowDragTest, aRowPassesAnOpenDetailByItsMiddle) {
    show(5);
    list->setFixedHeight(5 * kRow + kDetailHeight);
    list->setExpanded("1");
    ASSERT_TRUE(spinUntil([this] { return !list->isMoving(); }));
    press("0");
    pullBy((kRow + kDetailHeight) / 2 - 1);
    EXPECT_EQ(top("1"), kRow);
    pullBy(1);
    EXPECT_EQ(top("1"), 0);
    EXPECT_EQ(list->detail("1")->y(), kRow);
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("0", 2)));
}

TEST(RowDragPlaceTest, isThatOfTheNearestEdge) {
    RowLayout others(10);
    others.setRowCount(3);
    others.setDetails({{.row = 1, .height = 20}});
    EXPECT_EQ(RowDrag::placeAmong(others, -100), 0U);
    EXPECT_EQ(RowDrag::placeAmong(others, 4), 0U);
    EXPECT_EQ(RowDrag::placeAmong(others, 5), 1U);
    EXPECT_EQ(RowDrag::placeAmong(others, 24), 1U);
    EXPECT_EQ(RowDrag::placeAmong(others, 25), 2U);
    EXPECT_EQ(RowDrag::placeAmong(others, 44), 2U);
    EXPECT_EQ(RowDrag::placeAmong(others, 45), 3U);
    EXPECT_EQ(RowDrag::placeAmong(others, 1000), 3U);
    EXPECT_EQ(RowDrag::placeAmong(RowLayout(10), 0), 0U);
}

// The keyboard

TEST_F(RowDragTest, altAndAnArrowMoveTheCurrentRow) {
    show(5);
    list->row("2")->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(list->ids(), ElementsAre("0", "1", "3", "2", "4"));
    EXPECT_TRUE(list->row("2")->hasFocus());
    key(Qt::Key_Up, Qt::AltModifier);
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_THAT(list->ids(), ElementsAre("0", "2", "1", "3", "4"));
    EXPECT_THAT(moved, ElementsAre(Pair("2", 4), Pair("2", 2), Pair("2", 1)));
    EXPECT_TRUE(list->row("2")->hasFocus());
}

TEST_F(RowDragTest, atTheEndsTheKeysAskNothing) {
    show(3);
    list->row("0")->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Up, Qt::AltModifier);
    list->row("2")->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(moved, IsEmpty());
    EXPECT_EQ(list->current(), "2");
}

TEST_F(RowDragTest, aRowThatTheKeysMoveStaysInView) {
    show(100);
    list->row("9")->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(list->ids().at(10), "9");
    EXPECT_EQ(top("9"), kHeight - kRow - ScrollFade::kHeight);
}

TEST_F(RowDragTest, theKeysMoveNoRowThatCannotBeMoved) {
    show(3);
    isMovable = false;
    list->row("0")->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(moved, IsEmpty());
    EXPECT_EQ(list->current(), "0");
}

}  // namespace
}  // namespace quillbar
