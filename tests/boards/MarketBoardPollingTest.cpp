// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/boards/MarketBoardFixture.h"

#include <gmock/gmock.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Content = BoardPlaceholder::Content;
using LastLoad = MarketBoardView::LastLoad;

/// When a board asks for its data.
struct MarketBoardPollingTest : MarketBoardFixture {};

TEST_F(MarketBoardPollingTest, refreshesEveryThirtySecondsWhileItIsShown) {
    openThree();
    EXPECT_TRUE(market().isPolling());
    EXPECT_FALSE(marketCaps().isPolling());
    EXPECT_EQ(api.ticker24hAllRequests, 1);
    pass(Seconds(29));
    EXPECT_EQ(api.ticker24hAllRequests, 1);
    thenEthLeads();
    pass(Seconds(1));
    EXPECT_EQ(api.ticker24hAllRequests, 2);
    EXPECT_THAT(order(), ElementsAre("1 ETH", "2 SOL", "3 BTC"));
    EXPECT_THAT(coinGecko.counts, IsEmpty());
}

TEST_F(MarketBoardPollingTest, goesOnRefreshingWhileNothingChanges) {
    openThree();
    theExchangeFails();
    for (int each = 0; each < 10; ++each) {
        pass(Seconds(30));
        look();
    }
    EXPECT_EQ(api.ticker24hAllRequests, 11) << "to be looked at is demand";
    EXPECT_TRUE(market().isPolling());
}

TEST_F(MarketBoardPollingTest, hidingStopsEverything) {
    theMarketIsOfThree();
    theMarketCapsAreOfTwo();
    open(RankingBoard::marketCap);
    EXPECT_TRUE(market().isPolling());
    EXPECT_TRUE(marketCaps().isPolling());
    EXPECT_TRUE(lookTimer()->isActive());
    window->hide();
    EXPECT_FALSE(market().isPolling());
    EXPECT_FALSE(marketCaps().isPolling());
    EXPECT_FALSE(lookTimer()->isActive());
    const int asked = api.ticker24hAllRequests;
    pass(Seconds(4000));
    EXPECT_EQ(api.ticker24hAllRequests, asked);
    EXPECT_THAT(coinGecko.counts, SizeIs(1));
    window->show();
    settle();
    EXPECT_EQ(api.ticker24hAllRequests, asked + 1);
    EXPECT_THAT(coinGecko.counts, SizeIs(2));
    EXPECT_TRUE(lookTimer()->isActive());
}

TEST_F(MarketBoardPollingTest, pollsOnceAFrameHasBeenPainted) {
    theMarketIsOfThree();
    showUnpainted(RankingBoard::gainers);
    EXPECT_FALSE(market().isPolling()) << "it would compete with the frame";
    ASSERT_NE(placeholder(), nullptr);
    EXPECT_EQ(placeholder()->content(), Content::loading);
    window->setUpdatesEnabled(true);
    spinUntilIdle();
    EXPECT_TRUE(market().isPolling());
}

TEST_F(MarketBoardPollingTest, pollsWithoutAFrameAtTheNextLook) {
    theMarketIsOfThree();
    showUnpainted(RankingBoard::gainers);
    look();
    EXPECT_TRUE(market().isPolling());
    settle();
    EXPECT_EQ(api.ticker24hAllRequests, 1);
}

TEST_F(MarketBoardPollingTest, aViewHiddenBeforeItsFrameDoesNotPoll) {
    theMarketIsOfThree();
    showUnpainted(RankingBoard::gainers);
    window->hide();
    window->setUpdatesEnabled(true);
    spinUntilIdle();
    EXPECT_FALSE(market().isPolling());
}

TEST_F(MarketBoardPollingTest, aViewHiddenRightAfterItsFrameDoesNotPoll) {
    theMarketIsOfThree();
    showUnpainted(RankingBoard::gainers);
    window->setUpdatesEnabled(true);
    view->repaint();
    window->hide();
    spinUntilIdle();
    EXPECT_FALSE(market().isPolling());
}

