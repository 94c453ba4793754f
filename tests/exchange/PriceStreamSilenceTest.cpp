// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/EndpointRenewal.h"
#include "QuillbarCore/exchange/URLSessionWebSocket.h"
#include "tests/exchange/PriceStreamFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

constexpr double kLimit = 25;
constexpr double kWatchdog = 30;

std::vector<std::string> bases() {
    return {"wss://one", "wss://two", "wss://three"};
}

/// A stream client that expects a first price within 25 s.
class PriceStreamSilenceTest : public ::testing::Test,
                               public PriceStreamSession {
protected:
    PriceStreamSilenceTest()
        : PriceStreamSession(bases(), Seconds(kLimit)) {}

    // The base of the connection made last.
    [[nodiscard]] std::string base() const {
        const std::string url = urls().back();
        return url.substr(0, url.find("/stream"));
    }
    // As the watchdog does when no price has come for long.
    void restartOften(double seconds) {
        for (double passed = 0; passed < seconds; passed += kWatchdog) {
            watch({"BTCUSDT"});
            advance(kWatchdog);
        }
    }
};

}  // namespace

TEST_F(PriceStreamSilenceTest, aServerThatSaysNothingIsLeft) {
    watch({"BTCUSDT"});
    advance(kLimit - 1);
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected"));
    advance(1);
    EXPECT_THAT(takeEvents(), ElementsAre("waitingRetry"));
    EXPECT_EQ(openCount(), 0U);
    EXPECT_EQ(client->failure()->value().kind, ConnectionFailure::Kind::timedOut);
    EXPECT_THAT(log.lines("PriceStream"),
                ElementsAre("PriceStream|error|connection failed: connected, but no price "
                            "came in time"));
    advance(1);
    EXPECT_EQ(base(), "wss://two");
}

TEST_F(PriceStreamSilenceTest, aServerThatSendsNoPriceIsLeft) {
    watch({"BTCUSDT"});
    for (int second = 0; second < 25; ++second) {
        message("{}");
        advance(1);
    }
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected", "waitingRetry"));
    EXPECT_EQ(endpointInUse(), 1);
}

TEST_F(PriceStreamSilenceTest, aServerIsKeptOnceItHasToldAPrice) {
    watch({"BTCUSDT"});
    advance(kLimit - 1);
    frame("BTCUSDT", "65000");
    advance(1000);
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "connected", "BTCUSDT 65000"));
    EXPECT_THAT(connections.made, SizeIs(1));
}

TEST_F(PriceStreamSilenceTest, aConnectionThatBreaksDoesNotCountAsSilent) {
    watch({"BTCUSDT"});
    advance(10);
    fail();
    advance(1);
    frame("BTCUSDT", "65000");
    takeEvents();
    advance(kLimit);
    EXPECT_THAT(takeEvents(), IsEmpty());
    EXPECT_FALSE(client->failure()->has_value());
}

TEST_F(PriceStreamSilenceTest, theWaitForABrokenConnectionSaysNothingOfTheNextOne) {
    watch({"BTCUSDT"});
    advance(10);
    fail();
    advance(1);
    frame("BTCUSDT", "65000");
    advance(kLimit);
    fail();
    EXPECT_THAT(log.lines("PriceStream"),
                ElementsAre("PriceStream|error|connection failed: the connection broke",
                            "PriceStream|error|connection failed: the connection broke"));
}

TEST_F(PriceStreamSilenceTest, theWaitEndsWithTheStream) {
    watch({"BTCUSDT"});
    stop();
    takeEvents();
    const int before = connections.last().cancelCount;
    advance(kLimit);
    EXPECT_THAT(takeEvents(), IsEmpty());
    EXPECT_EQ(connections.last().cancelCount, before);
}

TEST_F(PriceStreamSilenceTest, silentServersAreLeftThoughTheWatchdogReconnects) {
    watch({"BTCUSDT"});
    advance(5);
    restartOften(2 * kWatchdog);
    EXPECT_EQ(endpointInUse(), 2);
}

TEST_F(PriceStreamSilenceTest, whenAllServersAreSilentTheLastOneIsKept) {
    watch({"BTCUSDT"});
    advance(kLimit + 1 + kLimit + 2 + kLimit + 4);
    EXPECT_EQ(base(), "wss://three");
    EXPECT_THAT(connections.made, SizeIs(4));
    advance(599);
    EXPECT_EQ(openCount(), 1U);
    EXPECT_THAT(connections.made, SizeIs(4));
    frame("BTCUSDT", "65000");
    advance(1000);
    EXPECT_EQ(openCount(), 1U);
    EXPECT_THAT(connections.made, SizeIs(4));
}

