// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/PriceFormatter.h"
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct AppStateLabelTest : AppStateFixture {};

TEST_F(AppStateLabelTest, isTheProgramsNameWithoutAPin) {
    theUserHas(Watchlist{1, {coinOf("BTC")}});
    build();
    EXPECT_EQ(label(), "Quillbar");
}

TEST_F(AppStateLabelTest, isTheProgramsNameWhenThePinIsNotOnTheList) {
    theUserHas(Watchlist{1, {coinOf("BTC")}, "GONEUSDT"});
    build();
    EXPECT_EQ(label(), "Quillbar");
}

TEST_F(AppStateLabelTest, isTheBaseAssetBeforeThereIsAPrice) {
    theUserHas(listOf({"BTC", "ETH"}));
    build();
    EXPECT_EQ(label(), "BTC");
}

TEST_F(AppStateLabelTest, isBaseAssetPriceAndChange) {
    startConnected(listOf({"BTC"}));
    price("BTC", 67234.5, 66417.56);
    EXPECT_EQ(label(), "BTC 67,234.50 ▲ 1.23%");
}

TEST_F(AppStateLabelTest, showsAFallAndNoChange) {
    startConnected(listOf({"BTC"}));
    price("BTC", 87.5, 100);
    EXPECT_EQ(label(), "BTC 87.50 ▼12.50%");
    time.advance(Seconds(1));
    price("BTC", 87.5, 0);
    EXPECT_EQ(label(), "BTC 87.50 · 0.00%");
}

TEST_F(AppStateLabelTest, showsThePinnedCoinAlone) {
    startConnected(listOf({"BTC", "ETH"}));
    price("ETH", 110);
    EXPECT_EQ(label(), "BTC");
}

TEST_F(AppStateLabelTest, changesAtMostOnceASecond) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.advance(Seconds(0.5));
    price("BTC", 110);
    EXPECT_EQ(label(), "BTC 100.00 · 0.00%");
    EXPECT_EQ(ticker("BTC"), (Ticker{110, 100}));
    EXPECT_EQ(*state->lastUpdate(), time.now());
    time.advance(Seconds(0.5));
    price("BTC", 120);
    EXPECT_EQ(label(), "BTC 120.00 ▲20.00%");
}

TEST_F(AppStateLabelTest, showsTheLastPriceOfAQuietMarketWhenItsSecondEnds) {
    startConnected(listOf({"BTC", "ETH"}));
    price("ETH", 50);
    price("BTC", 100);
    time.advance(Seconds(0.5));
    price("BTC", 110);
    time.advance(Seconds(0.4));
    EXPECT_EQ(label(), "BTC");
    time.advance(Seconds(0.1));
    EXPECT_EQ(label(), "BTC 110.00 ▲10.00%");
}

TEST_F(AppStateLabelTest, showsTheLastPriceOfEachSecondThatFollows) {
    startConnected(listOf({"BTC"}));
    for (double last = 100; last < 200; last += 10) {
        price("BTC", last);
        time.advance(Seconds(0.5));
        price("BTC", last + 5);
        time.advance(Seconds(0.5));
        EXPECT_EQ(label(),
                  "BTC " + PriceFormatter::price(last + 5) + " "
                      + PriceFormatter::menuBarChange(last + 5 - 100));
    }
}

TEST_F(AppStateLabelTest, showsThePriceAfterTheEndOfASecondAtOnce) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.advance(Seconds(0.5));
    price("BTC", 110);
    time.advance(Seconds(0.6));
    price("BTC", 120);
    EXPECT_EQ(label(), "BTC 120.00 ▲20.00%");
}

TEST_F(AppStateLabelTest, showsAPriceHeldBackByASlowWallClockASecondLater) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    const TimePoint shownAt = time.now();
    time.advance(Seconds(1));
    // The wall clock goes a little slower.
    time.setClock(shownAt + Seconds(0.999));
    price("BTC", 110);
    EXPECT_EQ(label(), "BTC 100.00 · 0.00%");
    time.advance(Seconds(1));
    EXPECT_EQ(label(), "BTC 110.00 ▲10.00%");
}

TEST_F(AppStateLabelTest, waitsForTheEndOfOneSecondAtATime) {
    startConnected(listOf({"BTC"}));
    const std::size_t watchdogAlone = time.sleepingCount();
    for (int tick = 0; tick < 10; ++tick) {
        price("BTC", 100 + tick);
        EXPECT_EQ(time.sleepingCount(), watchdogAlone + 1);
        time.advance(Seconds(0.3));
    }
    // The wall clock says that the second is over.
    time.setClock(time.now() + Seconds(10));
    price("BTC", 200);
    EXPECT_EQ(time.sleepingCount(), watchdogAlone + 1);
    time.advance(Seconds(1));
    EXPECT_EQ(time.sleepingCount(), watchdogAlone);
}

TEST_F(AppStateLabelTest, isNotHeldUpByAClockThatIsSetBack) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.setClock(time.now() - Seconds(3600));
    price("BTC", 110);
    EXPECT_EQ(label(), "BTC 110.00 ▲10.00%");
}

TEST_F(AppStateLabelTest, keepsThePriceForSixtySecondsAndNotForSixtyOne) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.setClock(time.now() + Seconds(60));
    state->pin("BTCUSDT");
    EXPECT_EQ(label(), "BTC 100.00 · 0.00%");
    time.setClock(time.now() + Seconds(1));
    state->pin("BTCUSDT");
    EXPECT_EQ(label(), "BTC");
    EXPECT_EQ(ticker("BTC"), (Ticker{100, 100}));
}

