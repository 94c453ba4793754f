// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelSnapshot.h"
#include "Quillbar/labelstate/StateLabelSource.h"
#include "tests/state/AppStateFixture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using Kind = ConnectionFailure::Kind;

struct LabelSnapshotTest : AppStateFixture {
    [[nodiscard]] LabelSnapshot snapshot() const { return LabelSnapshot::of(*state); }
};

TEST_F(LabelSnapshotTest, ofALivePriceHasEverythingButAnError) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 101);
    price("ETH", 50);
    LabelSnapshot live;
    live.text = "BTC 101.00 ▲ 1.00%";
    live.quote.coin = coinOf("BTC");
    live.quote.ticker = Ticker{101, 100};
    live.quote.changePercent = 1;
    live.quote.connection = ConnectionState::connected;
    live.lastUpdate = time.clock()();
    live.quote.freshness = PriceFreshness::live;
    live.coinUpdate = live.lastUpdate;
    EXPECT_EQ(snapshot(), live);
    EXPECT_TRUE(snapshot().quote.showsPrice());
}

TEST_F(LabelSnapshotTest, canBeOfACoinThatIsNotPinned) {
    startConnected(listOf({"BTC", "ETH"}));
    price("ETH", 50);
    const TimePoint own = time.now();
    time.advance(Seconds(5));
    price("BTC", 101);
    const LabelSnapshot ether = LabelSnapshot::of(*state, coinOf("ETH"));
    EXPECT_EQ(ether.text, "ETH 50.00 ▼50.00%");
    EXPECT_EQ(ether.quote, state->quoteOf(coinOf("ETH")));
    EXPECT_EQ(ether.coinUpdate, own);
    EXPECT_EQ(ether.lastUpdate, time.now());
    EXPECT_EQ(ether.failure, std::nullopt);
}

TEST_F(LabelSnapshotTest, tellsTheLastUpdateByAClockThatWasSetBackSince) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.setClock(time.now() - Seconds(8 * 3600));
    const TimePoint update = time.now();
    time.advance(Seconds(300));
    ASSERT_TRUE(snapshot().lastUpdate);
    EXPECT_NEAR((*snapshot().lastUpdate - update).count(), 0, 0.001);
    price("BTC", 102);
    EXPECT_EQ(snapshot().lastUpdate, time.now());
}

TEST_F(LabelSnapshotTest, tellsWhenThePinnedCoinHadItsOwnPrice) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 101);
    const TimePoint own = time.now();
    time.advance(Seconds(20));
    price("ETH", 50);
    EXPECT_EQ(snapshot().coinUpdate, own);
    EXPECT_EQ(snapshot().lastUpdate, time.now());
}

TEST_F(LabelSnapshotTest, withoutAPinHasNoCoin) {
    Watchlist list = listOf({"BTC"});
    list.pinnedSymbol.reset();
    startConnected(list);
    price("BTC", 101);
    EXPECT_EQ(snapshot().text, "Quillbar");
    EXPECT_EQ(snapshot().quote.coin, std::nullopt);
    EXPECT_EQ(snapshot().quote.ticker, std::nullopt);
    EXPECT_EQ(snapshot().quote.changePercent, std::nullopt);
    EXPECT_TRUE(snapshot().quote.isStale());
}

TEST_F(LabelSnapshotTest, withoutTheOpenOfTheDayKnowsNoChange) {
    theBasisIsToday();
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    EXPECT_EQ(snapshot().quote.basis, ChangeBasis::today);
    EXPECT_EQ(snapshot().quote.ticker, (Ticker{101, 100}));
    EXPECT_EQ(snapshot().quote.changePercent, std::nullopt);
    EXPECT_FALSE(snapshot().quote.isStale());
}

TEST_F(LabelSnapshotTest, keepsAnOldPriceThatTheTextDrops) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.advance(Seconds(90));
    EXPECT_EQ(snapshot().text, "BTC");
    EXPECT_EQ(snapshot().quote.ticker, (Ticker{101, 100}));
    EXPECT_TRUE(snapshot().quote.isStale());
    EXPECT_FALSE(snapshot().quote.showsPrice());
}

TEST_F(LabelSnapshotTest, isStaleWhileTheStreamIsDownThoughThePriceIsFresh) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(snapshot().quote.connection, ConnectionState::waitingRetry);
    EXPECT_TRUE(snapshot().quote.showsPrice());
    EXPECT_TRUE(snapshot().quote.isStale());
}

TEST_F(LabelSnapshotTest, tellsOfAnEditThatWasNotSaved) {
    startConnected(listOf({"BTC", "ETH"}));
    files.breakAll();
    state->pin("ETHUSDT");
    EXPECT_EQ(snapshot().quote.coin, coinOf("ETH"));
    EXPECT_EQ(snapshot().lastError, "设置未能保存到磁盘");
}

