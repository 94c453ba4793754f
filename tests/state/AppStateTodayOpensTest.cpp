// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/state/AppStateFixture.h"
#include "tests/support/TemporaryEnvironment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Symbols = std::vector<std::string>;
using KlinesRequest = FakeBinanceAPI::KlinesRequest;

/// 2026-11-14T00:00:00Z.
constexpr std::int64_t kMidnight = 1794614400000;
constexpr std::int64_t kNextMidnight = kMidnight + 86400000;

struct AppStateTodayOpensTest : AppStateFixture {
    void SetUp() override { theBasisIsToday(); }
};

TEST_F(AppStateTodayOpensTest, asksForTheFirstMinuteOfTheLocalDayOfEachCoin) {
    theUserHas(listOf({"BTC", "ETH"}));
    api.klinesAnswers.value(candlesFrom(100));
    api.klinesAnswers.value(candlesFrom(40));
    start();
    EXPECT_THAT(api.klinesRequests,
                ElementsAre(KlinesRequest{"BTCUSDT", "1m", 1, kMidnight},
                            KlinesRequest{"ETHUSDT", "1m", 1, kMidnight}));
    EXPECT_EQ(todayOpen("BTC"), 100);
    EXPECT_EQ(todayOpen("ETH"), 40);
}

TEST_F(AppStateTodayOpensTest, asksOneAfterTheOther) {
    theUserHas(listOf({"BTC", "ETH"}));
    const auto first = api.klinesAnswers.held();
    start();
    EXPECT_EQ(opensAskedFor(), Symbols{"BTCUSDT"});
    first.setValue(candlesFrom(100));
    executor.run();
    EXPECT_EQ(opensAskedFor(), (Symbols{"BTCUSDT", "ETHUSDT"}));
}

TEST_F(AppStateTodayOpensTest, asksForTheOpensOfALongListTenASecond) {
    std::vector<std::string> baseAssets;
    for (int coin = 0; coin < 25; ++coin) {
        baseAssets.push_back("C" + std::to_string(coin));
    }
    theUserHas(listOf(baseAssets));
    theOpenIs(100);
    start();
    EXPECT_THAT(api.klinesRequests, SizeIs(10));
    time.advance(Seconds(0.9));
    EXPECT_THAT(api.klinesRequests, SizeIs(10));
    time.advance(Seconds(0.1));
    EXPECT_THAT(api.klinesRequests, SizeIs(20));
    time.advance(Seconds(10));
    EXPECT_THAT(api.klinesRequests, SizeIs(25));
    EXPECT_EQ(todayOpen("C24"), 100);
}

TEST_F(AppStateTodayOpensTest, doesNotAskForWhatAnEditHasMadeNeedless) {
    std::vector<std::string> baseAssets;
    for (int coin = 0; coin < 35; ++coin) {
        baseAssets.push_back("C" + std::to_string(coin));
    }
    theUserHas(listOf(baseAssets));
    theOpenIs(100);
    start();
    run(state->remove("C12USDT"));
    time.advance(Seconds(1));
    EXPECT_THAT(api.klinesRequests, SizeIs(20));
    EXPECT_THAT(opensAskedFor(), Not(Contains("C12USDT")));
    EXPECT_EQ(todayOpen("C12"), std::nullopt);
    state->setChangeBasis(ChangeBasis::rolling24h);
    time.advance(Seconds(10));
    EXPECT_THAT(api.klinesRequests, SizeIs(20));
}

TEST_F(AppStateTodayOpensTest, takesTheDayOfItsCalendar) {
    theUserHas(listOf({"BTC"}));
    time.setClock(TimePoint(Seconds(1794673800)));  // 2026-11-14T16:30:00Z
    state = std::make_unique<AppState>(
        AppStateDependencies{.executor = executor,
                             .api = api,
                             .stream = stream,
                             .store = WatchlistStore(folder.path()),
                             .settingsStore = SettingsStore(folder.path()),
                             .catalog = catalog,
                             .now = time.clock(),
                             .monotonic = time.monotonicClock(),
                             .calendar = Calendar::fixed("Asia/Shanghai"),
                             .sleeper = time.sleeper()});
    run(state->bootstrap());
    EXPECT_THAT(api.klinesRequests, ElementsAre(KlinesRequest{"BTCUSDT", "1m", 1, 1794672000000}));
}

TEST_F(AppStateTodayOpensTest, recomputesTheLabelWhenTheOpensHaveCome) {
    theUserHas(listOf({"BTC"}));
    theSnapshotIs({{"BTCUSDT", Ticker{110, 100}}});
    const auto open = api.klinesAnswers.held();
    start();
    EXPECT_EQ(label(), "BTC 110.00 —");
    open.setValue(candlesFrom(88));
    executor.run();
    EXPECT_EQ(label(), "BTC 110.00 ▲25.00%");
}