TEST_F(PriceStreamSilenceTest, aQuietMarketIsAcceptedForTenMinutes) {
    watch({"BTCUSDT"});
    advance(kLimit + 1 + kLimit + 2 + kLimit + 4);
    advance(600);
    EXPECT_EQ(openCount(), 0U);
    // The next silence is short again.
    advance(8);
    ASSERT_THAT(connections.made, SizeIs(5));
    advance(kLimit);
    EXPECT_EQ(openCount(), 0U);
}

TEST_F(PriceStreamSilenceTest, theTenMinutesPassThoughTheWatchdogReconnects) {
    watch({"BTCUSDT"});
    advance(kLimit + 1 + kLimit + 2 + kLimit + 4);
    takeEvents();
    restartOften(540);
    EXPECT_THAT(takeEvents(), Not(Contains("waitingRetry")));
    restartOften(120);
    EXPECT_THAT(takeEvents(), Contains("waitingRetry"));
}

TEST_F(PriceStreamSilenceTest, theTenMinutesPassThoughTheClockIsSetBack) {
    watch({"BTCUSDT"});
    advance(kLimit + 1 + kLimit + 2 + kLimit + 4);
    takeEvents();
    time.setClock(time.now() - Seconds(8 * 3600));
    restartOften(540);
    EXPECT_THAT(takeEvents(), Not(Contains("waitingRetry")));
    restartOften(120);
    EXPECT_THAT(takeEvents(), Contains("waitingRetry"));
}

TEST_F(PriceStreamSilenceTest, otherEndpointsAreUsedFromTheNextAttemptOn) {
    watch({"BTCUSDT"});
    client->useEndpoints(std::make_shared<EndpointSelector>(std::vector<std::string>{"wss://new"}));
    EXPECT_EQ(openCount(), 1U);
    fail();
    advance(1);
    EXPECT_EQ(base(), "wss://new");
}

TEST_F(PriceStreamSilenceTest, behindTwoHostsThatNeverAnswerAPriceComesWithinHalfAMinute) {
    const double handshake = std::chrono::duration<double>(WebSocketLimits{}.handshake).count();
    double passed = 0;
    watch({"BTCUSDT"});
    for (const double backOff : {1.0, 2.0}) {
        advance(handshake);
        fail();
        // As long as the jitter makes it at most.
        advance(backOff * 1.2);
        passed += handshake + backOff * 1.2;
    }
    EXPECT_EQ(base(), "wss://three");
    EXPECT_LT(passed, 30);
}

/// The endpoints of a stream client, renewed as the application does it.
struct RenewedStreamTest : PriceStreamSilenceTest {
    RenewedStreamTest() {
        renewal.whenRenewed([this](auto selector) { client->useEndpoints(std::move(selector)); });
        renewal.renew();
    }

    EndpointRenewal renewal{bases(), time.clock()};
};

TEST_F(RenewedStreamTest, aRecoveredFirstServerIsUsedWithinTwoMinutes) {
    const TimePoint begin = time.now();
    watch({"BTCUSDT"});
    // Swallowed by a firewall, then mute, then with nothing but junk.
    advance(12);
    fail();
    advance(1 + kLimit + 2);
    message("junk");
    advance(kLimit + 4);
    EXPECT_EQ(base(), "wss://one");
    EXPECT_THAT(connections.made, SizeIs(4));
    frame("BTCUSDT", "65000");
    EXPECT_THAT(takeEvents(), Contains("BTCUSDT 65000"));
    EXPECT_LT(time.now() - begin, Seconds(120));
}

TEST_F(RenewedStreamTest, anOutageThatHasPassedDoesNotKeepTheLastServer) {
    watch({"BTCUSDT"});
    // Eight seconds without any network.
    for (const double backOff : {1.0, 2.0, 4.0}) {
        fail();
        advance(backOff);
    }
    EXPECT_EQ(base(), "wss://one");
}

TEST_F(PriceStreamSilenceTest, aServerThatSendsOtherPricesThanThoseAskedForIsLeft) {
    watch({"BTCUSDT"});
    frame("SPAMUSDT", "1");
    advance(kLimit);
    EXPECT_EQ(endpointInUse(), 1);
}

}  // namespace quillbar
