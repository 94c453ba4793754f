// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/watchlist/AddCoinListFixture.h"

#include <QAccessible>
#include <QAccessibleInterface>

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

using AddCoinListAddingTest = AddCoinListFixture;

// Adding

TEST_F(AddCoinListAddingTest, enterAddsAllInTheirOrderAtOnce) {
    show();
    read(QStringLiteral("SOL FOO 1000SATS BTC ETH"));
    stream.symbolLists.clear();
    api.ticker24hRequests.clear();
    files.calls.clear();
    press(Qt::Key_Return);
    const Watchlist expected = listOf({"BTC", "SOL", "1000SATS", "ETH"});
    EXPECT_EQ(*state->watchlist(), expected);
    EXPECT_EQ(storedList(), expected);
    EXPECT_EQ(stream.symbolLists.size(), 1U);
    EXPECT_EQ(api.ticker24hRequests.size(), 1U);
    EXPECT_EQ(std::count_if(files.calls.begin(),
                            files.calls.end(),
                            [](const std::string& call) { return call.starts_with("rename "); }),
              1);
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(added, symbolOf("SOL")) << "the first of them";
}

TEST_F(AddCoinListAddingTest, enterRightAfterThePasteReadsAndAdds) {
    show();
    paste(QStringLiteral("SOL ETH"));
    press(Qt::Key_Enter);
    EXPECT_EQ(*state->watchlist(), listOf({"BTC", "SOL", "ETH"}));
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinListAddingTest, aClickAddsAllAndLeavesTheFocusInTheField) {
    show();
    read(QStringLiteral("SOL ETH"));
    auto prices = api.ticker24hAnswers.held();
    clickOffer();
    EXPECT_EQ(*state->watchlist(), listOf({"BTC", "SOL", "ETH"}));
    EXPECT_THAT(offered(), ElementsAre("已添加 SOL、ETH"));
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(dismissals, 0) << "their prices are still being fetched";
    prices.setValue({});
    executor.run();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinListAddingTest, aPressThatIsLetGoElsewhereOrOfAnotherButtonAddsNothing) {
    show();
    read(QStringLiteral("SOL ETH"));
    QTest::mousePress(offerRow(), Qt::LeftButton);
    QTest::mouseRelease(offerRow(), Qt::LeftButton, {}, QPoint(10, 40));
    QTest::mouseClick(offerRow(), Qt::RightButton);
    executor.run();
    EXPECT_EQ(*state->watchlist(), listOf({"BTC"}));
}

TEST_F(AddCoinListAddingTest, twoPicksAddOnce) {
    show();
    read(QStringLiteral("SOL ETH"));
    api.ticker24hRequests.clear();
    QTest::mouseClick(offerRow(), Qt::LeftButton);
    QTest::keyClick(&field(), Qt::Key_Return);
    executor.run();
    EXPECT_EQ(api.ticker24hRequests.size(), 1U);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinListAddingTest, staysOpenForTheTextThatIsTypedWhileTheListIsAdded) {
    show();
    read(QStringLiteral("SOL ETH"));
    auto prices = api.ticker24hAnswers.held();
    clickOffer();
    type(QStringLiteral(" 1000SATS"));
    prices.setValue({});
    executor.run();
    EXPECT_EQ(dismissals, 0);
    time.advance(Seconds{0.3});
    EXPECT_THAT(offered(), ElementsAre("添加 1 个币种，1000SATS", "已添加 SOL、ETH"));
    press(Qt::Key_Return);
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(added, symbolOf("1000SATS"));
}

TEST_F(AddCoinListAddingTest, coinsThatHaveGoneAgainAreAddedAgain) {
    show();
    read(QStringLiteral("SOL ETH"));
    clickOffer();
    run(state->remove(symbolOf("SOL")));
    EXPECT_THAT(offered(), ElementsAre("添加 1 个币种，SOL", "已添加 ETH"));
    clickOffer();
    EXPECT_TRUE(isWatched("SOL"));
}

TEST_F(AddCoinListAddingTest, addsThoughTheViewHasGone) {
    show();
    read(QStringLiteral("SOL ETH"));
    QTest::mouseClick(offerRow(), Qt::LeftButton);
    view.reset();
    executor.run();
    EXPECT_EQ(*state->watchlist(), listOf({"BTC", "SOL", "ETH"}));
    EXPECT_EQ(dismissals, 0);
}

// The keyboard and screen readers

TEST_F(AddCoinListAddingTest, theArrowDownGoesToTheRowAndUpBackToTheField) {
    show();
    read(QStringLiteral("SOL ETH"));
    const QImage before = pictureOf(*offerRow());
    press(Qt::Key_Down);
    EXPECT_TRUE(offerRow()->hasFocus());
    EXPECT_NE(pictureOf(*offerRow()), before) << "it shows its ring";
    press(Qt::Key_Down);
    EXPECT_TRUE(offerRow()->hasFocus());
    press(Qt::Key_Up);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(AddCoinListAddingTest, enterOnTheRowAddsAll) {
    show();
    read(QStringLiteral("SOL ETH"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(*state->watchlist(), listOf({"BTC", "SOL", "ETH"}));
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinListAddingTest, typingOnTheRowGoesOnInTheField) {
    show();
    read(QStringLiteral("ETH SOL"));
    press(Qt::Key_Down);
    type(QStringLiteral("V"));
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(view->query(), QStringLiteral("ETH SOLV"));
}

TEST_F(AddCoinListAddingTest, theFocusReturnsToTheFieldWhenTheRowGoes) {
    show();
    read(QStringLiteral("SOL ETH"));
    press(Qt::Key_Down);
    field().setText(QStringLiteral("SOL"));
    time.advance(Seconds{0.3});
    EXPECT_TRUE(row("SOL")->isVisible());
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(AddCoinListAddingTest, isReadAloudWhenItAppears) {
    show();
    read(QStringLiteral("SOL FOO ETH BTC"));
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&offerView());
    EXPECT_EQ(told->role(), QAccessible::Notification);
    EXPECT_FALSE(told->state().invisible);
    EXPECT_EQ(told->text(QAccessible::Name),
              QStringLiteral("添加 2 个币种，SOL、ETH，未找到 FOO，已添加 BTC"));
}

TEST_F(AddCoinListAddingTest, theRowTakesTheFocusForAScreenReader) {
    show();
    read(QStringLiteral("SOL ETH"));
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(offerRow());
    EXPECT_EQ(told->role(), QAccessible::ListItem);
    EXPECT_TRUE(told->state().focusable);
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("添加 2 个币种，SOL、ETH"));
    told->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(offerRow()->hasFocus());
}

}  // namespace
}  // namespace quillbar
