// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "QuillbarCore/exchange/ReconnectPolicy.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/exchange/PriceStreamFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PriceStreamReconnectTest : public ::testing::Test,
                                 public PriceStreamSession {
protected:
    // A connection breaks at once, and the next attempt is made when its time has come.
    void failAndWait(double delay) {
        fail();
        advance(delay);
    }
};

}  // namespace

TEST_F(PriceStreamReconnectTest, walksThroughTheEndpointsWithGrowingDelays) {
    watch({"BTCUSDT"});
    EXPECT_EQ(endpointInUse(), 0);
    fail("refused");
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected", "waitingRetry"));
    EXPECT_EQ(endpointInUse(), 1);
    EXPECT_THAT(time.requested, ElementsAre(1));
    advance(1);
    failAndWait(2);
    EXPECT_EQ(endpointInUse(), 2);
    failAndWait(4);
    EXPECT_EQ(endpointInUse(), 2);
    failAndWait(8);
    failAndWait(16);
    failAndWait(32);
    failAndWait(60);
    failAndWait(60);
    EXPECT_THAT(time.requested, ElementsAre(1, 2, 4, 8, 16, 32, 60, 60));
    EXPECT_EQ(jittered, time.requested);
    EXPECT_THAT(urls(), SizeIs(9));
    EXPECT_EQ(urls()[1], "wss://two/stream?streams=btcusdt@miniTicker");
    EXPECT_EQ(urls()[2], "wss://three/stream?streams=btcusdt@miniTicker");
    EXPECT_EQ(urls()[8], "wss://three/stream?streams=btcusdt@miniTicker");
    EXPECT_THAT(log.lines("Endpoint"),
                ElementsAre("Endpoint|default|switching endpoint to wss://two",
                            "Endpoint|default|switching endpoint to wss://three"));
    EXPECT_EQ(log.lines("PriceStream").front(), "PriceStream|error|connection failed: refused");
    EXPECT_THAT(log.lines("PriceStream"), SizeIs(8));
    EXPECT_EQ(openCount(), 1U);
}

TEST_F(PriceStreamReconnectTest, waitsTheJitteredTime) {
    const ReconnectPolicy doubled{
        Seconds(1), Seconds(60), [](double seconds) { return seconds * 2; }};
    PriceStreamClient other(executor,
                            connections.factory(),
                            doubled,
                            time.sleeper(),
                            Seconds(30),
                            time.clock(),
                            endpoints);
    TaskScope scope(executor);
    scope.spawn(other.setSymbols({"BTCUSDT"}));
    executor.run();
    fail();
    EXPECT_THAT(time.requested, ElementsAre(2));
}

TEST_F(PriceStreamReconnectTest, startsOverAfterAStableConnectionOnTheSameEndpoint) {
    watch({"BTCUSDT"});
    failAndWait(1);
    failAndWait(2);
    ASSERT_EQ(endpointInUse(), 2);
    endpoints->markFailed(2);
    frame("BTCUSDT", "65000");
    advance(31);
    closeByServer();
    EXPECT_THAT(time.requested, ElementsAre(1, 2, 1));
    advance(1);
    EXPECT_EQ(urls().back(), "wss://three/stream?streams=btcusdt@miniTicker");
    EXPECT_EQ(log.lines("PriceStream").back(), "PriceStream|default|stream closed by server");
    fail();
    EXPECT_EQ(time.requested.back(), 2) << "the count goes on from one";
}

TEST_F(PriceStreamReconnectTest, keepsTheFirstEndpointAfterAStableConnection) {
    watch({"BTCUSDT"});
    frame("BTCUSDT", "65000");
    advance(31);
    closeByServer();
    EXPECT_EQ(endpointInUse(), 0);
    EXPECT_THAT(time.requested, ElementsAre(1));
    EXPECT_THAT(log.lines(), ElementsAre("PriceStream|default|stream closed by server"));
}

TEST_F(PriceStreamReconnectTest, takesExactlyTheThresholdAsStableHoweverItEnds) {
    watch({"BTCUSDT"});
    frame("BTCUSDT", "65000");
    advance(30);
    fail("reset");
    EXPECT_EQ(endpointInUse(), 0);
    EXPECT_THAT(time.requested, ElementsAre(1));
    EXPECT_THAT(log.lines(), ElementsAre("PriceStream|error|connection failed: reset"));
}

