// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/Pointer.h"
#include "tests/watchlist/AddCoinViewFixture.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QInputMethodEvent>

#include <gmock/gmock.h>

#include <string>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A match is picked with the pointer, which adds its coin.
struct AddCoinPickingTest : AddCoinViewFixture {};

TEST_F(AddCoinPickingTest, aClickAddsTheCoinThenDismisses) {
    show({"BTC"});
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(storedList().coins.back(), coinOf("SOL"));
    EXPECT_EQ(dismissals, 0) << "its price is still being fetched";
    EXPECT_EQ(row("SOL")->accessibleName(), QStringLiteral("SOL，SOL/USDT，已添加"));
    endAdding();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinPickingTest, staysOpenForTheTextThatIsTypedWhileTheCoinIsAdded) {
    show({"BTC"});
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    type(QStringLiteral("V"));
    endAdding();
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(dismissals, 0);
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("SOLV，SOLV/USDT"));
    click("SOLV");
    EXPECT_TRUE(isWatched("SOLV"));
    EXPECT_EQ(dismissals, 1) << "nothing was typed after this one";
    EXPECT_EQ(added, symbolOf("SOLV"));
}

TEST_F(AddCoinPickingTest, staysOpenForTextThatWasChangedAndChangedBack) {
    show();
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    type(QStringLiteral("V"));
    press(Qt::Key_Backspace);
    endAdding();
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinPickingTest, staysOpenForTextThatIsBeingComposedWhileTheCoinIsAdded) {
    show();
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    QInputMethodEvent composing(QStringLiteral("et"), {});
    QApplication::sendEvent(&field(), &composing);
    endAdding();
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinPickingTest, composingThatWasGivenUpKeepsItOpenNoLonger) {
    show();
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    QInputMethodEvent composing(QStringLiteral("et"), {});
    QApplication::sendEvent(&field(), &composing);
    QInputMethodEvent givenUp;
    QApplication::sendEvent(&field(), &givenUp);
    endAdding();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinPickingTest, aSearchThatEndsWhileTheCoinIsAddedDoesNotKeepItOpen) {
    show();
    searchFor(QStringLiteral("SO"));
    type(QStringLiteral("L"));
    pickOnASlowLine("SOL");
    time.advance(Seconds{0.3});
    endAdding();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinPickingTest, aClickWithAPointerThatSlipsAddsToo) {
    show();
    searchFor(QStringLiteral("SOL"));
    const QPoint place(100, 14);
    pointer::press(*row("SOL"), place, Qt::LeftButton);
    pointer::pull(*row("SOL"), place + QPoint(2 * QApplication::startDragDistance(), 0));
    pointer::release(
        *row("SOL"), place + QPoint(2 * QApplication::startDragDistance(), 0), Qt::LeftButton);
    executor.run();
    EXPECT_TRUE(isWatched("SOL"));
}

TEST_F(AddCoinPickingTest, twoClicksAddOnce) {
    show();
    searchFor(QStringLiteral("SOL"));
    api.ticker24hRequests.clear();
    QTest::mouseClick(row("SOL"), Qt::LeftButton);
    QTest::mouseClick(row("SOL"), Qt::LeftButton);
    executor.run();
    EXPECT_EQ(api.ticker24hRequests.size(), 1U);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinPickingTest, aCoinThatHasGoneAgainIsAddedAgain) {
    show();
    searchFor(QStringLiteral("SOL"));
    click("SOL");
    ASSERT_TRUE(isWatched("SOL"));
    scope.spawn(state->remove(symbolOf("SOL")));
    executor.run();
    ASSERT_FALSE(isWatched("SOL"));
    click("SOL");
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(dismissals, 2);
}

