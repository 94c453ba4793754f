// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/services/AppServicesFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {

namespace {

using simulator::CertificateKind;
using simulator::Handshake;
using simulator::RequestFault;
using simulator::Simulator;
using simulator::StreamEnd;
using simulator::StreamVoice;
using ::testing::Contains;
using ::testing::StartsWith;

constexpr std::string_view kSnapshotPath = "/api/v3/ticker/24hr";

class AppServicesTest : public AppServicesFixture {};

TEST_F(AppServicesTest, bringTheFirstPriceFromTheSnapshot) {
    Simulator& binance = exchange();
    start({&binance});
    EXPECT_TRUE(spinUntil([&] { return hasPrice(); }));
    EXPECT_EQ(requestCount(binance, kSnapshotPath), 1);
    EXPECT_TRUE(spinUntil([&] { return *m_services->isStarted(); }));
}

TEST_F(AppServicesTest, bringTheNextPricesFromOneStreamOfTheWholeWatchlist) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_EQ(binance.streamsAccepted(), 1);
    EXPECT_EQ(*state().connectionState(), ConnectionState::connected);
    EXPECT_THAT(binance.requests(),
                Contains(::testing::Field(&simulator::RequestRecord::path, StartsWith("/stream"))));
}

// Everything that can go wrong with one request leaves the price to the stream.
TEST_F(AppServicesTest, goOnWithoutTheSnapshotWhateverBecomesOfIt) {
    const std::vector<std::pair<RequestFault::Kind, std::string>> faults{
        {RequestFault::Kind::status, "AppState|error|snapshot refresh failed: "},
        {RequestFault::Kind::cutShort, "AppState|error|snapshot refresh failed: "},
        {RequestFault::Kind::notJson, "AppState|error|snapshot refresh failed: "},
        {RequestFault::Kind::wrongNumber, "AppState|error|snapshot refresh failed: "},
        {RequestFault::Kind::reset, "AppState|error|snapshot refresh failed: "},
        {RequestFault::Kind::oversized, "AppState|error|snapshot refresh failed: "},
    };
    for (const auto& [kind, line] : faults) {
        SCOPED_TRACE(static_cast<int>(kind));
        m_services.reset();
        Simulator& binance = exchange();
        binance.faults().onRequests({.kind = kind,
                                     .times = 100,
                                     .pathPrefix = "/api",
                                     .status = 400,
                                     .location = {},
                                     .bytes = 100});
        start({&binance});
        ASSERT_TRUE(isStreaming(binance));
        EXPECT_TRUE(spinUntil([&] { return !m_log.lines("AppState").empty(); }));
        EXPECT_THAT(m_log.lines("AppState"), Contains(StartsWith(line)));
        EXPECT_EQ(label(), "BTC");
        EXPECT_TRUE(nextPriceArrives(binance));
    }
}

TEST_F(AppServicesTest, waitForASlowSnapshotWithoutHoldingUpTheStream) {
    Simulator& binance = exchange();
    binance.faults().on(RequestFault::Kind::hold, "/api");
    start({&binance});
    ASSERT_TRUE(isStreaming(binance));
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_FALSE(*m_services->isStarted());
    EXPECT_TRUE(spinUntil([&] { return binance.faults().releaseHeld() == 1; }));
    EXPECT_TRUE(spinUntil([&] { return *m_services->isStarted(); }));
}

TEST_F(AppServicesTest, connectAgainAfterEveryEndOfTheStream) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    for (const StreamEnd end : {StreamEnd::close, StreamEnd::drop, StreamEnd::reset}) {
        SCOPED_TRACE(static_cast<int>(end));
        ASSERT_TRUE(nextPriceArrives(binance));
        binance.faults().endStreams(end);
        EXPECT_TRUE(
            spinUntil([&] { return *state().connectionState() == ConnectionState::waitingRetry; }));
        EXPECT_TRUE(state().isDataStale());
        EXPECT_TRUE(hasPrice());
        EXPECT_TRUE(spinUntil([&] { return endBackOff(); }));
        ASSERT_TRUE(isStreaming(binance));
    }
    EXPECT_TRUE(nextPriceArrives(binance));
}

