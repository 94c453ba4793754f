// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Symbols = std::vector<std::string>;

struct AppStateEventsTest : AppStateFixture {};

TEST_F(AppStateEventsTest, followsTheConnectionAndTellsOnlyOfChanges) {
    start();
    Notes<ConnectionState> states(state->connectionState());
    tell(ConnectionState::disconnected);
    tell(ConnectionState::connecting);
    tell(ConnectionState::connected);
    tell(ConnectionState::connected);
    tell(ConnectionState::waitingRetry);
    EXPECT_THAT(states.values,
                ElementsAre(ConnectionState::connecting,
                            ConnectionState::connected,
                            ConnectionState::waitingRetry));
}

TEST_F(AppStateEventsTest, tellsWhyNoPricesStreamUntilTheyDo) {
    build();
    Notes failures(state->connectionFailure());
    EXPECT_EQ(*state->connectionFailure(), std::nullopt);
    const ConnectionFailure refused{.kind = ConnectionFailure::Kind::refused, .httpStatus = 451};
    stream.fails(refused);
    EXPECT_EQ(*state->connectionFailure(), refused);
    stream.recovers();
    EXPECT_THAT(failures.values, ElementsAre(refused, std::nullopt));
}

TEST_F(AppStateEventsTest, storesEachTickerAndItsTime) {
    start();
    time.advance(Seconds(5));
    stream.ticker("BTCUSDT", Ticker{100, 90, 5000});
    executor.run();
    EXPECT_EQ(ticker("BTC"), (Ticker{100, 90, 5000}));
    EXPECT_EQ(*state->lastUpdate(), time.now());
}

TEST_F(AppStateEventsTest, tellsWhichTickerHasChanged) {
    start();
    Symbols changed;
    const Observation observation =
        state->tickers().observe([&](const std::string& symbol) { changed.push_back(symbol); });
    price("BTC", 100);
    price("ETH", 50);
    price("BTC", 100);
    price("BTC", 101);
    EXPECT_THAT(changed, ElementsAre("BTCUSDT", "ETHUSDT", "BTCUSDT"));
}

TEST_F(AppStateEventsTest, storesALateTickerOfACoinThatIsNotOnTheList) {
    startConnected(listOf({"BTC"}));
    price("GONE", 7);
    EXPECT_EQ(ticker("GONE"), (Ticker{7, 100}));
    EXPECT_EQ(label(), "BTC");
}

TEST_F(AppStateEventsTest, survivesTheEndOfTheEvents) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    stream.finish();
    time.advance(Seconds(90));
    EXPECT_EQ(label(), "BTC");
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(AppStateEventsTest, handlesAFloodInOrder) {
    startConnected(listOf({"BTC"}));
    for (int number = 1; number <= 1000; ++number) {
        stream.ticker("BTCUSDT", Ticker{static_cast<double>(number), 100});
    }
    executor.run();
    EXPECT_EQ(ticker("BTC"), (Ticker{1000, 100}));
}

struct AppStateWatchdogTest : AppStateFixture {
    /// How often the stream has been subscribed again since the start.
    [[nodiscard]] std::size_t restartCount() const { return stream.symbolLists.size() - 1; }
};

TEST_F(AppStateWatchdogTest, restartsAConnectedStreamThatWasSilentForNinetyOneSeconds) {
    startConnected(listOf({"BTC", "ETH"}));
    time.advance(Seconds(29));
    price("BTC", 100);
    time.advance(Seconds(90));
    EXPECT_EQ(restartCount(), 0U);
    // The tick after 120 s finds a silence of 91 s.
    time.advance(Seconds(1));
    EXPECT_EQ(restartCount(), 1U);
    EXPECT_EQ(stream.symbolLists.back(), (Symbols{"BTCUSDT", "ETHUSDT"}));
}

TEST_F(AppStateWatchdogTest, leavesAStreamThatWasSilentForExactlyNinetySeconds) {
    startConnected(listOf({"BTC"}));
    time.advance(Seconds(30));
    price("BTC", 100);
    time.advance(Seconds(90));
    EXPECT_EQ(restartCount(), 0U);
    time.advance(Seconds(30));
    EXPECT_EQ(restartCount(), 1U);
}

TEST_F(AppStateWatchdogTest, restartsAgainAtEachTickWhileTheSilenceLasts) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.advance(Seconds(180));
    EXPECT_EQ(restartCount(), 3U);
    price("BTC", 100);
    time.advance(Seconds(90));
    EXPECT_EQ(restartCount(), 3U);
}

TEST_F(AppStateWatchdogTest, restartsASilentStreamThoughTheClockIsSetBack) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.setClock(time.now() - Seconds(8 * 3600));
    time.advance(Seconds(90));
    EXPECT_EQ(restartCount(), 0U);
    time.advance(Seconds(30));
    EXPECT_EQ(restartCount(), 1U);
}