TEST_F(AddCoinPickingTest, pickingAWatchedCoinDoesNothing) {
    show({"BTC", "SOL"});
    searchFor(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT，已添加", "SOLV，SOLV/USDT", "WSOL，WSOL/USDT"));
    api.ticker24hRequests.clear();
    click("SOL");
    press(Qt::Key_Return);
    EXPECT_EQ(*state->watchlist(), listOf({"BTC", "SOL"}));
    EXPECT_THAT(api.ticker24hRequests, IsEmpty());
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinPickingTest, aClickOnAWatchedCoinLeavesTheFocusInTheField) {
    show({"BTC", "SOL"});
    searchFor(QStringLiteral("SOL"));
    const QPoint middle = row("SOL")->rect().center();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        pointer::press(*row("SOL"), middle, button);
        pointer::release(*row("SOL"), middle, button);
        EXPECT_TRUE(field().hasFocus());
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    type(QStringLiteral("E"));
    EXPECT_EQ(view->query(), QStringLiteral("E"));
}

TEST_F(AddCoinPickingTest, aPressThatPicksNothingLeavesTheFocusInTheField) {
    show();
    searchFor(QStringLiteral("SOL"));
    pointer::press(*row("SOL"), QPoint(10, 10), Qt::LeftButton);
    pointer::release(*row("SOL"), QPoint(10, 40), Qt::LeftButton);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(AddCoinPickingTest, theMatchesTakeTheFocusForAScreenReader) {
    show({"BTC", "SOL"});
    searchFor(QStringLiteral("SOL"));
    for (const std::string baseAsset : {"SOL", "SOLV"}) {
        QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(row(baseAsset));
        ASSERT_NE(told, nullptr);
        EXPECT_EQ(told->role(), QAccessible::ListItem);
        EXPECT_TRUE(told->state().focusable) << baseAsset;
        const QString setFocus = QAccessibleActionInterface::setFocusAction();
        EXPECT_TRUE(told->actionInterface()->actionNames().contains(setFocus)) << baseAsset;
        told->actionInterface()->doAction(setFocus);
        EXPECT_TRUE(row(baseAsset)->hasFocus()) << baseAsset;
    }
}

TEST_F(AddCoinPickingTest, onlyWhatCanBeClickedIsTintedUnderThePointer) {
    show({"BTC", "SOL"});
    searchFor(QStringLiteral("SOL"));
    const QImage watched = pictureOf(*row("SOL"));
    const QImage unwatched = pictureOf(*row("SOLV"));
    row("SOL")->setHovering(true);
    row("SOLV")->setHovering(true);
    EXPECT_EQ(pictureOf(*row("SOL")), watched);
    EXPECT_NE(pictureOf(*row("SOLV")), unwatched);
}

TEST_F(AddCoinPickingTest, aPressThatIsLetGoElsewhereOrOfAnotherButtonPicksNothing) {
    show();
    searchFor(QStringLiteral("SOL"));
    QTest::mousePress(row("SOL"), Qt::LeftButton);
    QTest::mouseRelease(row("SOL"), Qt::LeftButton, {}, QPoint(10, 40));
    QTest::mouseClick(row("SOL"), Qt::RightButton);
    executor.run();
    EXPECT_FALSE(isWatched("SOL"));
}

TEST_F(AddCoinPickingTest, aRowFollowsTheWatchlistWhileItIsShown) {
    show();
    searchFor(QStringLiteral("SOLV"));
    const QImage before = pictureOf(*row("SOLV"));
    run(state->add(coinOf("SOLV")));
    EXPECT_EQ(row("SOLV")->accessibleName(), QStringLiteral("SOLV，SOLV/USDT，已添加"));
    EXPECT_EQ(row("SOLV")->watched(), Watched::yes);
    EXPECT_NE(pictureOf(*row("SOLV")), before);
    EXPECT_EQ(dismissals, 0);
    run(state->remove(symbolOf("SOLV")));
    EXPECT_EQ(row("SOLV")->accessibleName(), QStringLiteral("SOLV，SOLV/USDT"));
    click("SOLV");
    EXPECT_TRUE(isWatched("SOLV"));
}

TEST_F(AddCoinPickingTest, addsToTheEndThoughTheViewHasGone) {
    show({"BTC"});
    searchFor(QStringLiteral("SOL"));
    QTest::mouseClick(row("SOL"), Qt::LeftButton);
    view.reset();
    api.ticker24hRequests.clear();
    executor.run();
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(api.ticker24hRequests.size(), 1U) << "its price is fetched too";
    EXPECT_EQ(dismissals, 0);
}

}  // namespace
}  // namespace quillbar
