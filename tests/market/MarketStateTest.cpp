// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/market/MarketState.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <memory>

namespace quillbar {

namespace {

using Ranking::Board;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MarketStateTest : public ::testing::Test {
protected:
    MarketStateTest() {
        m_api.exchangeInfoAnswers.otherwise({{"BTCUSDT", "BTC"}, {"ETHUSDT", "ETH"}});
        m_api.ticker24hAllAnswers.otherwise(
            {{"BTCUSDT", {110, 100, 5}}, {"ETHUSDT", {120, 100, 3}}, {"ETHBTC", {9, 1, 9}}});
        rebuild();
    }

    void rebuild() {
        m_market = std::make_unique<MarketState>(
            m_executor, m_api, m_catalog, m_time.clock(), m_time.sleeper());
    }

    TaskScope::Handle refresh() {
        auto handle = m_scope.spawn(m_market->refreshOnce());
        m_executor.run();
        return handle;
    }

    std::string gainers() {
        std::string result;
        for (const RankedCoin& row : m_market->board(Board::gainers, 50)) {
            result += std::to_string(row.rank) + row.coin.baseAsset + " ";
        }
        return result;
    }

    CapturedLog m_log;
    ManualExecutor m_executor;
    ManualTime m_time{m_executor};
    TemporaryFolder m_folder;
    FakeBinanceAPI m_api;
    CoinCatalog m_catalog{m_executor, m_api, m_folder.path(), m_time.clock()};
    std::unique_ptr<MarketState> m_market;
    // Last: its tasks use the model.
    TaskScope m_scope{m_executor};
};

TEST_F(MarketStateTest, startsWithNothing) {
    EXPECT_EQ(gainers(), "");
    EXPECT_EQ(m_market->dataAge(), std::nullopt);
    EXPECT_FALSE(*m_market->isLoading());
    EXPECT_FALSE(*m_market->loadFailed());
    EXPECT_FALSE(m_market->isPolling());
}

TEST_F(MarketStateTest, ranksWhatARefreshBrought) {
    refresh();
    EXPECT_EQ(gainers(), "1ETH 2BTC ");
    EXPECT_EQ(*m_market->lastUpdate(), m_time.now());
    m_time.advance(Seconds(12));
    EXPECT_EQ(m_market->dataAge(), Seconds(12));
    EXPECT_EQ(m_market->snapshot().universe.size(), 2U);
    EXPECT_EQ(m_market->snapshot().tickers.size(), 3U);
}

TEST_F(MarketStateTest, loadsTheUniverseOnceAndTheTickersEachTime) {
    refresh();
    refresh();
    EXPECT_EQ(m_api.exchangeInfoRequests, 1);
    EXPECT_EQ(m_api.ticker24hAllRequests, 2);
}

TEST_F(MarketStateTest, isLoadingOnlyWhileThereIsNothingToShow) {
    auto first = m_api.ticker24hAllAnswers.held();
    auto second = m_api.ticker24hAllAnswers.held();
    refresh();
    EXPECT_TRUE(*m_market->isLoading());
    first.setValue({{"BTCUSDT", {110, 100, 5}}});
    m_executor.run();
    EXPECT_FALSE(*m_market->isLoading());
    refresh();
    EXPECT_FALSE(*m_market->isLoading());
    second.setValue({});
    m_executor.run();
}

TEST_F(MarketStateTest, keepsItsDataWhenARefreshFails) {
    refresh();
    const auto updated = *m_market->lastUpdate();
    m_time.advance(Seconds(5));
    m_api.ticker24hAllAnswers.error(BinanceError(503));
    refresh();
    EXPECT_TRUE(*m_market->loadFailed());
    EXPECT_FALSE(*m_market->isLoading());
    EXPECT_EQ(gainers(), "1ETH 2BTC ");
    EXPECT_EQ(*m_market->lastUpdate(), updated);
    EXPECT_THAT(m_log.lines("MarketState"),
                ElementsAre("MarketState|error|market refresh failed: httpStatus(503)"));
    refresh();
    EXPECT_FALSE(*m_market->loadFailed());
}

TEST_F(MarketStateTest, failsWithNothingToShow) {
    m_api.exchangeInfoAnswers.error(BinanceError(400));
    refresh();
    EXPECT_TRUE(*m_market->loadFailed());
    EXPECT_FALSE(*m_market->isLoading());
    EXPECT_EQ(m_api.ticker24hAllRequests, 0);
    EXPECT_EQ(m_market->dataAge(), std::nullopt);
}

TEST_F(MarketStateTest, keepsTheUniverseOfARefreshWhoseTickersFailed) {
    m_api.ticker24hAllAnswers.error(BinanceError(400));
    refresh();
    refresh();
    EXPECT_EQ(m_api.exchangeInfoRequests, 1);
    EXPECT_EQ(gainers(), "1ETH 2BTC ");
}

TEST_F(MarketStateTest, isSilentWhenARefreshIsCancelledInFlight) {
    auto answer = m_api.ticker24hAllAnswers.held();
    const auto handle = refresh();
    ASSERT_TRUE(*m_market->isLoading());
    handle.cancel();
    m_executor.run();
    EXPECT_FALSE(*m_market->isLoading());
    EXPECT_FALSE(*m_market->loadFailed());
    EXPECT_THAT(m_log.lines("MarketState"), IsEmpty());
    EXPECT_EQ(m_api.ticker24hAllAnswers.waitingCount(), 0U);
}

TEST_F(MarketStateTest, isSilentWhenTheTransferWasCancelled) {
    m_api.ticker24hAllAnswers.error(URLError(URLError::Code::cancelled, "cancelled"));
    refresh();
    EXPECT_FALSE(*m_market->isLoading());
    EXPECT_FALSE(*m_market->loadFailed());
    EXPECT_THAT(m_log.lines("MarketState"), IsEmpty());
}

TEST_F(MarketStateTest, stopsLoadingWhenItsRefreshIsDestroyed) {
    auto answer = m_api.ticker24hAllAnswers.held();
    {
        TaskScope view(m_executor);
        view.spawn(m_market->refreshOnce());
        m_executor.run();
        ASSERT_TRUE(*m_market->isLoading());
    }
    EXPECT_FALSE(*m_market->isLoading());
}

TEST_F(MarketStateTest, pollsWhileItsBoardsAreRead) {
    m_market->startPolling();
    for (int second = 0; second < 90; second += 5) {
        (void)m_market->board(Board::volume, 50);
        m_time.advance(Seconds(5));
    }
    EXPECT_EQ(m_api.ticker24hAllRequests, 4);
    m_time.advance(Seconds(1000));
    // Last read at 85 s: 120 s is within a minute of it, 150 s is not.
    EXPECT_EQ(m_api.ticker24hAllRequests, 5);
    EXPECT_FALSE(m_market->isPolling());
}

TEST_F(MarketStateTest, countsASnapshotAsDemand) {
    m_market->startPolling();
    m_time.advance(Seconds(59));
    (void)m_market->snapshot();
    m_time.advance(Seconds(31));
    EXPECT_TRUE(m_market->isPolling());
}

TEST_F(MarketStateTest, pollsOnAfterAFailure) {
    m_api.ticker24hAllAnswers.error(BinanceError(503));
    m_market->startPolling();
    m_executor.run();
    EXPECT_TRUE(*m_market->loadFailed());
    m_time.advance(Seconds(30));
    EXPECT_FALSE(*m_market->loadFailed());
}

TEST_F(MarketStateTest, isSilentWhenItsPollingIsStoppedInFlight) {
    auto answer = m_api.ticker24hAllAnswers.held();
    m_market->startPolling();
    m_executor.run();
    ASSERT_TRUE(*m_market->isLoading());
    m_market->stopPolling();
    m_executor.run();
    EXPECT_FALSE(m_market->isPolling());
    EXPECT_FALSE(*m_market->isLoading());
    EXPECT_FALSE(*m_market->loadFailed());
    EXPECT_EQ(m_api.ticker24hAllAnswers.waitingCount(), 0U);
    EXPECT_THAT(m_log.lines("MarketState"), IsEmpty());
}

TEST_F(MarketStateTest, isSilentAboutAFailureThatIsDeliveredAfterItsPollingWasStopped) {
    auto answer = m_api.ticker24hAllAnswers.held();
    m_market->startPolling();
    m_executor.run();
    answer.setError(std::make_exception_ptr(BinanceError(429)));
    m_market->stopPolling();
    m_executor.run();
    EXPECT_FALSE(*m_market->isLoading());
    EXPECT_FALSE(*m_market->loadFailed());
    EXPECT_THAT(m_log.lines("MarketState"), IsEmpty());
}

TEST_F(MarketStateTest, keepsWhatArrivedBeforeItsPollingWasStopped) {
    auto answer = m_api.ticker24hAllAnswers.held();
    m_market->startPolling();
    m_executor.run();
    answer.setValue({{"BTCUSDT", {110, 100, 5}}});
    m_market->stopPolling();
    m_executor.run();
    EXPECT_EQ(gainers(), "1BTC ");
    EXPECT_EQ(*m_market->lastUpdate(), m_time.now());
}

TEST_F(MarketStateTest, asksForNothingWhenItsPollingIsStoppedBeforeItBegan) {
    m_market->startPolling();
    m_market->stopPolling();
    m_executor.run();
    EXPECT_EQ(m_api.exchangeInfoRequests, 0);
    EXPECT_EQ(m_api.ticker24hAllRequests, 0);
}

TEST_F(MarketStateTest, pollsAgainAfterItWasStopped) {
    m_market->startPolling();
    m_executor.run();
    m_market->stopPolling();
    m_market->startPolling();
    m_executor.run();
    EXPECT_TRUE(m_market->isPolling());
    EXPECT_EQ(m_api.ticker24hAllRequests, 2);
    EXPECT_EQ(m_time.sleepingCount(), 1U);
}

TEST_F(MarketStateTest, keepsItsAgeWhileARefreshFails) {
    refresh();
    m_time.advance(Seconds(61));
    m_api.ticker24hAllAnswers.error(BinanceError(503));
    refresh();
    EXPECT_EQ(m_market->dataAge(), Seconds(61));
}

TEST_F(MarketStateTest, canBeDestroyedWhileItRefreshes) {
    auto answer = m_api.ticker24hAllAnswers.held();
    m_market->startPolling();
    m_executor.run();
    ASSERT_EQ(m_api.ticker24hAllAnswers.waitingCount(), 1U);
    m_market.reset();
    EXPECT_EQ(m_api.ticker24hAllAnswers.waitingCount(), 0U);
    answer.setValue({});
    m_executor.run();
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(MarketStateTest, canBeDestroyedBetweenTwoRefreshes) {
    m_market->startPolling();
    m_executor.run();
    ASSERT_EQ(m_time.sleepingCount(), 1U);
    m_market.reset();
    EXPECT_EQ(m_time.sleepingCount(), 0U);
    m_time.advance(Seconds(100));
    EXPECT_EQ(m_api.ticker24hAllRequests, 1);
}

TEST_F(MarketStateTest, doesNotTellOfWhatHasNotChanged) {
    refresh();
    int changes = 0;
    const Observation tickers = m_market->tickers().observe([&](const auto&) { ++changes; });
    const Observation universe = m_market->universe().observe([&](const auto&) { ++changes; });
    refresh();
    EXPECT_EQ(changes, 0);
}

}  // namespace

}  // namespace quillbar
