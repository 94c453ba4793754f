// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelSnapshot.h"
#include "Quillbar/labelstate/StateLabelSource.h"
#include "tests/state/AppStateFixture.h"

#include <gtest/gtest.h>

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
    live.coin = coinOf("BTC");
    live.ticker = Ticker{101, 100};
    live.changePercent = 1;
    live.connection = ConnectionState::connected;
    live.lastUpdate = time.clock()();
    live.isStale = false;
    EXPECT_EQ(snapshot(), live);
    EXPECT_TRUE(snapshot().showsPrice());
}

TEST_F(LabelSnapshotTest, withoutAPinHasNoCoin) {
    Watchlist list = listOf({"BTC"});
    list.pinnedSymbol.reset();
    startConnected(list);
    price("BTC", 101);
    EXPECT_EQ(snapshot().text, "Quillbar");
    EXPECT_EQ(snapshot().coin, std::nullopt);
    EXPECT_EQ(snapshot().ticker, std::nullopt);
    EXPECT_EQ(snapshot().changePercent, std::nullopt);
    EXPECT_TRUE(snapshot().isStale);
}

TEST_F(LabelSnapshotTest, withoutTheOpenOfTheDayKnowsNoChange) {
    theBasisIsToday();
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    EXPECT_EQ(snapshot().basis, ChangeBasis::today);
    EXPECT_EQ(snapshot().ticker, (Ticker{101, 100}));
    EXPECT_EQ(snapshot().changePercent, std::nullopt);
    EXPECT_FALSE(snapshot().isStale);
}

TEST_F(LabelSnapshotTest, keepsAnOldPriceThatTheTextDrops) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.advance(Seconds(90));
    EXPECT_EQ(snapshot().text, "BTC");
    EXPECT_EQ(snapshot().ticker, (Ticker{101, 100}));
    EXPECT_TRUE(snapshot().isStale);
    EXPECT_FALSE(snapshot().showsPrice());
}

TEST_F(LabelSnapshotTest, isStaleWhileTheStreamIsDownThoughThePriceIsFresh) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(snapshot().connection, ConnectionState::waitingRetry);
    EXPECT_TRUE(snapshot().showsPrice());
    EXPECT_TRUE(snapshot().isStale);
}

TEST_F(LabelSnapshotTest, tellsOfAnEditThatWasNotSaved) {
    startConnected(listOf({"BTC", "ETH"}));
    files.breakAll();
    state->pin("ETHUSDT");
    EXPECT_EQ(snapshot().coin, coinOf("ETH"));
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
