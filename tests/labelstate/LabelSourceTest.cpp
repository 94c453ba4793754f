// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelSource.h"
#include "Quillbar/labelstate/StateLabelSource.h"
#include "tests/state/AppStateFixture.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

LabelSnapshot pricedLabel() {
    LabelSnapshot label;
    label.text = "BTC 101.00 ▲ 1.00%";
    label.quote.coin = coinOf("BTC");
    label.quote.ticker = Ticker{101, 100};
    label.quote.changePercent = 1;
    label.quote.freshness = PriceFreshness::live;
    label.quote.connection = ConnectionState::connected;
    return label;
}

TEST(LabelSnapshot, isSettledWithItsPriceAndItsChange) {
    LabelSnapshot label = pricedLabel();
    EXPECT_TRUE(isSettled(label, false));
    label.quote.changePercent.reset();
    EXPECT_FALSE(isSettled(label, false));
    EXPECT_TRUE(isSettled(label, true)) << "the first requests are over";
    label = pricedLabel();
    label.quote.freshness = PriceFreshness::none;
    EXPECT_FALSE(isSettled(label, false)) << "the price is not shown";
    label.quote.coin.reset();
    EXPECT_TRUE(isSettled(label, false)) << "no price can come";
}

TEST(LabelSnapshot, differsVisiblyByWhatIsSeenAlone) {
    const LabelSnapshot before = pricedLabel();
    LabelSnapshot after = before;
    after.lastUpdate = TimePoint(Seconds(5));
    after.coinUpdate = TimePoint(Seconds(5));
    EXPECT_FALSE(differsVisibly(before, after)) << "its age";
    after = before;
    after.text = "BTC 102.00 ▲ 2.00%";
    EXPECT_TRUE(differsVisibly(before, after));
    after = before;
    after.quote.connection = ConnectionState::waitingRetry;
    EXPECT_TRUE(differsVisibly(before, after));
    after = before;
    after.failure = "连接超时";
    EXPECT_TRUE(differsVisibly(before, after));
    after = before;
    after.quote.freshness = PriceFreshness::stale;
    EXPECT_TRUE(differsVisibly(before, after));
}

using StateLabelSourceTest = AppStateFixture;

TEST_F(StateLabelSourceTest, callsTheLastObserverOnceForEachChange) {
    startConnected(listOf({"BTC"}));
    Observed<bool> isStarted(false);
    StateLabelSource source(*state, isStarted);
    int first = 0;
    int second = 0;
    source.observe([&first] { ++first; });
    source.observe([&second] { ++second; });
    isStarted.set(true);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
    EXPECT_TRUE(source.isStarted());
}

TEST_F(StateLabelSourceTest, callsNobodyAnyMoreAfterAnEmptyFunction) {
    startConnected(listOf({"BTC"}));
    Observed<bool> isStarted(false);
    StateLabelSource source(*state, isStarted);
    int calls = 0;
    source.observe([&calls] { ++calls; });
    source.observe({});
    isStarted.set(true);
    price("BTC", 101);
    EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace quillbar