TEST_F(AppServicesTest, connectAgainAfterAStreamThatEndsInTheMiddle) {
    Simulator& binance = exchange();
    binance.faults().endStreamsAfter(3, StreamEnd::reset);
    start({&binance});
    ASSERT_TRUE(isStreaming(binance));
    binance.tick();
    EXPECT_TRUE(spinUntil([&] { return endBackOff(); }));
    ASSERT_TRUE(isStreaming(binance));
    EXPECT_TRUE(nextPriceArrives(binance));
}

TEST_F(AppServicesTest, replaceAStreamThatHasGoneSilent) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    ASSERT_TRUE(nextPriceArrives(binance));
    binance.faults().setVoice(StreamVoice::silent);

    letPass(Seconds(61));
    ASSERT_TRUE(wakeWatchdog());
    // The old price must not stand, although nothing has been heard.
    EXPECT_TRUE(spinUntil([&] { return label() == "BTC"; }));
    EXPECT_EQ(binance.streamsAccepted(), 1);

    letPass(Seconds(30));
    ASSERT_TRUE(spinUntil([&] { return wakeWatchdog(); }));
    EXPECT_TRUE(spinUntil([&] { return binance.streamsAccepted() == 2; }));
    binance.faults().setVoice(StreamVoice::normal);
    EXPECT_TRUE(nextPriceArrives(binance));
}

TEST_F(AppServicesTest, leaveAServerThatTellsNoPrice) {
    for (const StreamVoice voice : {StreamVoice::silent, StreamVoice::dead, StreamVoice::junk}) {
        SCOPED_TRACE(static_cast<int>(voice));
        m_services.reset();
        Simulator& mute = exchange();
        Simulator& healthy = exchange();
        mute.faults().setVoice(voice);
        start({&mute, &healthy});
        ASSERT_TRUE(isSettled(mute));
        mute.tick();
        ASSERT_TRUE(endPriceWatch());
        ASSERT_TRUE(spinUntil([&] { return endBackOff(); }));
        ASSERT_TRUE(isStreaming(healthy));
        EXPECT_TRUE(nextPriceArrives(healthy));
        EXPECT_EQ(mute.streamsAccepted(), 1);
    }
}

TEST_F(AppServicesTest, goBackToTheFirstServerWhenTheMachineWakes) {
    Simulator& first = exchange();
    Simulator& second = exchange();
    first.faults().refuseConnections();
    start({&first, &second});
    ASSERT_TRUE(spinUntil([&] { return endBackOff(); }));
    ASSERT_TRUE(isSettled(second));
    first.faults().listenAgain();
    m_services->resume();
    ASSERT_TRUE(isStreaming(first));
    EXPECT_TRUE(nextPriceArrives(first));
    EXPECT_TRUE(spinUntil([&] { return requestCount(first, kSnapshotPath) == 1; }));
}

TEST_F(AppServicesTest, goBackToTheFirstServerOnceTheLastHasFailed) {
    Simulator& first = exchange();
    Simulator& second = exchange();
    first.faults().refuseConnections();
    second.faults().refuseConnections();
    start({&first, &second});
    ASSERT_TRUE(spinUntil([&] { return endBackOff(); }));
    ASSERT_TRUE(spinUntil([&] { return backOffs().size() == 2; }));
    first.faults().listenAgain();
    ASSERT_TRUE(endBackOff());
    EXPECT_TRUE(isStreaming(first));
}

TEST_F(AppServicesTest, reconnectAtOnceWhenTheMachineWakes) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    binance.faults().setVoice(StreamVoice::dead);
    m_services->resume();
    EXPECT_TRUE(spinUntil([&] { return binance.streamsAccepted() == 2; }));
    binance.faults().setVoice(StreamVoice::normal);
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_TRUE(spinUntil([&] { return requestCount(binance, kSnapshotPath) == 2; }));
}

TEST_F(AppServicesTest, reconnectAtOnceWhenTheNetworkComesBackInABackOff) {
    Simulator& binance = exchange();
    binance.faults().refuseConnections();
    start({&binance});
    ASSERT_TRUE(spinUntil([&] { return backOffs().size() == 1; }));
    binance.faults().listenAgain();
    m_services->resume();
    EXPECT_TRUE(isStreaming(binance));
    EXPECT_TRUE(spinUntil([&] { return hasPrice(); }));
}