TEST_F(AppStateTodayOpensTest, logsAnEmptyAnswerAndGoesOn) {
    theUserHas(listOf({"BTC", "ETH"}));
    api.klinesAnswers.value({});
    theOpenIs(40);
    start();
    EXPECT_THAT(log.lines(),
                ElementsAre("AppState|default|today open fetch returned an empty candle list for "
                            "BTCUSDT"));
    EXPECT_EQ(todayOpen("BTC"), std::nullopt);
    EXPECT_EQ(todayOpen("ETH"), 40);
}

TEST_F(AppStateTodayOpensTest, logsAFailureAndGoesOn) {
    theUserHas(listOf({"BTC", "ETH"}));
    api.klinesAnswers.error(BinanceError(503));
    theOpenIs(40);
    start();
    EXPECT_THAT(log.lines(),
                ElementsAre(std::string("AppState|error|today open refresh failed for BTCUSDT: ")
                            + BinanceError(503).what()));
    EXPECT_EQ(todayOpen("BTC"), std::nullopt);
    EXPECT_EQ(todayOpen("ETH"), 40);
}

TEST_F(AppStateTodayOpensTest, showsADashAfterAFailureAndTriesAgainAfterAMinute) {
    api.klinesAnswers.error(BinanceError(503));
    theOpenIs(88);
    startConnected(listOf({"BTC"}));
    price("BTC", 110);
    EXPECT_EQ(label(), "BTC 110.00 —");
    time.advance(Seconds(59.9));
    price("BTC", 110);
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
    time.advance(Seconds(0.1));
    price("BTC", 110);
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
    EXPECT_EQ(label(), "BTC 110.00 ▲25.00%");
}

TEST_F(AppStateTodayOpensTest, triesAgainWhenTheClockWasSetBack) {
    api.klinesAnswers.error(BinanceError(503));
    theOpenIs(88);
    startConnected(listOf({"BTC"}));
    time.setClock(time.now() - Seconds(3600));
    price("BTC", 110);
    EXPECT_EQ(todayOpen("BTC"), 88);
}

TEST_F(AppStateTodayOpensTest, asksForNothingWhileEveryOpenIsKnown) {
    theOpenIs(100);
    startConnected(listOf({"BTC", "ETH"}));
    time.advance(Seconds(120));
    price("BTC", 110);
    price("ETH", 110);
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
    run(state->refreshTodayOpens());
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
}

TEST_F(AppStateTodayOpensTest, asksForTheMissingOpensAlone) {
    api.klinesAnswers.value(candlesFrom(100));
    api.klinesAnswers.error(BinanceError(503));
    startConnected(listOf({"BTC", "ETH"}));
    api.klinesRequests.clear();
    theOpenIs(40);
    time.advance(Seconds(60));
    price("BTC", 110);
    EXPECT_EQ(opensAskedFor(), Symbols{"ETHUSDT"});
}

TEST_F(AppStateTodayOpensTest, asksForNothingWithTheRollingBasis) {
    theUserHas(AppSettings::defaultSettings());
    startConnected(listOf({"BTC"}));
    time.advance(Seconds(120));
    price("BTC", 110);
    run(state->refreshTodayOpens());
    EXPECT_THAT(api.klinesRequests, IsEmpty());
}

TEST_F(AppStateTodayOpensTest, asksWhenTheBasisBecomesToday) {
    theUserHas(AppSettings::defaultSettings());
    theOpenIs(88);
    startConnected(listOf({"BTC"}));
    price("BTC", 110);
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_THAT(api.klinesRequests, IsEmpty());
    executor.run();
    EXPECT_EQ(opensAskedFor(), Symbols{"BTCUSDT"});
    EXPECT_EQ(label(), "BTC 110.00 ▲25.00%");
}

TEST_F(AppStateTodayOpensTest, doesNotStartASecondRefreshWhileOneRuns) {
    theUserHas(AppSettings::defaultSettings());
    startConnected(listOf({"BTC"}));
    const auto open = api.klinesAnswers.held();
    theOpenIs(88);
    state->setChangeBasis(ChangeBasis::today);
    executor.run();
    time.advance(Seconds(120));
    price("BTC", 110);
    state->setChangeBasis(ChangeBasis::rolling24h);
    state->setChangeBasis(ChangeBasis::today);
    executor.run();
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
    // The flag falls with the refresh.
    open.setError(std::make_exception_ptr(BinanceError(503)));
    executor.run();
    price("BTC", 110);
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
    EXPECT_EQ(todayOpen("BTC"), 88);
}

TEST_F(AppStateTodayOpensTest, fetchesTheOpensOfTheNextDayAfterLocalMidnight) {
    theOpenIs(100);
    startConnected(listOf({"BTC", "ETH"}));
    time.advance(Seconds(12 * 3600 - 1));
    price("BTC", 110);
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
    EXPECT_EQ(label(), "BTC 110.00 ▲10.00%");
    api.klinesRequests.clear();
    const auto open = api.klinesAnswers.held();
    time.advance(Seconds(1));
    price("BTC", 110);
    EXPECT_THAT(*state->todayOpens(), IsEmpty());
    EXPECT_THAT(api.klinesRequests, ElementsAre(KlinesRequest{"BTCUSDT", "1m", 1, kNextMidnight}));
    open.setValue(candlesFrom(55));
    executor.run();
    EXPECT_EQ(todayOpen("BTC"), 55);
    EXPECT_EQ(todayOpen("ETH"), 100);
    EXPECT_EQ(label(), "BTC 110.00 ▲100.00%");
}

