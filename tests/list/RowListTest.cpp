// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/list/RowListFixture.h"
#include "tests/qtsupport/Pointer.h"
#include "tests/qtsupport/Widgets.h"

#include <QCursor>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using RowListTest = RowListFixture;

// What has widgets

TEST_F(RowListTest, tenThousandRowsHaveAsManyWidgetsAsCanBeSeen) {
    show(10000);
    EXPECT_EQ(list->widgetCount(), 10 + RowList::kMargin);
    EXPECT_EQ(made, static_cast<int>(10 + RowList::kMargin));
    EXPECT_THAT(seen(), ElementsAre("0", "1", "2", "3", "4", "5", "6", "7", "8", "9"));
}

TEST_F(RowListTest, rowsAreUsedAgainWhileScrolling) {
    show(10000);
    for (int offset = 0; offset < 100000; offset += 777) {
        list->scrollTo(offset);
        expectConsistent();
    }
    EXPECT_LE(made, static_cast<int>(11 + 2 * RowList::kMargin));
    EXPECT_EQ(seen().front(), std::to_string(list->scrollOffset() / TableRow::kHeight));
}

TEST_F(RowListTest, scrollsNoFurtherThanItsEnds) {
    show(20);
    list->scrollTo(100000);
    EXPECT_EQ(list->scrollOffset(), 20 * TableRow::kHeight - kHeight);
    EXPECT_EQ(seen().back(), "19");
    list->scrollTo(-5);
    EXPECT_EQ(list->scrollOffset(), 0);
    list->setIds(numbered(3));
    list->scrollTo(5);
    EXPECT_EQ(list->scrollOffset(), 0);
}

TEST_F(RowListTest, aListThatGetsShorterScrollsBack) {
    show(100);
    list->scrollTo(100000);
    list->setIds(numbered(12));
    EXPECT_EQ(list->scrollOffset(), 2 * TableRow::kHeight);
    EXPECT_EQ(seen().back(), "11");
    list->setIds({});
    EXPECT_THAT(seen(), IsEmpty());
}

TEST_F(RowListTest, anotherOrderMovesTheWidgetsOfTheirRows) {
    show(4);
    const ListRow* const three = list->row("3");
    const int before = presented;
    list->setIds({"3", "0", "1", "2"});
    EXPECT_EQ(list->row("3"), three);
    EXPECT_EQ(three->y(), 0);
    EXPECT_FALSE(three->isAlternate());
    EXPECT_EQ(made, 4);
    EXPECT_EQ(presented, before + 4);
    list->setIds({"3", "0", "1", "2"});
    EXPECT_EQ(presented, before + 4) << "the same order is no change";
}

TEST_F(RowListTest, onlyRowsWithAWidgetAreRefreshed) {
    show(100);
    presented = 0;
    list->refresh("3");
    EXPECT_EQ(presented, 1);
    list->refresh("50");
    EXPECT_EQ(presented, 1);
    list->refreshAll();
    EXPECT_EQ(presented, 1 + static_cast<int>(list->widgetCount()));
}

TEST_F(RowListTest, doesNothingWhileItIsHidden) {
    show(100);
    window.hide();
    presented = 0;
    list->refresh("3");
    list->refreshAll();
    list->setIds(numbered(50));
    list->scrollTo(500);
    EXPECT_EQ(presented, 0);
    window.show();
    EXPECT_EQ(seen().front(), "17");
}

TEST_F(RowListTest, staysConsistentWhateverHappens) {
    show(30);
    std::mt19937 random(20261121);
    std::vector<std::string> ids = numbered(30);
    for (int step = 0; step < 400; ++step) {
        switch (random() % 7) {
        case 0:
            std::shuffle(ids.begin(), ids.end(), random);
            list->setIds(ids);
            break;
        case 1:
            ids = numbered(random() % 40);
            list->setIds(ids);
            break;
        case 2:
            list->setExpanded(std::to_string(random() % 40));
            break;
        case 3:
            list->setExpanded(std::nullopt);
            break;
        case 4:
            list->setFixedHeight(static_cast<int>(random() % 560));
            spinUntilIdle();
            break;
        case 5:
            if (ListRow* const row = list->row(std::to_string(random() % 40))) {
                row->setFocus(Qt::TabFocusReason);
            }
            break;
        default:
            list->scrollTo(static_cast<int>(random() % 1500));
        }
        ASSERT_TRUE(list->isConsistent()) << "step " << step << ": " << list->brokenRule();
    }
}

