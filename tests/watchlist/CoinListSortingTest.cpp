// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/watchlist/CoinListFixture.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

struct CoinListSortingTest : CoinListFixture {
    /// Thirty coins, C10 to C39, of which the last has risen most, sorted by change.
    void showManySorted() {
        showMany();
        click("涨跌");
    }
    void showMany() {
        std::vector<std::string> coins;
        for (int each = 10; each < 40; ++each) {
            coins.push_back("C" + std::to_string(each));
        }
        show(coins);
        tick("C39", {200, 100});
        ASSERT_EQ(rows->height(), 560);
    }
};

TEST_F(CoinListSortingTest, aClickOnATitleSortsDescendingThenAscendingThenNot) {
    showThreeByChange();
    EXPECT_EQ(view->sort(), (WatchlistSort{WatchlistSortColumn::change, false}));
    EXPECT_EQ(header("涨跌")->direction(), SortDirection::descending);
    EXPECT_EQ(header("涨跌")->accessibleName(), QStringLiteral("涨跌，降序"));
    click("涨跌");
    EXPECT_THAT(order(), ElementsAre("BTC", "SOL", "ETH"));
    EXPECT_EQ(header("涨跌")->direction(), SortDirection::ascending);
    click("涨跌");
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_EQ(view->sort(), std::nullopt);
    EXPECT_EQ(header("涨跌")->direction(), std::nullopt);
}

TEST_F(CoinListSortingTest, anotherTitleBeginsDescendingAndTakesTheArrow) {
    showThreeByChange();
    click("成交额");
    EXPECT_THAT(order(), ElementsAre("BTC", "SOL", "ETH"));
    EXPECT_EQ(header("涨跌")->direction(), std::nullopt);
    EXPECT_EQ(header("成交额")->direction(), SortDirection::descending);
    click("价格");
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_EQ(header("价格")->toolTip(), QStringLiteral("点击排序:降序 → 升序 → 手动顺序"));
}

TEST_F(CoinListSortingTest, aSortedListFollowsThePricesAMomentLaterAndOnceForAll) {
    showThreeByChange();
    tick("BTC", {150, 100});
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+50.00%")) << "the cell is at once";
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC")) << "the order is not";
    tick("SOL", {140, 100});
    EXPECT_TRUE(comesTo({"BTC", "SOL", "ETH"}));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(CoinListSortingTest, thousandsOfPricesAreOneNewOrder) {
    showThreeByChange();
    auto* const timer = view->findChild<QTimer*>(QStringLiteral("reorder"));
    ASSERT_NE(timer, nullptr);
    int orders = 0;
    QObject::connect(timer, &QTimer::timeout, view, [&orders] { ++orders; });
    for (int each = 0; each < 2000; ++each) {
        tick("BTC", {104 + each / 1000.0, 100});
    }
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_TRUE(comesTo({"BTC", "ETH", "SOL"}));
    EXPECT_EQ(orders, 1);
    EXPECT_FALSE(timer->isActive()) << "nothing is left to do";
}

TEST_F(CoinListSortingTest, aSortedListFollowsTodaysOpensAndTheBasis) {
    theOpenIs(50);
    showThreeByChange();
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_TRUE(comesTo({"BTC", "ETH", "SOL"})) << "without opens they come by symbol";
    executor.run();
    EXPECT_TRUE(comesTo({"ETH", "SOL", "BTC"}));
}

TEST_F(CoinListSortingTest, pricesDoNotReorderTheManualOrder) {
    show({"BTC", "ETH"});
    tick("ETH", {500, 100});
    spinUntilIdle();
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH"));
}

TEST_F(CoinListSortingTest, hidingEndsTheSort) {
    showThreeByChange();
    window->hide();
    EXPECT_EQ(view->sort(), std::nullopt);
    window->show();
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_EQ(header("涨跌")->direction(), std::nullopt);
}

TEST_F(CoinListSortingTest, hidingASortedListLeadsItBackToItsBeginning) {
    showManySorted();
    rows->scrollTo(10000);
    ASSERT_GT(rows->scrollOffset(), 0);
    window->hide();
    window->show();
    EXPECT_EQ(rows->scrollOffset(), 0);
}

TEST_F(CoinListSortingTest, hidingASortedListLeadsItBackToItsChart) {
    showManySorted();
    ASSERT_EQ(order().front(), "C39");
    clickArrow("C39");
    ASSERT_EQ(rows->scrollOffset(), 0);
    window->hide();
    window->show();
    ASSERT_TRUE(spinUntil([this] { return row("C39") != nullptr && row("C39")->isVisible(); }));
    EXPECT_EQ(chart("C39")->visibleRegion().boundingRect(), chart("C39")->rect());
    EXPECT_EQ(rows->scrollOffset(), 30 * kRow + 210 - 560);
}

TEST_F(CoinListSortingTest, leavingASortedListWhileItsChartOpensLeadsItBackToAllOfIt) {
    showManySorted();
    QTest::mouseClick(arrow("C39"), Qt::LeftButton);
    ASSERT_TRUE(rows->isMoving());
    view->hide();
    view->show();
    ASSERT_TRUE(spinUntil([this] { return chart("C39") != nullptr && chart("C39")->isVisible(); }));
    EXPECT_EQ(chart("C39")->visibleRegion().boundingRect(), QRect(0, 0, 400, 210));
}

TEST_F(CoinListSortingTest, hidingAListInItsOwnOrderLeavesItWhereItIs) {
    showMany();
    rows->scrollTo(30);
    window->hide();
    window->show();
    EXPECT_EQ(rows->scrollOffset(), 30);
}

}  // namespace
}  // namespace quillbar