TEST_F(MarketBoardPollingTest, aBoardLeftBeforeItsFrameLeavesNoSpinner) {
    theExchangeFails();
    open(RankingBoard::gainers);
    window->setUpdatesEnabled(false);
    view->setBoard(RankingBoard::marketCap);
    EXPECT_EQ(placeholder()->content(), Content::loading);
    view->setBoard(RankingBoard::gainers);
    EXPECT_EQ(placeholder()->content(), Content::failed);
}

TEST_F(MarketBoardPollingTest, hidingTheViewAloneStopsThePollingToo) {
    openThree();
    view->hide();
    EXPECT_FALSE(market().isPolling());
    view->show();
    spinUntilIdle();
    EXPECT_TRUE(market().isPolling());
}

TEST_F(MarketBoardPollingTest, hidingCancelsARefreshThatRuns) {
    theExchangeFails();
    open(RankingBoard::gainers);
    auto answer = api.ticker24hAllAnswers.held();
    ASSERT_NE(retryButton(), nullptr);
    retryButton()->click();
    settle();
    EXPECT_EQ(api.ticker24hAllAnswers.waitingCount(), 1U);
    window->hide();
    executor.run();
    EXPECT_EQ(api.ticker24hAllAnswers.waitingCount(), 0U);
}

TEST_F(MarketBoardPollingTest, aHiddenViewFollowsNothing) {
    openThree();
    window->hide();
    thenEthLeads();
    run(market().refreshOnce());
    run(state->add(coinOf("ETH")));
    spinUntilIdle();
    EXPECT_THAT(rows->ids(), IsEmpty());
    view->setBoard(RankingBoard::volume);
    EXPECT_FALSE(market().isPolling());
    EXPECT_FALSE(marketCaps().isPolling());
    window->show();
    EXPECT_THAT(order(), ElementsAre("1 BTC", "2 ETH", "3 SOL"));
    EXPECT_NE(checkMark("ETH"), nullptr);
}

TEST_F(MarketBoardPollingTest, anotherBoardGoesOnWithThePollingAndMarketCapsJoin) {
    theMarketIsOfThree();
    theMarketCapsAreOfTwo();
    open(RankingBoard::gainers);
    view->setBoard(RankingBoard::losers);
    settle();
    EXPECT_EQ(api.ticker24hAllRequests, 1);
    view->setBoard(RankingBoard::marketCap);
    ASSERT_NE(placeholder(), nullptr);
    EXPECT_EQ(placeholder()->content(), Content::loading);
    settle();
    EXPECT_TRUE(marketCaps().isPolling());
    EXPECT_THAT(order(), ElementsAre("1 BTC", "2 ETH"));
    EXPECT_EQ(api.ticker24hAllRequests, 1);
    view->setBoard(RankingBoard::gainers);
    EXPECT_TRUE(marketCaps().isPolling()) << "only leaving the boards stops it";
    window->hide();
    EXPECT_FALSE(marketCaps().isPolling());
}

TEST_F(MarketBoardPollingTest, aViewThatGoesWhileItIsShownStopsThePolling) {
    openThree();
    window.reset();
    EXPECT_FALSE(market().isPolling());
}

TEST_F(MarketBoardPollingTest, aViewThatGoesWhileItsWindowStaysStopsThePolling) {
    openThree();
    delete view;
    EXPECT_FALSE(market().isPolling());
}

TEST_F(MarketBoardPollingTest, pollingThatEndedWhileTheMachineSleptBeginsAgain) {
    openThree();
    time.jump(Seconds(3600));
    spinUntilIdle();
    ASSERT_FALSE(market().isPolling());
    look();
    EXPECT_EQ(warning(), "已停止刷新,数据为60 分钟前的");
    settle();
    EXPECT_EQ(warning(), "");
    EXPECT_TRUE(market().isPolling());
    EXPECT_EQ(api.ticker24hAllRequests, 2);
}

}  // namespace
}  // namespace quillbar