TEST_F(AppStateTodayOpensTest, asksForAnOpenThatAnEditMadeMissingWithinTheSameMinute) {
    theUserHas(listOf({"BTC"}));
    // Far enough from the end of a minute.
    time.setClock(time.now() - Seconds(30));
    api.klinesAnswers.value(candlesFrom(100));
    start();
    time.advance(Seconds(60));
    price("BTC", 110);
    api.klinesAnswers.error(BinanceError(503));
    run(state->add(coinOf("ETH")));
    EXPECT_EQ(todayOpen("ETH"), std::nullopt);
    theOpenIs(40);
    time.setClock(time.now() - Seconds(1));
    price("BTC", 110);
    EXPECT_EQ(todayOpen("ETH"), 40);
}

TEST_F(AppStateTodayOpensTest, followsAChangeOfTheZoneWithTheNextMinute) {
    const TemporaryEnvironment noVariable("TZ", std::nullopt);
    const auto localtime = folder.path() / "localtime";
    std::filesystem::create_symlink("/usr/share/zoneinfo/Etc/UTC", localtime);
    theUserHas(listOf({"BTC"}));
    theOpenIs(100);
    state = std::make_unique<AppState>(
        AppStateDependencies{.executor = executor,
                             .api = api,
                             .stream = stream,
                             .store = WatchlistStore(folder.path()),
                             .settingsStore = SettingsStore(folder.path()),
                             .catalog = catalog,
                             .now = time.clock(),
                             .monotonic = time.monotonicClock(),
                             .calendar = Calendar::autoupdatingCurrent(folder.path().string()),
                             .sleeper = time.sleeper()});
    run(state->bootstrap());
    price("BTC", 110);
    std::filesystem::remove(localtime);
    std::filesystem::create_symlink("/usr/share/zoneinfo/Pacific/Kiritimati", localtime);
    time.advance(Seconds(59.9));
    price("BTC", 110);
    EXPECT_THAT(api.klinesRequests, SizeIs(1)) << "one look at the zone serves a minute";
    time.advance(Seconds(0.1));
    price("BTC", 110);
    EXPECT_EQ(api.klinesRequests.back(),
              (KlinesRequest{"BTCUSDT", "1m", 1, kMidnight + std::int64_t{10} * 3600 * 1000}));
}

TEST_F(AppStateTodayOpensTest, keepsTheOpensUntilAPriceComesAfterMidnight) {
    theOpenIs(100);
    startConnected(listOf({"BTC"}));
    time.advance(Seconds(13 * 3600));
    EXPECT_EQ(todayOpen("BTC"), 100);
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
}

TEST_F(AppStateTodayOpensTest, dropsTheOpensOfYesterdayWithEitherBasis) {
    theOpenIs(100);
    startConnected(listOf({"BTC"}));
    time.advance(Seconds(13 * 3600));
    state->setChangeBasis(ChangeBasis::rolling24h);
    EXPECT_THAT(*state->todayOpens(), IsEmpty());
}

TEST_F(AppStateTodayOpensTest, keepsTheOpensOverAChangeOfBasisWithinADay) {
    theOpenIs(100);
    startConnected(listOf({"BTC"}));
    price("BTC", 110);
    state->setChangeBasis(ChangeBasis::rolling24h);
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_EQ(todayOpen("BTC"), 100);
}

TEST_F(AppStateTodayOpensTest, ignoresAnAnswerThatBelongsToYesterday) {
    theUserHas(listOf({"BTC", "ETH"}));
    time.setClock(time.now() + Seconds(12 * 3600 - 30));
    const auto yesterdays = api.klinesAnswers.held();
    start();
    EXPECT_EQ(opensAskedFor(), Symbols{"BTCUSDT"});
    time.setClock(time.now() + Seconds(60));
    theOpenIs(55);
    price("BTC", 110);
    EXPECT_EQ(todayOpen("BTC"), 55);
    yesterdays.setValue(candlesFrom(100));
    executor.run();
    EXPECT_EQ(todayOpen("BTC"), 55);
    EXPECT_EQ(api.klinesRequests.back(), (KlinesRequest{"ETHUSDT", "1m", 1, kMidnight}));
    EXPECT_EQ(todayOpen("ETH"), 55);
}

TEST_F(AppStateTodayOpensTest, tellsWhichOpenHasChanged) {
    theOpenIs(100);
    theUserHas(listOf({"BTC", "ETH"}));
    build();
    Symbols changed;
    const Observation observation =
        state->todayOpens().observe([&](const std::string& symbol) { changed.push_back(symbol); });
    run(state->bootstrap());
    EXPECT_THAT(changed, ElementsAre("BTCUSDT", "ETHUSDT"));
    run(state->remove("ETHUSDT"));
    EXPECT_THAT(changed, ElementsAre("BTCUSDT", "ETHUSDT", "ETHUSDT"));
}

}  // namespace
}  // namespace quillbar