TEST_F(PriceStreamReconnectTest, countsALongConnectionWithoutAFrameAsFailed) {
    watch({"BTCUSDT"});
    advance(31);
    closeByServer();
    EXPECT_EQ(endpointInUse(), 1);
    advance(1);
    advance(31);
    closeByServer();
    EXPECT_THAT(time.requested, ElementsAre(1, 2));
}

TEST_F(PriceStreamReconnectTest, countsAShortConnectionWithFramesAsFailed) {
    watch({"BTCUSDT"});
    frame("BTCUSDT", "65000");
    advance(29);
    closeByServer();
    EXPECT_EQ(endpointInUse(), 1);
    advance(1);
    frame("BTCUSDT", "65000");
    advance(29);
    closeByServer();
    EXPECT_THAT(time.requested, ElementsAre(1, 2));
}

TEST_F(PriceStreamReconnectTest, countsABadFrameAsADelivery) {
    watch({"BTCUSDT"});
    message("{}");
    advance(30);
    closeByServer();
    EXPECT_EQ(endpointInUse(), 0);
}

TEST_F(PriceStreamReconnectTest, endsABackOffForOtherSymbolsAndForgetsItsAttempts) {
    watch({"BTCUSDT"});
    failAndWait(1);
    fail();
    takeEvents();
    watch({"ETHUSDT"});
    EXPECT_EQ(time.sleepingCount(), 0U);
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected"));
    EXPECT_EQ(urls().back(), "wss://three/stream?streams=ethusdt@miniTicker");
    fail();
    EXPECT_THAT(time.requested, ElementsAre(1, 2, 1));
}

TEST_F(PriceStreamReconnectTest, sharesItsEndpointsWithOthers) {
    watch({"BTCUSDT"});
    endpoints->markFailed(0);
    fail();
    EXPECT_EQ(endpointInUse(), 1) << "the endpoint that failed was no longer in use";
}

TEST_F(PriceStreamReconnectTest, wakesLateAfterTheMachineSlept) {
    watch({"BTCUSDT"});
    fail();
    takeEvents();
    time.jump(Seconds(3600));
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected"));
    EXPECT_THAT(connections.made, SizeIs(2));
}

TEST_F(PriceStreamReconnectTest, takesAClockThatWasSetBackAsUnstable) {
    watch({"BTCUSDT"});
    frame("BTCUSDT", "1");
    advance(40);
    time.setClock(time.now() - Seconds(20));
    closeByServer();
    EXPECT_EQ(endpointInUse(), 1);
}

TEST_F(PriceStreamReconnectTest, survivesASleeperThatFails) {
    PriceStreamClient other(
        executor,
        connections.factory(),
        ReconnectPolicy{Seconds(1), Seconds(60), [](double seconds) { return seconds; }},
        [](Seconds) -> Task<void> {
            throw std::runtime_error("no timer");
            co_return;
        },
        Seconds(30),
        time.clock(),
        endpoints);
    TaskScope scope(executor);
    scope.spawn(other.setSymbols({"BTCUSDT"}));
    executor.run();
    fail();
    EXPECT_THAT(connections.made, SizeIs(2));
    EXPECT_EQ(openCount(), 1U);
}

TEST_F(PriceStreamReconnectTest, endsABackOffForTheSameSymbols) {
    watch({"BTCUSDT", "ETHUSDT"});
    failAndWait(1);
    fail();
    takeEvents();
    watch({"BTCUSDT", "ETHUSDT"});
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected"));
    EXPECT_EQ(time.sleepingCount(), 0U);
    EXPECT_EQ(urls().back(), "wss://three/stream?streams=btcusdt@miniTicker/ethusdt@miniTicker");
}

TEST(PriceStreamWithoutEndpointsTest, givesUpForGood) {
    PriceStreamSession session(std::vector<std::string>{});
    session.watch({"BTCUSDT"});
    EXPECT_THAT(session.takeEvents(), ElementsAre("disconnected"));
    EXPECT_THAT(session.log.lines(), ElementsAre("PriceStream|error|no stream endpoint available"));
    session.advance(1000);
    EXPECT_THAT(session.takeEvents(), IsEmpty());
    EXPECT_THAT(session.connections.made, IsEmpty());
}

}  // namespace quillbar
