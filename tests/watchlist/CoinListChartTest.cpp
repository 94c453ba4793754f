// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/watchlist/CoinListFixture.h"

#include <gmock/gmock.h>

#include <optional>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

/// The chart that opens under a row.
struct CoinListChartTest : CoinListFixture {};

TEST_F(CoinListChartTest, theArrowOpensTheChartUnderItsRowAndClosesIt) {
    show({"BTC", "ETH"});
    clickArrow("BTC");
    EXPECT_EQ(expanded.get(), symbolOf("BTC"));
    EXPECT_EQ(arrow("BTC")->glyph(), Glyph::chevronDown);
    EXPECT_EQ(arrow("ETH")->glyph(), Glyph::chevronRight);
    ASSERT_NE(chart("BTC"), nullptr);
    EXPECT_EQ(chart("BTC")->mapTo(rows, QPoint()).y(), kRow);
    EXPECT_EQ(row("ETH")->y(), kRow + 210);
    clickArrow("BTC");
    EXPECT_EQ(expanded.get(), std::nullopt);
    EXPECT_EQ(arrow("BTC")->glyph(), Glyph::chevronRight);
    EXPECT_EQ(row("ETH")->y(), kRow);
}

TEST_F(CoinListChartTest, theWholeArrowButtonIsClickable) {
    show({"BTC"});
    QTest::mouseClick(arrow("BTC"), Qt::LeftButton, {}, QPoint(0, 27));
    EXPECT_EQ(expanded.get(), symbolOf("BTC"));
}

TEST_F(CoinListChartTest, oneChartAtATimeIsOpen) {
    show({"BTC", "ETH"});
    clickArrow("BTC");
    clickArrow("ETH");
    EXPECT_EQ(expanded.get(), symbolOf("ETH"));
    EXPECT_EQ(chart("BTC"), nullptr);
    EXPECT_NE(chart("ETH"), nullptr);
    EXPECT_EQ(rows->height(), 2 * kRow + 210 + 4);
}

TEST_F(CoinListChartTest, pricesDoNotReorderASortedListWhileAChartIsOpen) {
    showThreeByChange();
    clickArrow("SOL");
    tick("BTC", {150, 100});
    spinUntilIdle();
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+50.00%"));
    clickArrow("SOL");
    EXPECT_TRUE(comesTo({"BTC", "ETH", "SOL"}));
}

TEST_F(CoinListChartTest, anotherChartKeepsTheOrderThatWasFrozen) {
    showThreeByChange();
    clickArrow("SOL");
    tick("BTC", {150, 100});
    clickArrow("BTC");
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
}

TEST_F(CoinListChartTest, aCoinThatComesWhileTheOrderIsFrozenComesLast) {
    showThreeByChange();
    clickArrow("SOL");
    theSnapshotIs({{symbolOf("XRP"), Ticker{900, 100}}});
    run(state->add(coinOf("XRP")));
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC", "XRP"));
    clickArrow("SOL");
    EXPECT_TRUE(comesTo({"XRP", "ETH", "SOL", "BTC"}));
}

TEST_F(CoinListChartTest, aTitleClickedWhileAChartIsOpenSortsWhenItCloses) {
    show({"BTC", "ETH"});
    tick("BTC", {101, 100});
    tick("ETH", {103, 100});
    clickArrow("BTC");
    click("涨跌");
    EXPECT_EQ(header("涨跌")->direction(), SortDirection::descending);
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH"));
    clickArrow("BTC");
    EXPECT_TRUE(comesTo({"ETH", "BTC"}));
}

TEST_F(CoinListChartTest, aChartThatStaysOpenHoldsTheRowsWhenTheyAreShownAgain) {
    showThreeByChange();
    clickArrow("SOL");
    window->hide();
    window->show();
    click("涨跌");
    tick("BTC", {150, 100});
    state->pin(symbolOf("ETH"));
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
    clickArrow("SOL");
    EXPECT_TRUE(comesTo({"BTC", "ETH", "SOL"}));
    tick("SOL", {190, 100});
    EXPECT_TRUE(comesTo({"SOL", "BTC", "ETH"}));
}

TEST_F(CoinListChartTest, thePanelMayOpenAndCloseTheChart) {
    show({"BTC", "ETH"});
    expanded.set(symbolOf("ETH"));
    EXPECT_TRUE(spinUntil([this] { return chart("ETH") != nullptr && !rows->isMoving(); }));
    expanded.set(std::nullopt);
    EXPECT_TRUE(spinUntil([this] { return chart("ETH") == nullptr; }));
}

TEST_F(CoinListChartTest, aChartThatWasOpenIsThereAtOnceWhenTheViewIsMadeAgain) {
    startConnected(listOf({"BTC", "ETH"}));
    expanded.set(symbolOf("BTC"));
    make();
    showActive(*window);
    EXPECT_FALSE(rows->isMoving());
    ASSERT_NE(chart("BTC"), nullptr);
    EXPECT_EQ(row("ETH")->y(), kRow + 210);
    EXPECT_EQ(rows->height(), 2 * kRow + 210 + 4);
}

TEST_F(CoinListChartTest, removingTheCoinWhoseChartIsOpenClosesIt) {
    showThreeByChange();
    clickArrow("SOL");
    openMenu("SOL");
    choose("删除");
    EXPECT_EQ(expanded.get(), std::nullopt);
    EXPECT_EQ(chart("SOL"), nullptr);
    EXPECT_THAT(order(), ElementsAre("ETH", "BTC"));
    EXPECT_TRUE(spinUntil([this] { return rows->height() == 2 * kRow + 4; }));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(CoinListChartTest, removingAnotherCoinLeavesTheChartOpen) {
    show({"BTC", "ETH", "SOL"});
    clickArrow("SOL");
    run(state->remove(symbolOf("BTC")));
    EXPECT_EQ(expanded.get(), symbolOf("SOL"));
    EXPECT_NE(chart("SOL"), nullptr);
    EXPECT_EQ(chartsMade, 1);
}

TEST_F(CoinListChartTest, aCoinRemovedWhileTheViewIsHiddenTakesItsChartAlong) {
    show({"BTC", "ETH"});
    clickArrow("BTC");
    window->hide();
    run(state->remove(symbolOf("BTC")));
    EXPECT_EQ(expanded.get(), std::nullopt);
    window->show();
    EXPECT_THAT(order(), ElementsAre("ETH"));
    EXPECT_EQ(rows->height(), kRow + 4);
}

}  // namespace
}  // namespace quillbar