TEST_F(AppServicesTest, replaceADeadStreamAtEachHintWhileTheSnapshotHangs) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    binance.faults().on(RequestFault::Kind::hold, "/api", 2);
    m_services->resume();
    ASSERT_TRUE(spinUntil([&] { return binance.streamsAccepted() == 2; }));
    ASSERT_TRUE(spinUntil([&] { return requestCount(binance, kSnapshotPath) == 2; }));
    binance.faults().setVoice(StreamVoice::dead);
    m_services->resume();
    EXPECT_TRUE(spinUntil([&] { return binance.streamsAccepted() == 3; }));
    EXPECT_TRUE(spinUntil([&] { return requestCount(binance, kSnapshotPath) == 3; }));
}

TEST_F(AppServicesTest, endABackOffAtEachHintWhileTheSnapshotHangs) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    binance.faults().on(RequestFault::Kind::hold, "/api");
    m_services->resume();
    ASSERT_TRUE(spinUntil([&] { return requestCount(binance, kSnapshotPath) == 2; }));
    ASSERT_TRUE(isStreaming(binance));
    binance.faults().endStreams(StreamEnd::reset);
    ASSERT_TRUE(spinUntil([&] { return !backOffs().empty(); }));
    m_services->resume();
    EXPECT_TRUE(isStreaming(binance));
}

TEST_F(AppServicesTest, connectOnceWhenTwoHintsComeTogether) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    m_services->resume();
    m_services->resume();
    EXPECT_TRUE(spinUntil([&] { return binance.streamsAccepted() > 1; }));
    EXPECT_TRUE(spinUntil([&] { return requestCount(binance, kSnapshotPath) == 2; }));
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_EQ(binance.streamsAccepted(), 2);
}

TEST_F(AppServicesTest, askAgainOverFreshConnectionsAfterASleep) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    // What stands can still be talked over; what is opened from here on is never answered.
    binance.faults().setHandshake(Handshake::silentTls);
    m_services->resume();
    EXPECT_TRUE(spinUntil([&] { return binance.openStreams() == 0; }));
    EXPECT_TRUE(spinUntil([&] { return binance.openConnections() == 2; }));
    spinUntilIdle();
    EXPECT_EQ(requestCount(binance, kSnapshotPath), 1);
}

TEST_F(AppServicesTest, leaveAHandshakeThatNeverEnds) {
    for (const Handshake handshake : {Handshake::silentTls, Handshake::silentUpgrade}) {
        SCOPED_TRACE(static_cast<int>(handshake));
        m_services.reset();
        Simulator& binance = exchange();
        binance.faults().setHandshake(handshake);
        start({&binance});
        ASSERT_TRUE(spinUntil([&] { return binance.openConnections() > 0; }));
        binance.faults().setHandshake(Handshake::normal);
        m_services->resume();
        ASSERT_TRUE(isStreaming(binance));
        EXPECT_TRUE(nextPriceArrives(binance));
    }
}

TEST_F(AppServicesTest, passOverWhatIsNoPrice) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    ASSERT_TRUE(nextPriceArrives(binance));
    binance.faults().ping("are you there");
    binance.faults().serverShutdown();
    binance.faults().sendText("not JSON");
    binance.faults().sendBinary("\x01\x02");
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_THAT(binance.pongs(), Contains("are you there"));
    const auto lines = m_log.lines("PriceStream");
    ASSERT_EQ(lines.size(), 3U);
    for (const std::string& line : lines) {
        EXPECT_THAT(line, StartsWith("PriceStream|error|failed to decode frame: "));
    }
    EXPECT_EQ(binance.streamsAccepted(), 1);
}

TEST_F(AppServicesTest, bearABurst) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    binance.faults().burst(20000);
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_EQ(binance.streamsAccepted(), 1);
}

TEST_F(AppServicesTest, showNoPriceOfAnExchangeThatCannotProveWhoItIs) {
    for (const CertificateKind kind : {CertificateKind::expired, CertificateKind::wrongHost}) {
        SCOPED_TRACE(static_cast<int>(kind));
        m_services.reset();
        Simulator& binance = exchange(kind);
        start({&binance});
        EXPECT_TRUE(spinUntil([&] { return *m_services->isStarted(); }));
        EXPECT_TRUE(
            spinUntil([&] { return *state().connectionState() == ConnectionState::waitingRetry; }));
        EXPECT_EQ(label(), "BTC");
        EXPECT_TRUE(binance.requests().empty());
        EXPECT_THAT(m_log.lines("PriceStream"),
                    Contains(StartsWith("PriceStream|error|connection failed: ")));
        EXPECT_THAT(m_log.lines("REST"), Contains(StartsWith("REST|error|request failed for ")));
    }
}

