// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceEndpoints.h"
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "tests/exchange/PriceStreamFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PriceStreamClientTest : public ::testing::Test,
                              public PriceStreamSession {};

}  // namespace

TEST(PriceStreamURLTest, joinsTheNamesOfTheStreams) {
    EXPECT_EQ(PriceStreamClient::streamURL({"BTCUSDT", "ETHUSDT"}, BinanceEndpoints::stream()[0]),
              "wss://stream.binance.com:9443/stream?streams=btcusdt@miniTicker/ethusdt@miniTicker");
}

TEST(PriceStreamURLTest, keepsOrderAndRepetitions) {
    EXPECT_EQ(PriceStreamClient::streamURL({"b", "A", "B", "1000SATSUSDT"}, "wss://host"),
              "wss://host/stream?streams="
              "b@miniTicker/a@miniTicker/b@miniTicker/1000satsusdt@miniTicker");
    EXPECT_EQ(PriceStreamClient::streamURL({}, "wss://host"), "wss://host/stream?streams=");
}

TEST_F(PriceStreamClientTest, startsNothingByItself) {
    advance(100);
    EXPECT_THAT(takeEvents(), IsEmpty());
    EXPECT_THAT(connections.made, IsEmpty());
}

TEST_F(PriceStreamClientTest, tellsOfOneHealthyConnection) {
    watch({"BTCUSDT"});
    frame("BTCUSDT", "65000");
    frame("BTCUSDT", "65001");
    EXPECT_THAT(takeEvents(),
                ElementsAre("connecting", "connected", "BTCUSDT 65000", "BTCUSDT 65001"));
    EXPECT_EQ(openCount(), 1U);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PriceStreamClientTest, skipsInvalidSymbols) {
    watch({"BTCUSDT", "btc-usdt", "", "ETHUSDT"});
    EXPECT_THAT(log.lines(),
                ElementsAre("PriceStream|error|skipping invalid symbol: btc-usdt",
                            "PriceStream|error|skipping invalid symbol: "));
    EXPECT_THAT(urls(),
                ElementsAre("wss://one:9443/stream?streams=btcusdt@miniTicker/ethusdt@miniTicker"));
}

TEST_F(PriceStreamClientTest, takesASCIILettersAndDigitsAlone) {
    watch({"a0Z9", "\u5e01USDT", "A B", "A/B", "A\n", "\u00c5USDT"});
    EXPECT_THAT(urls(), ElementsAre("wss://one:9443/stream?streams=a0z9@miniTicker"));
    EXPECT_THAT(log.lines(), SizeIs(5));
}

TEST_F(PriceStreamClientTest, opensNothingWithoutASymbol) {
    watch({});
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected"));
    watch({"-"});
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected"));
    EXPECT_THAT(connections.made, IsEmpty());
    EXPECT_THAT(log.lines(), ElementsAre("PriceStream|error|skipping invalid symbol: -"));
}

TEST_F(PriceStreamClientTest, closesTheConnectionWhenNoSymbolIsLeft) {
    watch({"BTCUSDT"});
    takeEvents();
    watch({});
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected"));
    EXPECT_EQ(openCount(), 0U);
    advance(1000);
    EXPECT_THAT(connections.made, SizeIs(1));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PriceStreamClientTest, dropsABadFrameAndGoesOn) {
    watch({"BTCUSDT"});
    frame("BTCUSDT", "65,000");
    frame("BTCUSDT", "65001");
    message("not JSON");
    message(R"({"result":null,"id":1})");
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected", "BTCUSDT 65001"));
    EXPECT_THAT(log.lines(),
                ElementsAre("PriceStream|error|failed to decode frame: invalidNumber(\"65,000\")",
                            HasSubstr("PriceStream|error|failed to decode frame: malformed JSON: "),
                            "PriceStream|error|failed to decode frame: the key stream is missing"));
    EXPECT_EQ(openCount(), 1U);
}

TEST_F(PriceStreamClientTest, deliversWhatCameBeforeTheEnd) {
    watch({"BTCUSDT"});
    connections.last().frame("BTCUSDT", "1");
    connections.last().frame("BTCUSDT", "2");
    fail();
    EXPECT_THAT(takeEvents(),
                ElementsAre("connecting", "connected", "BTCUSDT 1", "BTCUSDT 2", "waitingRetry"));
}

TEST_F(PriceStreamClientTest, closesAConnectionThatEnded) {
    watch({"BTCUSDT"});
    closeByServer();
    EXPECT_EQ(connections.last().cancelCount, 1);
    advance(1);
    fail();
    EXPECT_EQ(connections.last().cancelCount, 1);
    EXPECT_EQ(openCount(), 0U);
}

TEST_F(PriceStreamClientTest, connectsAgainForTheSameSymbols) {
    watch({"BTCUSDT"});
    watch({"BTCUSDT"});
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected", "connecting", "connected"));
    EXPECT_THAT(connections.made, SizeIs(2));
    EXPECT_TRUE(connections.made[0]->isCancelled());
    EXPECT_FALSE(connections.made[1]->isCancelled()) << "the old loop closed the new connection";
    EXPECT_EQ(endpointInUse(), 0);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PriceStreamClientTest, readsOnlyTheConnectionOfTheLastSymbols) {
    watch({"BTCUSDT"});
    watch({"ETHUSDT"});
    takeEvents();
    connections.made[0]->frame("BTCUSDT", "1");
    connections.made[1]->frame("ETHUSDT", "2");
    EXPECT_THAT(takeEvents(), ElementsAre("ETHUSDT 2"));
    EXPECT_EQ(urls().back(), "wss://one:9443/stream?streams=ethusdt@miniTicker");
}