// Details

TEST_F(RowListTest, aDetailUnfoldsUnderItsRowInStepsAndFoldsAgain) {
    show(5);
    list->setExpanded("1");
    EXPECT_TRUE(list->isMoving());
    EXPECT_LT(list->rowLayout().height(), 5 * TableRow::kHeight + kDetailHeight);
    open("1");
    EXPECT_EQ(list->detail("1")->geometry(), QRect(0, 2 * TableRow::kHeight, 400, kDetailHeight));
    EXPECT_EQ(list->row("2")->y(), 2 * TableRow::kHeight + kDetailHeight);
    ASSERT_NE(named(window, QStringLiteral("detail 1")), nullptr);
    EXPECT_EQ(named(window, QStringLiteral("detail 1"))->height(), kDetailHeight);
    open(std::nullopt);
    EXPECT_EQ(list->row("2")->y(), 2 * TableRow::kHeight);
    EXPECT_EQ(list->detail("1"), nullptr);
    EXPECT_EQ(named(window, QStringLiteral("detail 1")), nullptr);
    EXPECT_EQ(settled, 2);
}

TEST_F(RowListTest, movesForFifteenHundredthsOfASecond) {
    EXPECT_EQ(RowDetails::kDuration.count(), 150);
}

TEST_F(RowListTest, oneDetailClosesWhileTheOtherOpensAndTheRowStaysInPlace) {
    show(40);
    list->setFixedHeight(560);
    open("1");
    list->scrollTo(300);
    const int y = list->row("10")->y();
    list->setExpanded("10");
    EXPECT_TRUE(spinUntil([&] {
        EXPECT_EQ(list->row("10")->y(), y);
        return !list->isMoving();
    }));
    EXPECT_EQ(list->row("10")->y(), y);
    EXPECT_EQ(list->detail("1"), nullptr);
}

TEST_F(RowListTest, aDetailThatOpensAtTheBottomComesIntoView) {
    show(40);
    open("9");
    EXPECT_EQ(list->detail("9")->geometry().bottom() + 1, kHeight - ScrollFade::kHeight);
    EXPECT_GE(list->row("9")->y(), 0);
}

TEST_F(RowListTest, aDetailGoesAtOnceWithItsRow) {
    show(5);
    open("1");
    list->setIds({"0", "2", "3"});
    EXPECT_EQ(list->detail("1"), nullptr);
    EXPECT_EQ(list->row("2")->y(), TableRow::kHeight);
    EXPECT_EQ(named(window, QStringLiteral("detail 1")), nullptr);
}

TEST_F(RowListTest, aDetailMovesWithItsRow) {
    show(5);
    open("1");
    QWidget* const detail = list->detail("1");
    list->setIds({"0", "2", "3", "1", "4"});
    EXPECT_EQ(list->detail("1"), detail);
    EXPECT_EQ(detail->y(), 4 * TableRow::kHeight);
}

TEST_F(RowListTest, nothingMovesWhileNobodyLooks) {
    list->setIds(numbered(5));
    list->setExpanded("1");
    EXPECT_FALSE(list->isMoving());
    showActive(window);
    EXPECT_EQ(list->row("2")->y(), 2 * TableRow::kHeight + kDetailHeight);
    list->setExpanded(std::nullopt);
    window.hide();
    EXPECT_FALSE(list->isMoving());
    EXPECT_EQ(list->rowLayout().height(), 5 * TableRow::kHeight);
}

TEST_F(RowListTest, anUnknownRowOpensNothing) {
    show(5);
    open("77");
    EXPECT_EQ(list->rowLayout().height(), 5 * TableRow::kHeight);
}

// The wheel