TEST_F(AppStateWatchdogTest, leavesAStreamThatHasSentNothingYet) {
    api.ticker24hAnswers.otherwiseError(BinanceError(503));
    startConnected(listOf({"BTC"}));
    time.advance(Seconds(600));
    EXPECT_EQ(restartCount(), 0U);
}

TEST_F(AppStateWatchdogTest, leavesReconnectingToTheStreamWhenItIsNotConnected) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    for (const ConnectionState connection : {ConnectionState::disconnected,
                                             ConnectionState::connecting,
                                             ConnectionState::waitingRetry}) {
        tell(connection);
        time.advance(Seconds(300));
        EXPECT_EQ(restartCount(), 0U);
    }
}

TEST_F(AppStateWatchdogTest, restartsWithTheListAsItIsByThen) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 100);
    run(state->move({1}, 0));
    time.advance(Seconds(120));
    EXPECT_THAT(stream.symbolLists,
                ElementsAre(Symbols{"BTCUSDT", "ETHUSDT"}, Symbols{"ETHUSDT", "BTCUSDT"}));
}

TEST_F(AppStateWatchdogTest, ticksOnceAfterASleepOfTheMachine) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.jump(Seconds(3600));
    EXPECT_EQ(restartCount(), 1U);
    EXPECT_EQ(label(), "BTC");
}

TEST_F(AppStateWatchdogTest, keepsTheIntervalsItIsGiven) {
    theUserHas(listOf({"BTC"}));
    state = std::make_unique<AppState>(
        AppStateDependencies{.executor = executor,
                             .api = api,
                             .stream = stream,
                             .store = WatchlistStore(folder.path()),
                             .settingsStore = SettingsStore(folder.path()),
                             .catalog = catalog,
                             .now = time.clock(),
                             .monotonic = time.monotonicClock(),
                             .calendar = Calendar::utc(),
                             .sleeper = time.sleeper(),
                             .watchdogInterval = Seconds(2),
                             .staleReconnectThreshold = Seconds(5)});
    run(state->bootstrap());
    tell(ConnectionState::connected);
    time.advance(Seconds(4));
    EXPECT_EQ(time.requested, (std::vector<double>{2, 2, 2}));
    EXPECT_EQ(restartCount(), 0U);
    time.advance(Seconds(2));
    EXPECT_EQ(restartCount(), 1U);
}

struct AppStateResumeTest : AppStateFixture {};

TEST_F(AppStateResumeTest, subscribesAtOnceWhateverTheStateAndFetchesTheSnapshot) {
    startConnected(listOf({"BTC"}));
    for (const ConnectionState connection : {ConnectionState::disconnected,
                                             ConnectionState::connecting,
                                             ConnectionState::connected,
                                             ConnectionState::waitingRetry}) {
        tell(connection);
        stream.symbolLists.clear();
        api.ticker24hRequests.clear();
        run(state->resume());
        EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{"BTCUSDT"}));
        EXPECT_THAT(api.ticker24hRequests, ElementsAre(Symbols{"BTCUSDT"}));
    }
}

TEST_F(AppStateResumeTest, dropsThePriceFromBeforeTheSleep) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.setClock(time.now() + Seconds(3600));
    const auto snapshot = api.ticker24hAnswers.held();
    run(state->resume());
    EXPECT_EQ(label(), "BTC");
    snapshot.setValue({{"BTCUSDT", Ticker{110, 100}}});
    executor.run();
    EXPECT_EQ(label(), "BTC 110.00 ▲10.00%");
}

struct AppStateSnapshotTest : AppStateFixture {};

TEST_F(AppStateSnapshotTest, fillsTickersLabelAndTime) {
    theUserHas(listOf({"BTC", "ETH"}));
    theSnapshotIs({{"BTCUSDT", Ticker{110, 100, 5}}, {"ETHUSDT", Ticker{50, 40}}});
    start();
    EXPECT_EQ(ticker("BTC"), (Ticker{110, 100, 5}));
    EXPECT_EQ(ticker("ETH"), (Ticker{50, 40}));
    EXPECT_EQ(label(), "BTC 110.00 ▲10.00%");
    EXPECT_EQ(*state->lastUpdate(), time.now());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(AppStateSnapshotTest, keepsOnlyWhatIsOnTheListAndReplacesWhatIsStored) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 90);
    price("ETH", 91);
    price("OLD", 92);
    theSnapshotIs({{"BTCUSDT", Ticker{110, 100}}, {"MOREUSDT", Ticker{1, 1}}});
    run(state->refreshSnapshot());
    EXPECT_EQ(ticker("BTC"), (Ticker{110, 100}));
    EXPECT_EQ(ticker("ETH"), (Ticker{91, 100}));
    EXPECT_EQ(ticker("OLD"), (Ticker{92, 100}));
    EXPECT_EQ(ticker("MORE"), std::nullopt);
}