TEST_F(PriceStreamClientTest, connectsOnceForSymbolsThatChangeTwiceInATurn) {
    TaskScope scope(executor);
    scope.spawn(client->setSymbols({"BTCUSDT"}));
    scope.spawn(client->setSymbols({"ETHUSDT"}));
    executor.run();
    EXPECT_THAT(urls(), ElementsAre("wss://one:9443/stream?streams=ethusdt@miniTicker"));
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected"));
}

TEST_F(PriceStreamClientTest, logsAnErrorThatArrivedBeforeTheCancellation) {
    watch({"BTCUSDT"});
    takeEvents();
    TaskScope scope(executor);
    scope.spawn(client->stop());
    connections.last().fail("broke first");
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected"));
    EXPECT_THAT(log.lines(), ElementsAre("PriceStream|error|connection failed: broke first"));
    EXPECT_EQ(endpointInUse(), 0);
    EXPECT_EQ(time.sleepingCount(), 0U);
}

TEST_F(PriceStreamClientTest, doesNotLogAnEndThatArrivedBeforeTheCancellation) {
    watch({"BTCUSDT"});
    takeEvents();
    TaskScope scope(executor);
    scope.spawn(client->stop());
    connections.last().closeByServer();
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected"));
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_EQ(endpointInUse(), 0);
}

TEST_F(PriceStreamClientTest, dropsThePricesOfPairsThatWereNotAskedFor) {
    watch({"BTCUSDT", "ethusdt"});
    takeEvents();
    frame("SPAMUSDT", "1");
    frame("BTCUSDT", "2");
    frame("ETHUSDT", "3");
    EXPECT_THAT(takeEvents(), ElementsAre("BTCUSDT 2", "ETHUSDT 3"));
    EXPECT_THAT(
        log.lines(),
        ElementsAre("PriceStream|error|dropped the price of a pair that was not asked for"));
    watch({"BTCUSDT"});
    takeEvents();
    frame("ETHUSDT", "3");
    EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(PriceStreamClientTest, takesPricesWhateverTheCaseOfTheirSymbols) {
    watch({"btcusdt", "EthUSDT"});
    takeEvents();
    frame("btcusdt", "1");
    frame("BTCUSDT", "2");
    frame("ethUsdt", "3");
    EXPECT_THAT(takeEvents(), ElementsAre("btcusdt 1", "BTCUSDT 2", "ethUsdt 3"));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PriceStreamClientTest, stopsWhileItReads) {
    watch({"BTCUSDT"});
    takeEvents();
    stop();
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected"));
    EXPECT_EQ(openCount(), 0U);
    EXPECT_FALSE(connections.last().isRead());
    advance(1000);
    EXPECT_THAT(takeEvents(), IsEmpty());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PriceStreamClientTest, closesTheConnectionWithinTheCallThatEndsIt) {
    watch({"BTCUSDT"});
    TaskScope scope(executor);
    scope.spawn(client->setSymbols({"BTCUSDT"}));
    ASSERT_TRUE(executor.runOne());
    EXPECT_EQ(openCount(), 0U);
    executor.run();
    ASSERT_EQ(openCount(), 1U);
    scope.spawn(client->stop());
    ASSERT_TRUE(executor.runOne());
    EXPECT_EQ(openCount(), 0U);
}

TEST_F(PriceStreamClientTest, stopsWhileItWaits) {
    watch({"BTCUSDT"});
    fail();
    takeEvents();
    stop();
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected"));
    EXPECT_EQ(time.sleepingCount(), 0U);
    advance(1000);
    EXPECT_THAT(takeEvents(), IsEmpty());
    EXPECT_THAT(connections.made, SizeIs(1));
}

TEST_F(PriceStreamClientTest, tellsDisconnectedAtEveryStop) {
    stop();
    stop();
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected", "disconnected"));
}

TEST_F(PriceStreamClientTest, startsAgainAfterAStop) {
    watch({"BTCUSDT"});
    stop();
    takeEvents();
    watch({"ETHUSDT"});
    frame("ETHUSDT", "2");
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected", "ETHUSDT 2"));
}

TEST_F(PriceStreamClientTest, closesItsConnectionWhenDestroyedWhileItReads) {
    watch({"BTCUSDT"});
    takeEvents();
    destroy();
    EXPECT_EQ(openCount(), 0U);
    EXPECT_THAT(takeEvents(), ElementsAre("ended"));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PriceStreamClientTest, leavesNothingWhenDestroyedWhileItWaits) {
    watch({"BTCUSDT"});
    fail();
    takeEvents();
    destroy();
    EXPECT_EQ(time.sleepingCount(), 0U);
    advance(1000);
    EXPECT_THAT(takeEvents(), ElementsAre("ended"));
    EXPECT_THAT(connections.made, SizeIs(1));
}

TEST_F(PriceStreamClientTest, letsOthersRunDuringAFlood) {
    watch({"BTCUSDT"});
    takeEvents();
    int turns = 0;
    TaskScope scope(executor);
    for (int index = 0; index < 2000; ++index) {
        connections.last().frame("BTCUSDT", "1");
    }
    while (executor.runOne()) {
        ++turns;
    }
    EXPECT_THAT(takeEvents(), SizeIs(2000));
    EXPECT_GT(turns, 6);
}

}  // namespace quillbar
