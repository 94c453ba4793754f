// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/boards/MarketBoardFixture.h"
#include "tests/qtsupport/Pointer.h"

#include <QLineEdit>

#include <gmock/gmock.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

constexpr int kRow = 28;

/// Rows of a board that show a chart.
struct MarketBoardChartTest : MarketBoardFixture {};

TEST_F(MarketBoardChartTest, aClickWithAPointerThatSlipsOpensTheChartToo) {
    openThree();
    const QPoint place(100, 14);
    const QPoint slipped = place + QPoint(2 * QApplication::startDragDistance(), 0);
    pointer::press(*row("ETH"), place, Qt::LeftButton);
    pointer::pull(*row("ETH"), slipped);
    pointer::release(*row("ETH"), slipped, Qt::LeftButton);
    EXPECT_EQ(view->expandedSymbol(), symbolOf("ETH"));
}

TEST_F(MarketBoardChartTest, aClickAnywhereOnARowOpensItsChartAndAnotherClosesIt) {
    openThree();
    for (const int x : {1, 100, 399}) {
        clickAt(*row("ETH"), {x, 27});
        EXPECT_EQ(view->expandedSymbol(), symbolOf("ETH")) << x;
        ASSERT_TRUE(spinUntil([this] { return !rows->isMoving(); }));
        EXPECT_EQ(row("BTC")->y(), 2 * kRow + 210);
        clickAt(*row("ETH"), {x, 0});
        EXPECT_EQ(view->expandedSymbol(), std::nullopt) << x;
        ASSERT_TRUE(spinUntil([this] { return !rows->isMoving(); }));
    }
    EXPECT_EQ(chart("ETH"), nullptr);
}

TEST_F(MarketBoardChartTest, theChartIsThatOfTheRow) {
    openThree();
    clickRow("ETH");
    ASSERT_NE(chart("ETH"), nullptr);
    EXPECT_EQ(chart("ETH")->height(), 210);
    EXPECT_EQ(chart("ETH")->mapTo(rows, QPoint()).y(), 2 * kRow);
    clickRow("SOL");
    EXPECT_EQ(chart("ETH"), nullptr);
    EXPECT_NE(chart("SOL"), nullptr);
}

TEST_F(MarketBoardChartTest, onlyTheLeftButtonOpensAChartAndOnlyWhereItWasPressed) {
    openThree();
    const QPoint place = row("ETH")->mapTo(window.get(), QPoint(100, 14));
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, place);
    ASSERT_NE(menu(), nullptr);
    menu()->close();
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, place + QPoint(0, kRow));
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
}

TEST_F(MarketBoardChartTest, ranksAndPlacesStayWhileAChartIsOpenAndPricesGoOn) {
    openThree();
    clickRow("SOL");
    thenEthLeads();
    pass(Seconds(30));
    EXPECT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
    EXPECT_EQ(changeCell("ETH")->text(), QStringLiteral("+90.00%"));
    clickRow("SOL");
    EXPECT_THAT(order(), ElementsAre("1 ETH", "2 SOL", "3 BTC"));
}

TEST_F(MarketBoardChartTest, anotherChartFreezesWhatIsShown) {
    openThree();
    clickRow("SOL");
    thenEthLeads();
    pass(Seconds(30));
    clickRow("BTC");
    EXPECT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
}

TEST_F(MarketBoardChartTest, aRowThatLeavesTheBoardLeavesAGapInTheRanks) {
    openThree();
    clickRow("SOL");
    api.ticker24hAllAnswers.otherwise(
        {{symbolOf("BTC"), {110, 100}}, {symbolOf("SOL"), {130, 100}}});
    pass(Seconds(30));
    EXPECT_THAT(order(), ElementsAre("1 SOL", "3 BTC"));
    EXPECT_NE(chart("SOL"), nullptr);
}

TEST_F(MarketBoardChartTest, aCoinThatLeavesTheBoardTakesItsChartAlong) {
    openThree();
    clickRow("SOL");
    api.ticker24hAllAnswers.otherwise(
        {{symbolOf("BTC"), {110, 100}}, {symbolOf("ETH"), {120, 100}}});
    pass(Seconds(30));
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
    EXPECT_EQ(chart("SOL"), nullptr);
    EXPECT_THAT(order(), ElementsAre("1 ETH", "2 BTC"));
    EXPECT_EQ(row("BTC")->y(), kRow);
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(MarketBoardChartTest, rowsHeldOnTheMarketCapBoardTellNoMarketCap) {
    theMarketIsOfThree();
    theMarketCapsAreOfTwo();
    open(RankingBoard::marketCap);
    clickRow("ETH");
    EXPECT_EQ(secondaryCell("BTC")->text(), QStringLiteral("—"));
    clickRow("ETH");
    EXPECT_EQ(secondaryCell("BTC")->text(), QStringLiteral("1.35万亿"));
}

TEST_F(MarketBoardChartTest, anotherBoardClosesTheChartAndBeginsAtItsTop) {
    theMarketIsOfThree();
    theMarketCapsAreOfTwo();
    open(RankingBoard::marketCap);
    clickRow("ETH");
    row("ETH")->setFocus(Qt::TabFocusReason);
    view->setBoard(RankingBoard::gainers);
    EXPECT_EQ(view->board(), RankingBoard::gainers);
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
    EXPECT_EQ(chart("ETH"), nullptr);
    EXPECT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
    EXPECT_EQ(rows->scrollOffset(), 0);
    EXPECT_EQ(rows->current(), std::nullopt);
    EXPECT_NE(named(*view, QStringLiteral("成交额")), nullptr);
}

TEST_F(MarketBoardChartTest, theSameBoardAgainChangesNothing) {
    openThree();
    clickRow("ETH");
    view->setBoard(RankingBoard::gainers);
    EXPECT_EQ(view->expandedSymbol(), symbolOf("ETH"));
}

TEST_F(MarketBoardChartTest, hidingClosesTheChart) {
    openThree();
    clickRow("ETH");
    window->hide();
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
    window->show();
    spinUntilIdle();
    EXPECT_EQ(chart("ETH"), nullptr);
    EXPECT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(MarketBoardChartTest, shownAgainTheFocusIsBackInItsFirstRow) {
    openThree();
    auto* const elsewhere = new QLineEdit(window.get());
    // Shown before the rows are.
    elsewhere->lower();
    elsewhere->show();
    row("BTC")->setFocus(Qt::MouseFocusReason);
    window->hide();
    QWidget another;
    showActive(another);
    showActive(*window);
    settle();
    ASSERT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
    EXPECT_TRUE(row("SOL")->hasFocus());
    press(Qt::Key_Down);
    EXPECT_TRUE(row("ETH")->hasFocus());
}

TEST_F(MarketBoardChartTest, theViewMayGoWhileItsRowsMove) {
    openThree();
    clickAt(*row("ETH"), {100, 14});
    ASSERT_TRUE(rows->isMoving());
    window.reset();
    pass(Seconds(120));
    EXPECT_FALSE(market().isPolling());
}

}  // namespace
}  // namespace quillbar
