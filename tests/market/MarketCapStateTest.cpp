// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/market/CoinGeckoError.h"
#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/model/ReferenceDate.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeCoinGeckoAPI.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <filesystem>
#include <memory>
#include <string>

namespace quillbar {

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

const std::vector<MarketCapEntry> kFirst{{"BTC", 1, 2, 3}};
const std::vector<MarketCapEntry> kSecond{{"BTC", 1, 2, 4}, {"ETH", 2, 1, 1}};

class MarketCapStateTest : public ::testing::Test {
protected:
    MarketCapStateTest() {
        m_api.answers.otherwise(kFirst);
        restart();
    }

    void restart() {
        m_state.reset();
        m_state = std::make_unique<MarketCapState>(m_executor,
                                                   m_api,
                                                   MarketCapCache(m_folder.path(), m_time.clock()),
                                                   m_time.clock(),
                                                   m_time.sleeper());
    }

    TaskScope::Handle refresh() {
        auto handle = m_scope.spawn(m_state->refreshOnce());
        m_executor.run();
        return handle;
    }

    CapturedLog m_log;
    ManualExecutor m_executor;
    ManualTime m_time{m_executor};
    TemporaryFolder m_folder;
    FakeCoinGeckoAPI m_api;
    std::unique_ptr<MarketCapState> m_state;
    // Last: its tasks use the model.
    TaskScope m_scope{m_executor};
};

TEST_F(MarketCapStateTest, startsEmptyWithoutACache) {
    EXPECT_THAT(m_state->entries(), IsEmpty());
    EXPECT_EQ(m_state->dataAge(), std::nullopt);
    EXPECT_FALSE(*m_state->isLoading());
    EXPECT_FALSE(*m_state->loadFailed());
}

TEST_F(MarketCapStateTest, asksForTheWholePool) {
    refresh();
    EXPECT_THAT(m_api.counts, ElementsAre(250));
    EXPECT_EQ(m_state->entries(), kFirst);
    EXPECT_EQ(m_state->dataAge(), Seconds(0));
}

TEST_F(MarketCapStateTest, refreshesNoMoreThanEveryFiveMinutes) {
    refresh();
    m_time.advance(Seconds(299));
    refresh();
    EXPECT_THAT(m_api.counts, SizeIs(1));
    m_time.advance(Seconds(1));
    refresh();
    EXPECT_THAT(m_api.counts, SizeIs(2));
}

TEST_F(MarketCapStateTest, takesAListFromTheFutureAsOld) {
    refresh();
    m_time.setClock(m_time.now() - Seconds(8 * 3600));
    refresh();
    EXPECT_THAT(m_api.counts, SizeIs(2));
    EXPECT_EQ(m_state->dataAge(), Seconds(0));
    refresh();
    EXPECT_THAT(m_api.counts, SizeIs(2));
}

TEST_F(MarketCapStateTest, doesNotThrottleWithNothingToShow) {
    m_api.answers.value({});
    refresh();
    refresh();
    EXPECT_THAT(m_api.counts, SizeIs(2));
}

TEST_F(MarketCapStateTest, doesNotThrottleWithNothingToShowHoweverYoungTheCache) {
    writeContents(
        m_folder.path() / "market-cap.json",
        fmt::format(R"({{"fetchedAt":{},"entries":[]}})", (m_time.now() - kReferenceDate).count()));
    restart();
    ASSERT_EQ(m_state->dataAge(), Seconds(0));
    refresh();
    EXPECT_THAT(m_api.counts, SizeIs(1));
    EXPECT_EQ(m_state->entries(), kFirst);
}

TEST_F(MarketCapStateTest, changesNothingWhileItIsThrottled) {
    refresh();
    m_time.advance(Seconds(400));
    m_api.answers.error(CoinGeckoError(503));
    refresh();
    ASSERT_TRUE(*m_state->loadFailed());
    restart();
    m_time.setClock(*m_state->lastUpdate().get() + Seconds(299));
    refresh();
    EXPECT_THAT(m_api.counts, SizeIs(2));
    EXPECT_FALSE(*m_state->loadFailed());
    EXPECT_FALSE(*m_state->isLoading());
    EXPECT_EQ(m_state->dataAge(), Seconds(299));
}

TEST_F(MarketCapStateTest, keepsTheLastListOnDiskOverAFailureAndAnEmptyAnswer) {
    refresh();
    const std::string saved = contentsOf(m_folder.path() / "market-cap.json");
    ASSERT_FALSE(saved.empty());
    m_time.advance(Seconds(400));
    m_api.answers.error(CoinGeckoError(429));
    refresh();
    m_api.answers.value({});
    refresh();
    EXPECT_EQ(contentsOf(m_folder.path() / "market-cap.json"), saved);
}

TEST_F(MarketCapStateTest, showsAListThatItCannotSave) {
    std::filesystem::create_directories(m_folder.path() / "market-cap.json" / "a folder");
    refresh();
    EXPECT_EQ(m_state->entries(), kFirst);
    EXPECT_FALSE(*m_state->loadFailed());
    EXPECT_THAT(m_log.lines(),
                ElementsAre(StartsWith("MarketCapCache|error|failed to save market cap cache: ")));
}

TEST_F(MarketCapStateTest, showsTheCachedListAtOnceAfterARestart) {
    refresh();
    m_time.advance(Seconds(299));
    restart();
    EXPECT_EQ(m_state->entries(), kFirst);
    EXPECT_EQ(m_state->dataAge(), Seconds(299));
    refresh();
    EXPECT_THAT(m_api.counts, SizeIs(1));
}

TEST_F(MarketCapStateTest, showsAnOldCachedListWhileItRefreshes) {
    refresh();
    m_time.advance(Seconds(86400));
    restart();
    auto answer = m_api.answers.held();
    refresh();
    EXPECT_EQ(m_state->entries(), kFirst);
    EXPECT_FALSE(*m_state->isLoading());
    answer.setValue(kSecond);
    m_executor.run();
    EXPECT_EQ(m_state->entries(), kSecond);
    EXPECT_EQ(m_state->dataAge(), Seconds(0));
}

TEST_F(MarketCapStateTest, isLoadingOnlyWhileThereIsNothingToShow) {
    auto answer = m_api.answers.held();
    refresh();
    EXPECT_TRUE(*m_state->isLoading());
    answer.setValue(kFirst);
    m_executor.run();
    EXPECT_FALSE(*m_state->isLoading());
}

TEST_F(MarketCapStateTest, keepsItsListAndItsAgeOverAnEmptyAnswer) {
    refresh();
    m_time.advance(Seconds(400));
    m_api.answers.error(CoinGeckoError(429));
    refresh();
    ASSERT_TRUE(*m_state->loadFailed());
    m_log.clear();
    m_api.answers.value({});
    refresh();
    EXPECT_EQ(m_state->entries(), kFirst);
    EXPECT_EQ(m_state->dataAge(), Seconds(400));
    // Neither a success nor a failure.
    EXPECT_TRUE(*m_state->loadFailed());
    EXPECT_FALSE(*m_state->isLoading());
    EXPECT_THAT(m_log.lines(),
                ElementsAre("MarketCapState|default|coingecko returned an empty snapshot; keeping "
                            "the previous one"));
}

TEST_F(MarketCapStateTest, keepsItsListWhenARefreshFails) {
    refresh();
    m_time.advance(Seconds(400));
    m_api.answers.error(CoinGeckoError(429));
    refresh();
    EXPECT_TRUE(*m_state->loadFailed());
    EXPECT_EQ(m_state->entries(), kFirst);
    EXPECT_THAT(m_log.lines(),
                ElementsAre("MarketCapState|error|market cap refresh failed: httpStatus(429)"));
    refresh();
    EXPECT_FALSE(*m_state->loadFailed());
}

TEST_F(MarketCapStateTest, isSilentWhenCancelled) {
    auto answer = m_api.answers.held();
    const auto handle = refresh();
    handle.cancel();
    m_executor.run();
    EXPECT_FALSE(*m_state->isLoading());
    m_api.answers.error(URLError(URLError::Code::cancelled, "cancelled"));
    refresh();
    EXPECT_FALSE(*m_state->isLoading());
    EXPECT_FALSE(*m_state->loadFailed());
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(MarketCapStateTest, pollsEveryHalfHourAndStopsAfterAnHourWithoutALook) {
    m_state->startPolling();
    m_time.advance(Seconds(1000));
    (void)m_state->entries();
    m_time.advance(Seconds(10000));
    // Looked at after 1000 s: the waking at 3600 s is within an hour of it, the one at 5400 s not.
    EXPECT_THAT(m_api.counts, SizeIs(3));
    EXPECT_FALSE(m_state->isPolling());
    EXPECT_THAT(m_time.requested, Each(1800));
}

TEST_F(MarketCapStateTest, countsALookAtTheListAsDemand) {
    m_state->startPolling();
    m_time.advance(Seconds(55 * 60));
    (void)m_state->entries();
    m_time.advance(Seconds(40 * 60));
    EXPECT_TRUE(m_state->isPolling());
}

TEST_F(MarketCapStateTest, isSilentWhenItsPollingIsStoppedInFlight) {
    auto answer = m_api.answers.held();
    m_state->startPolling();
    m_executor.run();
    ASSERT_TRUE(*m_state->isLoading());
    m_state->stopPolling();
    m_executor.run();
    EXPECT_FALSE(m_state->isPolling());
    EXPECT_FALSE(*m_state->isLoading());
    EXPECT_FALSE(*m_state->loadFailed());
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(MarketCapStateTest, isSilentAboutAFailureThatIsDeliveredAfterItsPollingWasStopped) {
    auto answer = m_api.answers.held();
    m_state->startPolling();
    m_executor.run();
    answer.setError(std::make_exception_ptr(CoinGeckoError(429)));
    m_state->stopPolling();
    m_executor.run();
    EXPECT_FALSE(*m_state->isLoading());
    EXPECT_FALSE(*m_state->loadFailed());
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(MarketCapStateTest, canBeDestroyedWhileItRefreshes) {
    auto answer = m_api.answers.held();
    m_state->startPolling();
    m_executor.run();
    ASSERT_EQ(m_api.answers.waitingCount(), 1U);
    m_state.reset();
    EXPECT_EQ(m_api.answers.waitingCount(), 0U);
    answer.setValue(kFirst);
    m_executor.run();
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(MarketCapStateTest, canBeDestroyedBetweenTwoRefreshes) {
    m_state->startPolling();
    m_executor.run();
    ASSERT_EQ(m_time.sleepingCount(), 1U);
    m_state.reset();
    EXPECT_EQ(m_time.sleepingCount(), 0U);
    m_time.advance(Seconds(2000));
    EXPECT_THAT(m_api.counts, SizeIs(1));
}

TEST_F(MarketCapStateTest, keepsPollingAtExactlyAnHour) {
    m_state->startPolling();
    m_time.advance(Seconds(3600));
    EXPECT_TRUE(m_state->isPolling());
    m_time.advance(Seconds(1800));
    EXPECT_FALSE(m_state->isPolling());
}

}  // namespace

}  // namespace quillbar