TEST_F(LabelSnapshotTest, saysWhyNoPricesStreamUntilTheyDo) {
    startConnected(listOf({"BTC"}));
    EXPECT_EQ(snapshot().failure, std::nullopt);
    stream.fails({.kind = Kind::refused, .httpStatus = 451});
    EXPECT_EQ(snapshot().failure, "服务器返回 451");
    stream.recovers();
    EXPECT_EQ(snapshot().failure, std::nullopt);
}

TEST_F(LabelSnapshotTest, callsAConnectionMadeOnlyOnceItDeliversAfterAFailure) {
    startConnected(listOf({"BTC"}));
    EXPECT_EQ(snapshot().visibleConnection(), ConnectionState::connected);
    stream.fails({.kind = Kind::timedOut});
    EXPECT_EQ(snapshot().visibleConnection(), ConnectionState::connecting);
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(snapshot().visibleConnection(), ConnectionState::waitingRetry);
    tell(ConnectionState::connected);
    stream.recovers();
    EXPECT_EQ(snapshot().visibleConnection(), ConnectionState::connected);
}

TEST_F(LabelSnapshotTest, isStaleAsSoonAsAMinuteIsOver) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.advance(Seconds(60));
    EXPECT_EQ(snapshot().quote.freshness, PriceFreshness::live);
    // Before the next look at the label drops the price.
    time.advance(Seconds(1));
    EXPECT_EQ(snapshot().quote.freshness, PriceFreshness::stale);
    EXPECT_EQ(snapshot().text, "BTC 101.00 ▲ 1.00%");
}

TEST_F(LabelSnapshotTest, hasThePriceThatTheTextShows) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.advance(Seconds(0.5));
    price("BTC", 102);
    EXPECT_EQ(snapshot().text, "BTC 101.00 ▲ 1.00%");
    EXPECT_EQ(snapshot().quote.ticker, (Ticker{101, 100}));
    EXPECT_EQ(snapshot().quote.changePercent, 1);
}

TEST_F(LabelSnapshotTest, isReadAnewForEachThingThatItSays) {
    theBasisIsToday();
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 101);
    price("ETH", 50);
    Observed<bool> isStarted(false);
    StateLabelSource source(*state, isStarted);
    std::vector<LabelSnapshot> told;
    source.observe([&] { told.push_back(source.snapshot()); });
    time.advance(Seconds(1));
    price("BTC", 102);
    EXPECT_EQ(told.back().text, "BTC 102.00 —");
    state->pin("ETHUSDT");
    EXPECT_EQ(told.back().quote.coin, coinOf("ETH"));
    theOpenIs(40);
    time.advance(Seconds(60));
    price("ETH", 50);
    EXPECT_EQ(told.back().quote.changePercent, 25);
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(told.back().quote.connection, ConnectionState::waitingRetry);
    files.breakAll();
    state->pin("ETHUSDT");
    EXPECT_EQ(told.back().lastError, "设置未能保存到磁盘");
    const std::size_t before = told.size();
    isStarted.set(true);
    EXPECT_EQ(told.size(), before + 1);
}

TEST_F(LabelSnapshotTest, hidesTheCoinAndEverythingKnownOfIt) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    stream.fails({.kind = Kind::timedOut});
    const LabelSnapshot hidden = snapshot().hidden();
    LabelSnapshot expected;
    expected.text = "Quillbar";
    expected.lastUpdate = snapshot().lastUpdate;
    ASSERT_TRUE(expected.lastUpdate);
    expected.quote.connection = ConnectionState::connected;
    expected.failure = "连接超时";
    expected.isDiscreet = true;
    EXPECT_EQ(hidden, expected);
    EXPECT_TRUE(isSettled(hidden, false)) << "nobody need wait for a price";
}

TEST_F(LabelSnapshotTest, isHiddenWhileThePreferencesSaySo) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    const Observed<bool> isStarted(true);
    Observed<Preferences> preferences;
    StateLabelSource source(*state, isStarted, &preferences);
    std::vector<LabelSnapshot> told;
    source.observe([&] { told.push_back(source.snapshot()); });
    preferences.set(Preferences{}.settingLabel({.isDiscreet = true}));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told.back(), snapshot().hidden());
    preferences.set(Preferences{});
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told.back(), snapshot());
}

TEST_F(LabelSnapshotTest, isReadAnewForEachFailure) {
    startConnected(listOf({"BTC"}));
    const Observed<bool> isStarted(true);
    StateLabelSource source(*state, isStarted);
    std::vector<std::optional<std::string>> failures;
    source.observe([&] { failures.push_back(source.snapshot().failure); });
    stream.fails({.kind = Kind::timedOut});
    stream.fails({.kind = Kind::timedOut});
    stream.fails({.kind = Kind::lost});
    stream.recovers();
    EXPECT_EQ(failures,
              (std::vector<std::optional<std::string>>{"连接超时", "连接意外断开", std::nullopt}));
}

}  // namespace

}  // namespace quillbar
