// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/list/RowListFixture.h"

#include <QCursor>
#include <QTimer>

#include <chrono>

namespace quillbar {
namespace {

// Lines that come and go above the list

struct RowListHoldTest : RowListFixture {
    /// Rests the pointer on the row of that id.
    void pointAt(const std::string& id) {
        QCursor::setPos(list->row(id)->mapToGlobal(QPoint(100, 5)));
        ASSERT_TRUE(spinUntil([&] { return list->underMouse() && list->row(id)->isHovering(); }));
    }
    void leave() {
        QCursor::setPos(after->mapToGlobal(QPoint(100, 5)));
        ASSERT_TRUE(spinUntil([this] { return !list->underMouse(); }));
    }
    /// A line of as many points comes above the list; a negative one goes.
    void lineComes(int height) {
        before->setFixedHeight(before->height() + height);
        spinUntilIdle();
        expectConsistent();
    }
    /// The pointer leaves, and the moment after that is over.
    void letGoOfTheRows() {
        // The test says when it ends.
        holdTimer().setInterval(std::chrono::hours(1));
        leave();
        ASSERT_TRUE(holdTimer().isActive());
        QMetaObject::invokeMethod(&holdTimer(), "timeout");
        expectConsistent();
    }
    [[nodiscard]] QTimer& holdTimer() const {
        return *list->findChild<QTimer*>(QStringLiteral("screenHold"));
    }
    [[nodiscard]] int onScreen(const std::string& id) const {
        return list->row(id)->mapToGlobal(QPoint(0, 0)).y();
    }
};

TEST_F(RowListHoldTest, underThePointerTheRowsStayOnTheScreen) {
    show(100);
    pointAt("4");
    const int place = onScreen("4");
    lineComes(28);
    EXPECT_EQ(onScreen("4"), place);
    lineComes(-28);
    EXPECT_EQ(onScreen("4"), place);
    EXPECT_EQ(list->scrollOffset(), 0);
}

TEST_F(RowListHoldTest, aListWithNothingToScrollStaysToo) {
    show(4);
    pointAt("2");
    const int place = onScreen("2");
    lineComes(28);
    EXPECT_EQ(onScreen("2"), place);
    lineComes(-28);
    lineComes(-10);
    EXPECT_EQ(onScreen("2"), place) << "also when what was there from the start goes";
}

TEST_F(RowListHoldTest, withoutThePointerTheyMoveWithTheList) {
    show(100);
    const int place = onScreen("4");
    const int upperEdge = list->y();
    lineComes(28);
    ASSERT_GT(list->y(), upperEdge);
    EXPECT_EQ(onScreen("4"), place + list->y() - upperEdge);
}

TEST_F(RowListHoldTest, theyGoBackAMomentAfterThePointerHasLeft) {
    show(100);
    pointAt("4");
    const int place = onScreen("4");
    const int upperEdge = list->y();
    EXPECT_EQ(holdTimer().interval(), 300);
    // The test says when it ends.
    holdTimer().setInterval(std::chrono::hours(1));
    leave();
    EXPECT_TRUE(holdTimer().isActive());
    lineComes(28);
    EXPECT_EQ(onScreen("4"), place) << "the click may still be on its way";
    QMetaObject::invokeMethod(&holdTimer(), "timeout");
    EXPECT_FALSE(holdTimer().isActive());
    EXPECT_EQ(onScreen("4"), place + list->y() - upperEdge);
    EXPECT_EQ(list->scrollOffset(), 0);
}

TEST_F(RowListHoldTest, aWindowThatIsMovedTakesItsRowsWithIt) {
    show(100);
    pointAt("4");
    const int place = onScreen("4");
    window.move(window.pos() + QPoint(0, 40));
    spinUntilIdle();
    EXPECT_EQ(onScreen("4"), place + 40);
    EXPECT_EQ(list->scrollOffset(), 0);
}

TEST_F(RowListHoldTest, aWindowThatGrowsUpwardsLeavesThemWhereTheyAre) {
    show(100);
    window.move(100, 200);
    spinUntilIdle();
    pointAt("4");
    const int place = onScreen("4");
    lineComes(28);
    window.setGeometry(window.geometry().adjusted(0, -28, 0, 0));
    spinUntilIdle();
    EXPECT_EQ(onScreen("4"), place);
    expectConsistent();
}

TEST_F(RowListHoldTest, aRowThatIsPressedStaysWhereverThePointerIsPulled) {
    show(100);
    pointAt("4");
    holdTimer().setInterval(std::chrono::hours(1));
    const int place = onScreen("4");
    const QWidget& pressed = *list->row("4");
    pointer::press(pressed, QPoint(100, 5), Qt::LeftButton);
    pointer::pull(*after, QPoint(100, 5));
    lineComes(28);
    EXPECT_EQ(onScreen("4"), place);
    pointer::release(*after, QPoint(100, 5), Qt::LeftButton);
    lineComes(-10);
    EXPECT_EQ(onScreen("4"), place) << "and for a moment after that";
}

TEST_F(RowListHoldTest, theLastRowStaysThoughTheListGoesNoFurther) {
    show(100);
    lineComes(28);
    pointAt("4");
    lineComes(-28);
    list->scrollTo(100000);
    const int end = list->scrollOffset();
    pointAt("95");
    const int place = onScreen("95");
    lineComes(28);
    EXPECT_EQ(onScreen("95"), place);
    letGoOfTheRows();
    EXPECT_EQ(list->scrollOffset(), end) << "nothing is left free below the last row";
}

TEST_F(RowListHoldTest, aListThatGetsShorterIsScrolledNoFurtherThanItsEnd) {
    show(100);
    pointAt("4");
    list->scrollTo(100000);
    lineComes(28);
    list->setIds(numbered(12));
    expectConsistent();
    letGoOfTheRows();
    EXPECT_EQ(list->scrollOffset(), 12 * TableRow::kHeight - kHeight);
}

/// A window whose lower edge stays where it is, as above a bar at the lower edge of the screen.
struct RowListAboveABarTest : RowListHoldTest {
    void SetUp() override {
        RowListHoldTest::SetUp();
        list->setMinimumHeight(0);
        list->setMaximumHeight(QWIDGETSIZE_MAX);
        list->setPreferredHeight(1000);
        window.move(100, 400);
    }
    /// The window's upper edge follows after its content has been laid out in its old size.
    void windowGrows(int height) {
        spinUntilIdle();
        window.setGeometry(window.geometry().adjusted(0, -height, 0, 0));
        spinUntilIdle();
        expectConsistent();
    }
    void lineComesAndWindowGrows(int height) {
        before->setFixedHeight(before->height() + height);
        windowGrows(height);
    }
};

TEST_F(RowListAboveABarTest, theLastRowStaysWhenALineGoesAndComes) {
    show(100);
    lineComesAndWindowGrows(28);
    list->scrollTo(100000);
    const int end = list->scrollOffset();
    pointAt("99");
    const int place = onScreen("99");
    lineComesAndWindowGrows(-28);
    EXPECT_EQ(onScreen("99"), place);
    lineComesAndWindowGrows(28);
    EXPECT_EQ(onScreen("99"), place);
    EXPECT_EQ(list->scrollOffset(), end);
}

TEST_F(RowListAboveABarTest, rowsInTheMiddleStayWhenALineComesAndTheWindowCannotGrow) {
    show(100);
    list->scrollTo(500);
    pointAt("20");
    const int place = onScreen("20");
    lineComes(28);
    EXPECT_EQ(onScreen("20"), place);
    letGoOfTheRows();
    EXPECT_EQ(list->scrollOffset(), 500);
}

TEST_F(RowListAboveABarTest, aLineBelowTheListLeavesTheRowsWhereTheyAre) {
    show(100);
    pointAt("4");
    const int place = onScreen("4");
    after->setFixedHeight(after->height() + 28);
    windowGrows(28);
    EXPECT_EQ(onScreen("4"), place);
}

TEST_F(RowListAboveABarTest, aListThatGrowsOrShrinksItselfLeavesNoGapAboveItsRows) {
    list->setPreferredHeight(4 * TableRow::kHeight);
    window.resize(window.sizeHint());
    show(4);
    pointAt("1");
    list->setPreferredHeight(4 * TableRow::kHeight + kDetailHeight);
    windowGrows(kDetailHeight);
    EXPECT_EQ(list->scrollOffset(), 0);
    list->setPreferredHeight(4 * TableRow::kHeight);
    windowGrows(-kDetailHeight);
    EXPECT_EQ(list->scrollOffset(), 0);
    lineComesAndWindowGrows(28);
    EXPECT_EQ(list->scrollOffset(), 0) << "the list is where it was";
}

}  // namespace
}  // namespace quillbar