TEST_F(AppServicesTest, failOverInTheGivenOrder) {
    Simulator& first = exchange();
    Simulator& second = exchange();
    Simulator& third = exchange();
    first.faults().refuseConnections();
    second.faults().status(503, 1, "/api");
    second.faults().endStreamsAfter(0, StreamEnd::drop);
    start({&first, &second, &third});
    EXPECT_TRUE(spinUntil([&] { return hasPrice(); }));
    EXPECT_EQ(requestCount(first, kSnapshotPath), 0);
    EXPECT_EQ(requestCount(second, kSnapshotPath), 1);
    EXPECT_EQ(requestCount(third, kSnapshotPath), 1);
    EXPECT_THAT(m_log.lines("Endpoint"),
                Contains("Endpoint|default|switching endpoint to " + second.restBase()));
    EXPECT_THAT(m_log.lines("Endpoint"),
                Contains("Endpoint|default|switching endpoint to " + third.restBase()));

    ASSERT_TRUE(spinUntil([&] { return endBackOff(); }));
    EXPECT_TRUE(spinUntil([&] { return second.streamsAccepted() == 1; }));
    ASSERT_TRUE(spinUntil([&] { return endBackOff(); }));
    ASSERT_TRUE(isStreaming(third));
    EXPECT_EQ(first.streamsAccepted(), 0);
    EXPECT_TRUE(nextPriceArrives(third));
}

TEST_F(AppServicesTest, waitLongerAfterEachFailedAttempt) {
    Simulator& binance = exchange();
    binance.faults().refuseConnections();
    start({&binance});
    const std::vector<double> delays{1, 2, 4, 8, 16, 32, 60, 60};
    for (std::size_t attempt = 0; attempt < delays.size(); ++attempt) {
        ASSERT_TRUE(spinUntil([&] { return backOffs().size() == attempt + 1; }));
        EXPECT_GE(backOffs().back(), delays[attempt] * 0.8);
        EXPECT_LE(backOffs().back(), delays[attempt] * 1.2);
        ASSERT_TRUE(endBackOff());
    }
}

TEST_F(AppServicesTest, waitLittleAfterAStableStream) {
    Simulator& binance = exchange();
    binance.faults().refuseConnections();
    start({&binance});
    for (std::size_t attempt = 1; attempt <= 4; ++attempt) {
        ASSERT_TRUE(spinUntil([&] { return backOffs().size() == attempt; }));
        if (attempt == 4) {
            binance.faults().listenAgain();
        }
        ASSERT_TRUE(endBackOff());
    }
    ASSERT_TRUE(isStreaming(binance));
    ASSERT_TRUE(nextPriceArrives(binance));
    letPass(Seconds(31));
    binance.faults().endStreams(StreamEnd::close);
    ASSERT_TRUE(spinUntil([&] { return backOffs().size() == 5; }));
    EXPECT_LE(backOffs().back(), 1.2);
}

TEST_F(AppServicesTest, endTheirConnectionsWhenDestroyed) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    ASSERT_TRUE(nextPriceArrives(binance));
    m_services.reset();
    EXPECT_TRUE(spinUntil([&] { return binance.openStreams() == 0; }));
    EXPECT_THAT(binance.closeCodes(), Contains(1001));
}

TEST_F(AppServicesTest, sayWhoTheyAre) {
    Simulator& binance = exchange();
    start({&binance});
    EXPECT_TRUE(spinUntil([&] { return hasPrice(); }));
    for (const simulator::RequestRecord& request : binance.requests()) {
        if (request.path == kSnapshotPath) {
            EXPECT_THAT(request.header("user-agent"), StartsWith("Quillbar/"));
        }
    }
    EXPECT_EQ(requestCount(binance, kSnapshotPath), 1);
}

}  // namespace

}  // namespace quillbar
