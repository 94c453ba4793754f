// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/list/RowDragFixture.h"
#include "tests/qtsupport/Pointer.h"

#include <QContextMenuEvent>
#include <QMouseEvent>

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

/// How a drag ends, and what gives it up.
using RowDragEndTest = RowDragFixture;

TEST_F(RowDragEndTest, escapePutsTheRowBackAndIsNotHeardByTheWindow) {
    show(5);
    drag("1", 3);
    key(Qt::Key_Escape);
    EXPECT_EQ(list->lifted(), std::nullopt);
    EXPECT_THAT(others(), ElementsAre("0", "1", "2", "3", "4"));
    key(Qt::Key_Escape);
    EXPECT_THAT(window.keys, IsEmpty()) << "nor is one that is held down";
    pullToRow(4);
    EXPECT_EQ(list->lifted(), std::nullopt) << "the next press drags again";
    release();
    EXPECT_THAT(moved, IsEmpty());
    key(Qt::Key_Escape);
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_Escape));
    drag("1", 3);
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("1", 4)));
}

TEST_F(RowDragEndTest, otherKeysWaitForTheRelease) {
    show(5);
    drag("1", 3);
    key(Qt::Key_Down);
    EXPECT_EQ(list->current(), "1");
    release();
    key(Qt::Key_Down);
    EXPECT_EQ(list->current(), "4");
}

TEST_F(RowDragEndTest, theRightButtonPutsTheRowBackAndOpensNoMenu) {
    show(5);
    drag("1", 3);
    pointer::press(*list, {200, line}, Qt::RightButton);
    EXPECT_EQ(list->lifted(), std::nullopt);
    EXPECT_THAT(menus, IsEmpty());
    pointer::release(*list, {200, line}, Qt::RightButton);
    pullToRow(4);
    release();
    EXPECT_THAT(moved, IsEmpty());
    press("1", Qt::RightButton);
    EXPECT_THAT(menus, ElementsAre("1"));
    release(Qt::RightButton);
}

TEST_F(RowDragEndTest, aReleaseThatWentElsewherePutsTheRowBack) {
    show(5);
    drag("1", 3);
    QMouseEvent event(QEvent::MouseMove,
                      QPointF(200, 10),
                      list->row("1")->mapToGlobal(QPointF(200, 10)),
                      Qt::NoButton,
                      Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(list->row("1"), &event);
    EXPECT_EQ(list->lifted(), std::nullopt);
    key(Qt::Key_Escape);
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_Escape));
    release();
    EXPECT_THAT(moved, IsEmpty());
}

TEST_F(RowDragEndTest, aReleaseThatWentElsewhereFreesTheKeysWhereverThePointerComesBack) {
    show(5);
    drag("1", 3);
    const QPoint belowTheList(200, 50 + kHeight + 20);
    QMouseEvent event(QEvent::MouseMove,
                      belowTheList,
                      window.mapToGlobal(belowTheList),
                      Qt::NoButton,
                      Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
    EXPECT_EQ(list->lifted(), std::nullopt);
    EXPECT_THAT(others(), ElementsAre("0", "1", "2", "3", "4"));
    key(Qt::Key_A);
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_A));
    release();
    EXPECT_THAT(moved, IsEmpty());
}

TEST_F(RowDragEndTest, aRowThatComesUnderThePointerDoesNotEndTheDrag) {
    show(100);
    QCursor::setPos(list->mapToGlobal(QPoint(200, 2 * kRow + kRow / 2)));
    drag("2", 4);
    QCursor::setPos(list->mapToGlobal(QPoint(200, 4 * kRow + kRow / 2)));
    ASSERT_EQ(list->lifted(), "2");
    for (int each = 0; each < 20; ++each) {
        list->scrollTo((each * 7919) % (100 * kRow));
        EXPECT_EQ(list->lifted(), "2");
    }
    release();
}

TEST_F(RowDragEndTest, aPressWhoseReleaseWentElsewhereKeepsNoMenuBack) {
    show(5);
    press("1");
    QMouseEvent event(QEvent::MouseButtonPress,
                      QPointF(200, 10),
                      list->row("1")->mapToGlobal(QPointF(200, 10)),
                      Qt::RightButton,
                      Qt::RightButton,
                      Qt::NoModifier);
    QApplication::sendEvent(list->row("1"), &event);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(200, 10), QPoint());
    QApplication::sendEvent(list->row("1"), &menu);
    EXPECT_THAT(menus, ElementsAre("1"));
    release();
}

TEST_F(RowDragEndTest, hidingPutsTheRowBack) {
    show(5);
    drag("1", 3);
    window.hide();
    EXPECT_EQ(list->lifted(), std::nullopt);
    EXPECT_FALSE(scrolling().isActive());
    window.show();
    EXPECT_THAT(others(), ElementsAre("0", "1", "2", "3", "4"));
    pullToRow(4);
    release();
    EXPECT_THAT(moved, IsEmpty());
    key(Qt::Key_Escape);
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_Escape));
}

// Changes meanwhile

TEST_F(RowDragEndTest, aRowThatGoesEndsItsDrag) {
    show(5);
    drag("1", 3);
    list->setIds({"0", "2", "3", "4"});
    expectConsistent();
    EXPECT_EQ(list->lifted(), std::nullopt);
    EXPECT_THAT(others(), ElementsAre("0", "2", "3", "4"));
    pullToRow(0);
    release();
    EXPECT_THAT(moved, IsEmpty());
    key(Qt::Key_Escape);
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_Escape)) << "the keys are free again";
}

TEST_F(RowDragEndTest, aDropRefersToTheListAsItStandsThen) {
    show(5);
    drag("1", 3);
    list->setIds({"5", "4", "0", "1", "2", "3"});
    expectConsistent();
    EXPECT_THAT(others(), ElementsAre("5", "4", "0", "-", "2", "3"));
    pullToRow(4);
    EXPECT_THAT(others(), ElementsAre("5", "4", "0", "2", "-", "3"));
    list->setIds({"1", "2", "3"});
    EXPECT_THAT(others(), ElementsAre("2", "3", "-"));
    release();
    EXPECT_THAT(moved, ElementsAre(Pair("1", 3)));
}

TEST_F(RowDragEndTest, rowsThatCannotBeMovedStay) {
    show(5);
    isMovable = false;
    press("1");
    pullToRow(3);
    EXPECT_EQ(list->lifted(), std::nullopt);
    release();
    press("2");
    isMovable = true;
    pullToRow(3);
    release();
    press("2");
    isMovable = false;
    pullToRow(3);
    EXPECT_EQ(list->lifted(), std::nullopt) << "it cannot by then";
    release();
    EXPECT_THAT(moved, IsEmpty());
}

TEST_F(RowDragEndTest, aRowThatCanNoLongerBeMovedIsNotDroppedElsewhere) {
    show(5);
    drag("1", 3);
    isMovable = false;
    release();
    EXPECT_THAT(moved, IsEmpty());
    EXPECT_THAT(others(), ElementsAre("0", "1", "2", "3", "4"));
}

TEST_F(RowDragEndTest, staysConsistentWhileItIsDraggedThroughAThousandRows) {
    show(1000);
    list->setExpanded("3");
    press("1");
    for (int step = 0; step < 300; ++step) {
        pullTo((step * 97) % (kHeight + 200) - 100);
        list->scrollTo((step * 7919) % (1000 * kRow));
        expectConsistent();
    }
    release();
    EXPECT_EQ(moved.size(), 1U);
}

}  // namespace
}  // namespace quillbar