TEST_F(RowListTest, aNotchScrollsAsManyRowsAsTheDesktopSays) {
    show(100);
    wheel({}, {0, -120});
    EXPECT_EQ(list->scrollOffset(), QApplication::wheelScrollLines() * TableRow::kHeight);
    wheel({}, {0, 120});
    EXPECT_EQ(list->scrollOffset(), 0);
}

TEST_F(RowListTest, aTouchPadScrollsByItsPixels) {
    show(100);
    wheel({0, -7}, {0, -30});
    wheel({0, -8}, {0, -30});
    EXPECT_EQ(list->scrollOffset(), 15);
}

TEST_F(RowListTest, fractionsOfANotchAddUp) {
    show(100);
    for (int step = 0; step < 120; ++step) {
        wheel({}, {0, -1});
    }
    EXPECT_NEAR(list->scrollOffset(), QApplication::wheelScrollLines() * TableRow::kHeight, 1);
}

// The pointer

TEST_F(RowListTest, theRowThatComesUnderThePointerIsTheOneThatIsTinted) {
    show(100);
    QCursor::setPos(list->mapToGlobal(QPoint(100, TableRow::kHeight + 5)));
    ASSERT_TRUE(spinUntil([this] { return list->underMouse() && list->row("1")->isHovering(); }));
    list->scrollTo(10 * TableRow::kHeight);
    EXPECT_TRUE(list->row("11")->isHovering());
    list->scrollTo(11 * TableRow::kHeight);
    EXPECT_FALSE(list->row("11")->isHovering());
    EXPECT_TRUE(list->row("12")->isHovering());
}

TEST_F(RowListTest, oneRowAtMostIsTintedWhereverThePointerGoes) {
    show(100);
    const auto tints = [this](const QWidget& under, int y, const std::vector<std::string>& rows) {
        QCursor::setPos(under.mapToGlobal(QPoint(100, y)));
        EXPECT_TRUE(spinUntil([&] { return tinted() == rows; })) << y;
    };
    tints(*list, 2 * TableRow::kHeight + 5, {"2"});
    list->scrollTo(TableRow::kHeight);
    EXPECT_THAT(tinted(), ElementsAre("3"));
    tints(*list, 5 * TableRow::kHeight + 5, {"6"});
    list->scrollTo(2 * TableRow::kHeight);
    EXPECT_THAT(tinted(), ElementsAre("7"));
    // The row that was under the pointer before the list scrolled.
    tints(*list, 4 * TableRow::kHeight + 5, {"6"});
    list->scrollTo(3 * TableRow::kHeight);
    EXPECT_THAT(tinted(), ElementsAre("7"));
    tints(*after, 5, {});
}

TEST_F(RowListTest, aRowThatIsLeftLateTakesNoTintFromTheOneUnderThePointer) {
    show(100);
    QCursor::setPos(list->mapToGlobal(QPoint(100, 2 * TableRow::kHeight + 5)));
    ASSERT_TRUE(spinUntil([this] { return tinted() == std::vector<std::string>{"2"}; }));
    pointerEnters(*list->row("5"));
    ASSERT_THAT(tinted(), ElementsAre("5"));
    pointerLeaves(*list->row("5"));
    EXPECT_THAT(tinted(), ElementsAre("2"));
}

TEST_F(RowListTest, theTintStaysUnderThePointerWhileTheListMovesAsAWhole) {
    show(100);
    QCursor::setPos(list->mapToGlobal(QPoint(100, 2 * TableRow::kHeight + 5)));
    ASSERT_TRUE(spinUntil([this] { return tinted() == std::vector<std::string>{"2"}; }));
    before->setFixedHeight(before->height() + TableRow::kHeight);
    spinUntilIdle();
    EXPECT_THAT(tinted(), ElementsAre("2")) << "the row has stayed under it";
    before->setFixedHeight(before->height() + 3 * TableRow::kHeight);
    EXPECT_TRUE(spinUntil([this] { return tinted().empty(); })) << "the pointer is above the list";
}

}  // namespace
}  // namespace quillbar