TEST_F(AppStateLabelTest, dropsThePriceOfASilentStreamAtTheWatchdogsTick) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    Notes<std::string> labels(state->menuBarText());
    // The ticks come 30, 60 and 90 s after the start.
    time.advance(Seconds(60));
    EXPECT_THAT(labels.values, IsEmpty());
    time.advance(Seconds(30));
    EXPECT_THAT(labels.values, ElementsAre("BTC"));
}

TEST_F(AppStateLabelTest, dropsThePriceOfASilentStreamThoughTheClockIsSetBack) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.setClock(time.now() - Seconds(8 * 3600));
    time.advance(Seconds(60));
    EXPECT_EQ(label(), "BTC 100.00 · 0.00%");
    time.advance(Seconds(30));
    EXPECT_EQ(label(), "BTC");
}

TEST_F(AppStateLabelTest, dropsThePriceOfASnapshotThoughTheClockIsSetBack) {
    startConnected(listOf({"BTC"}));
    time.advance(Seconds(3600));
    theSnapshotIs({{"BTCUSDT", Ticker{100, 100}}});
    run(state->refreshSnapshot());
    EXPECT_EQ(label(), "BTC 100.00 · 0.00%");
    time.setClock(time.now() - Seconds(8 * 3600));
    time.advance(Seconds(90));
    EXPECT_EQ(label(), "BTC");
}

TEST_F(AppStateLabelTest, dropsThePriceAtTheTickWhateverTheConnection) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    tell(ConnectionState::waitingRetry);
    time.advance(Seconds(90));
    EXPECT_EQ(label(), "BTC");
}

TEST_F(AppStateLabelTest, tellsItsObserversOnlyOfAnotherText) {
    startConnected(listOf({"BTC"}));
    Notes<std::string> labels(state->menuBarText());
    price("BTC", 100.5);
    time.advance(Seconds(1));
    price("BTC", 100.501);
    time.advance(Seconds(1));
    price("BTC", 101);
    EXPECT_THAT(labels.values, ElementsAre("BTC 100.50 ▲ 0.50%", "BTC 101.00 ▲ 1.00%"));
}

TEST_F(AppStateLabelTest, followsThePinAtOnce) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 100);
    price("ETH", 110);
    state->pin("ETHUSDT");
    EXPECT_EQ(label(), "ETH 110.00 ▲10.00%");
}

TEST_F(AppStateLabelTest, followsTheBasisAtOnce) {
    startConnected(listOf({"BTC"}));
    price("BTC", 110);
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_EQ(label(), "BTC 110.00 —");
    state->setChangeBasis(ChangeBasis::rolling24h);
    EXPECT_EQ(label(), "BTC 110.00 ▲10.00%");
}

struct AppStateFreshnessTest : AppStateFixture {};

TEST_F(AppStateFreshnessTest, isStaleWhileNotConnected) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    for (const ConnectionState connection : {ConnectionState::disconnected,
                                             ConnectionState::connecting,
                                             ConnectionState::waitingRetry}) {
        tell(connection);
        EXPECT_TRUE(state->isDataStale());
    }
    tell(ConnectionState::connected);
    EXPECT_FALSE(state->isDataStale());
}

TEST_F(AppStateFreshnessTest, isFreshWhenConnectedBeforeTheFirstPrice) {
    theUserHas(listOf({}));
    start();
    EXPECT_TRUE(state->isDataStale());
    tell(ConnectionState::connected);
    EXPECT_EQ(*state->lastUpdate(), std::nullopt);
    EXPECT_FALSE(state->isDataStale());
}

TEST_F(AppStateFreshnessTest, isStaleWhenMoreThanAMinuteHasPassed) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.setClock(time.now() + Seconds(60));
    EXPECT_FALSE(state->isDataStale());
    time.setClock(time.now() + Seconds(0.001));
    EXPECT_TRUE(state->isDataStale());
}

TEST_F(AppStateFreshnessTest, isFreshForAMinuteWhenTheClockWasSetBack) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.setClock(time.now() - Seconds(86400));
    EXPECT_FALSE(state->isDataStale());
    time.advance(Seconds(60));
    EXPECT_FALSE(state->isDataStale());
    time.advance(Seconds(1));
    EXPECT_TRUE(state->isDataStale());
}

TEST_F(AppStateFreshnessTest, isUpToDateForObserversOfTheUpdate) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    time.advance(Seconds(61));
    bool isStale = true;
    const Observation observation = state->lastUpdate().observe(
        [&](const std::optional<TimePoint>& /*time*/) { isStale = state->isDataStale(); });
    price("BTC", 100);
    EXPECT_FALSE(isStale);
}

struct AppStatePercentTest : AppStateFixture {};

TEST_F(AppStatePercentTest, isAbsentForASymbolWithoutATicker) {
    startConnected(listOf({"BTC"}));
    EXPECT_EQ(state->displayPercent("BTCUSDT"), std::nullopt);
}

TEST_F(AppStatePercentTest, isTheRollingWindowsByDefault) {
    startConnected(listOf({"BTC"}));
    price("BTC", 110);
    EXPECT_EQ(state->displayPercent("BTCUSDT"), 10);
}

TEST_F(AppStatePercentTest, isAgainstTodaysOpenWithThatBasis) {
    theBasisIsToday();
    theOpenIs(88);
    startConnected(listOf({"BTC"}));
    price("BTC", 110);
    EXPECT_EQ(state->displayPercent("BTCUSDT"), 25);
}

TEST_F(AppStatePercentTest, isAbsentWithoutTodaysOpen) {
    theBasisIsToday();
    startConnected(listOf({"BTC"}));
    price("BTC", 110);
    EXPECT_EQ(state->displayPercent("BTCUSDT"), std::nullopt);
}

}  // namespace
}  // namespace quillbar