TEST_F(AppStateSnapshotTest, stampsTheAnswerAndNotTheRequest) {
    theUserHas(listOf({"BTC"}));
    const auto snapshot = api.ticker24hAnswers.held();
    start();
    time.advance(Seconds(10));
    snapshot.setValue({});
    executor.run();
    EXPECT_EQ(*state->lastUpdate(), time.now());
}

TEST_F(AppStateSnapshotTest, logsAFailureAndChangesNothing) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    const auto before = *state->lastUpdate();
    time.advance(Seconds(5));
    api.ticker24hAnswers.error(BinanceError(503));
    run(state->refreshSnapshot());
    EXPECT_THAT(log.lines(),
                ElementsAre(std::string("AppState|error|snapshot refresh failed: ")
                            + BinanceError(503).what()));
    EXPECT_EQ(*state->lastUpdate(), before);
    EXPECT_EQ(label(), "BTC 100.00 · 0.00%");
    EXPECT_EQ(*state->lastError(), std::nullopt);
}

TEST_F(AppStateSnapshotTest, isSilentWhenItIsCancelled) {
    startConnected(listOf({"BTC"}));
    const auto snapshot = api.ticker24hAnswers.held();
    const TaskScope::Handle refresh = run(state->refreshSnapshot());
    refresh.cancel();
    executor.run();
    EXPECT_EQ(api.ticker24hAnswers.waitingCount(), 0U);
    EXPECT_FALSE(snapshot.isSettled());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(AppStateSnapshotTest, dropsTheEntryOfACoinRemovedMeanwhile) {
    startConnected(listOf({"BTC", "ETH"}));
    const auto snapshot = api.ticker24hAnswers.held();
    run(state->refreshSnapshot());
    run(state->remove("ETHUSDT"));
    snapshot.setValue({{"BTCUSDT", Ticker{110, 100}}, {"ETHUSDT", Ticker{50, 40}}});
    executor.run();
    EXPECT_EQ(ticker("BTC"), (Ticker{110, 100}));
    EXPECT_EQ(ticker("ETH"), std::nullopt);
}

struct AppStateAgeTest : AppStateFixture {};

TEST_F(AppStateAgeTest, eachCoinHasTheTimeOfItsOwnLastTicker) {
    startConnected(listOf({"BTC", "ETH", "SOL"}));
    price("BTC", 1);
    const TimePoint first = time.now();
    time.advance(Seconds(20));
    price("ETH", 2);
    EXPECT_EQ(state->lastUpdateOf("BTCUSDT"), first);
    EXPECT_EQ(state->lastUpdateOf("ETHUSDT"), time.now());
    EXPECT_EQ(state->lastUpdateOf("SOLUSDT"), std::nullopt);
    time.advance(Seconds(20));
    price("BTC", 1);
    EXPECT_EQ(state->lastUpdateOf("BTCUSDT"), time.now()) << "also where the price is the same";
}

TEST_F(AppStateAgeTest, aSnapshotIsATickerOfEachCoinInIt) {
    startConnected(listOf({"BTC", "ETH"}));
    price("ETH", 2);
    const TimePoint before = time.now();
    time.advance(Seconds(20));
    theSnapshotIs({{"BTCUSDT", Ticker{1, 1}}});
    run(state->refreshSnapshot());
    EXPECT_EQ(state->lastUpdateOf("BTCUSDT"), time.now());
    EXPECT_EQ(state->lastUpdateOf("ETHUSDT"), before);
}

TEST_F(AppStateAgeTest, anObserverOfAPriceFindsItsTime) {
    startConnected(listOf({"BTC"}));
    std::optional<TimePoint> seen;
    const Observation observation = state->tickers().observe(
        [&](const std::string& symbol) { seen = state->lastUpdateOf(symbol); });
    price("BTC", 1);
    EXPECT_EQ(seen, time.now());
}

TEST_F(AppStateAgeTest, followsAClockThatWasSetBackSince) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 1);
    time.setClock(time.now() - Seconds(8 * 3600));
    const TimePoint update = time.now();
    time.advance(Seconds(300));
    price("ETH", 1);
    ASSERT_TRUE(state->lastUpdateOf("BTCUSDT"));
    EXPECT_NEAR((*state->lastUpdateOf("BTCUSDT") - update).count(), 0, 0.001);
}

TEST_F(AppStateAgeTest, aRemovedCoinLosesItsTime) {
    startConnected(listOf({"BTC", "ETH"}));
    price("ETH", 1);
    run(state->remove("ETHUSDT"));
    EXPECT_EQ(state->lastUpdateOf("ETHUSDT"), std::nullopt);
}

}  // namespace
}  // namespace quillbar
