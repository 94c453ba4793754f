// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/list/RowListFixture.h"
#include "tests/qtsupport/Pointer.h"
#include "tests/qtsupport/Widgets.h"

#include <QContextMenuEvent>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Keys, the focus, and what asks for a menu.
using RowListKeysTest = RowListFixture;

TEST_F(RowListKeysTest, arrowsAndPagesMoveTheCurrentRowAndScroll) {
    show(100);
    focus("0");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "1");
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(focused(), "0");
    press(Qt::Key_PageDown);
    EXPECT_EQ(focused(), "9");
    press(Qt::Key_PageDown);
    EXPECT_EQ(focused(), "18");
    EXPECT_EQ(list->row("18")->geometry().bottom() + 1, kHeight - ScrollFade::kHeight);
    press(Qt::Key_End);
    EXPECT_EQ(focused(), "99");
    EXPECT_EQ(seen().back(), "99");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "99");
    press(Qt::Key_PageUp);
    EXPECT_EQ(focused(), "90");
    press(Qt::Key_Home);
    EXPECT_EQ(focused(), "0");
    EXPECT_EQ(list->scrollOffset(), 0);
}

TEST_F(RowListKeysTest, tabReachesTheRowThenItsDetailThenWhatFollows) {
    show(40);
    open("2");
    before->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "0");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "first");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "second");
    press(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), "second");
    press(Qt::Key_Backtab);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), "0");
    press(Qt::Key_Backtab);
    EXPECT_TRUE(before->hasFocus());
}

TEST_F(RowListKeysTest, tabComesBackToTheRowThatWasCurrent) {
    show(40);
    focus("0");
    press(Qt::Key_End);
    after->setFocus(Qt::TabFocusReason);
    list->scrollTo(0);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), "39");
    EXPECT_EQ(seen().back(), "39");
}

TEST_F(RowListKeysTest, tabPassesAnEmptyList) {
    show(0);
    before->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
}

TEST_F(RowListKeysTest, keysOfADetailSayNothingToTheRows) {
    show(5);
    open("1");
    named(window, QStringLiteral("first"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_NE(focused(), "1");
    EXPECT_THAT(activated, IsEmpty());
}

TEST_F(RowListKeysTest, theFocusStaysWithItsRowInAnotherOrder) {
    show(100);
    focus("2");
    auto ids = numbered(100);
    std::reverse(ids.begin(), ids.end());
    list->setIds(ids);
    expectConsistent();
    EXPECT_EQ(focused(), "2");
    EXPECT_EQ(seen().front(), "99") << "the view follows nobody";
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "1");
    EXPECT_EQ(list->row("1")->geometry().bottom() + 1, kHeight - ScrollFade::kHeight);
}

TEST_F(RowListKeysTest, theFocusPassesToTheNeighbourOfARowThatGoes) {
    show(5);
    focus("2");
    list->setIds({"0", "1", "3", "4"});
    EXPECT_EQ(focused(), "3");
    list->setIds({"0"});
    EXPECT_EQ(focused(), "0");
    EXPECT_EQ(list->current(), "0");
    list->setIds({});
    EXPECT_EQ(list->current(), std::nullopt);
}

TEST_F(RowListKeysTest, theFocusPassesFromADetailThatClosesToItsRow) {
    show(5);
    open("1");
    named(window, QStringLiteral("first"))->setFocus(Qt::TabFocusReason);
    open(std::nullopt);
    EXPECT_EQ(focused(), "1");
}

TEST_F(RowListKeysTest, aRowThatHasTheFocusKeepsItOutOfView) {
    show(100);
    focus("0");
    list->scrollTo(1000);
    EXPECT_EQ(focused(), "0");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "1");
    EXPECT_EQ(list->scrollOffset(), TableRow::kHeight - ScrollFade::kHeight);
}

TEST_F(RowListKeysTest, aClickMakesARowCurrentWithoutARing) {
    show(5);
    QTest::mouseClick(list->row("3"), Qt::LeftButton);
    EXPECT_EQ(focused(), "3");
    const QImage clicked = pictureOf(*list->row("3"));
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    EXPECT_NE(pictureOf(*list->row("3")), clicked);
}

TEST_F(RowListKeysTest, enterActivatesTheCurrentRow) {
    show(5);
    focus("3");
    press(Qt::Key_Return);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(activated, ElementsAre("3", "3"));
}

TEST_F(RowListKeysTest, enterWithAltAsksForTheFormOfTheCurrentRow) {
    show(40);
    focus("0");
    press(Qt::Key_Down);
    press(Qt::Key_Return, Qt::AltModifier);
    press(Qt::Key_Enter, Qt::AltModifier | Qt::KeypadModifier);
    EXPECT_THAT(forms, ElementsAre("1", "1"));
    EXPECT_THAT(activated, IsEmpty());
    EXPECT_EQ(focused(), "1");
    press(Qt::Key_Return);
    EXPECT_THAT(activated, ElementsAre("1"));
    EXPECT_EQ(forms.size(), 2U);
}

TEST_F(RowListKeysTest, theMenuKeysAskForTheMenuBelowTheCurrentRow) {
    show(100);
    focus("3");
    press(Qt::Key_Menu);
    EXPECT_EQ(menuPosition,
              list->row("3")->mapToGlobal(QPoint(TableRow::kPadding, TableRow::kHeight)));
    list->scrollTo(1000);
    press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_THAT(menus, ElementsAre("3", "3"));
    EXPECT_EQ(list->row("3")->y(), ScrollFade::kHeight) << "a menu opens at a row that can be seen";
}

TEST_F(RowListKeysTest, aPlatformThatTellsOfTheMenuKeyTwiceOpensOneMenu) {
    show(5);
    focus("3");
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(list->row("3"), &event);
    EXPECT_THAT(menus, IsEmpty());
    press(Qt::Key_Menu);
    EXPECT_THAT(menus, ElementsAre("3"));
}

TEST_F(RowListKeysTest, aRightClickAsksForTheMenuOfItsRowAndNotOfADetail) {
    show(5);
    open("1");
    const auto click = [this](const QPoint& position) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, list->mapToGlobal(position));
        QApplication::sendEvent(list, &event);
    };
    click(QPoint(100, TableRow::kHeight + 5));
    click(QPoint(100, 3 * TableRow::kHeight));
    click(QPoint(100, 2 * TableRow::kHeight + kDetailHeight + 5));
    click(QPoint(100, 100000));
    EXPECT_THAT(menus, ElementsAre("1", "2"));
}

}  // namespace
}  // namespace quillbar
