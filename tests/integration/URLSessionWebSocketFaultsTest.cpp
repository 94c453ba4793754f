// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionWebSocket.h"
#include "tests/integration/StreamReader.h"
#include "tests/integration/TestExchange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <utility>
#include <vector>

namespace quillbar {
namespace {

using Code = URLError::Code;
using simulator::CertificateKind;
using simulator::Handshake;
using simulator::OpenConnections;
using simulator::StreamEnd;
using simulator::StreamVoice;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::HasSubstr;

// The WebSocket against the simulated exchange, over TLS.
class WebSocketFaultsTest : public testing::Test {
protected:
    StreamReader connect(WebSocketLimits limits = {}) {
        m_socket = std::make_unique<URLSessionWebSocket>(limits);
        return {m_loop, m_socket->connect(m_exchange.streamUrl())};
    }

    // Waits until the stream stands and has said its first two frames.
    [[nodiscard]] bool isStreaming(StreamReader& reader) {
        if (!spinUntil([this] { return m_exchange->openStreams() == 1; })) {
            return false;
        }
        m_exchange->tick();
        return reader.receives(2);
    }

    TestExchange m_exchange;
    EventLoop m_loop;
    std::unique_ptr<URLSessionWebSocket> m_socket;
};

TEST_F(WebSocketFaultsTest, streamsPricesOverTls) {
    StreamReader reader = connect();
    ASSERT_TRUE(isStreaming(reader));
    EXPECT_THAT(reader.buffers[0], HasSubstr(R"("stream":"btcusdt@miniTicker")"));
    EXPECT_THAT(reader.buffers[1], HasSubstr(R"("stream":"ethusdt@miniTicker")"));
    EXPECT_FALSE(reader.isEnded);
}

TEST_F(WebSocketFaultsTest, cancelSaysGoingAway) {
    StreamReader reader = connect();
    ASSERT_TRUE(isStreaming(reader));
    m_socket->cancel();
    EXPECT_TRUE(spinUntil([this] { return m_exchange->openStreams() == 0; }));
    EXPECT_THAT(m_exchange->closeCodes(), ElementsAre(1001));
}

TEST_F(WebSocketFaultsTest, endsAsTheConnectionDoesAfterSomeFrames) {
    const std::vector<std::pair<StreamEnd, std::optional<Code>>> endings{
        {StreamEnd::close, std::nullopt},
        {StreamEnd::drop, Code::connectionLost},
        {StreamEnd::reset, Code::connectionLost}};
    for (const auto& [how, error] : endings) {
        StreamReader reader = connect();
        ASSERT_TRUE(isStreaming(reader));
        m_exchange.faults().endStreamsAfter(4, how);
        m_exchange->tick();
        ASSERT_TRUE(reader.ends());
        EXPECT_EQ(reader.error, error) << reader.errorText;
        if (how != StreamEnd::reset) {
            // A reset overtakes what was sent.
            EXPECT_EQ(reader.buffers.size(), 4U);
        }
    }
}

TEST_F(WebSocketFaultsTest, endsWhenTheConnectionEndsRightAfterTheHandshake) {
    m_exchange.faults().endStreamsAfter(0, StreamEnd::drop);
    StreamReader reader = connect();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::connectionLost);
    EXPECT_TRUE(reader.buffers.empty());
}

TEST_F(WebSocketFaultsTest, staysWithASilentStreamThatAnswersPings) {
    m_exchange.faults().setVoice(StreamVoice::silent);
    StreamReader reader = connect({.heartbeat = milliseconds(50)});
    EXPECT_TRUE(spinUntil([&] { return m_exchange->pings().size() >= 3 || reader.isEnded; }));
    EXPECT_FALSE(reader.isEnded) << reader.errorText;
}

TEST_F(WebSocketFaultsTest, failsForAStreamThatDied) {
    StreamReader reader = connect({.heartbeat = milliseconds(50)});
    ASSERT_TRUE(isStreaming(reader));
    m_exchange.faults().setVoice(StreamVoice::dead);
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::timedOut);
    EXPECT_TRUE(spinUntil([this] { return m_exchange->openStreams() == 0; }));
}

TEST_F(WebSocketFaultsTest, timesOutInAHandshakeThatIsNotAnswered) {
    for (const Handshake handshake : {Handshake::silentTls, Handshake::silentUpgrade}) {
        m_exchange.faults().setHandshake(handshake);
        StreamReader reader = connect({.handshake = milliseconds(200)});
        ASSERT_TRUE(reader.ends());
        EXPECT_EQ(reader.error, Code::timedOut);
        EXPECT_EQ(reader.errorText, "the handshake was not answered in time");
        EXPECT_TRUE(spinUntil([this] { return m_exchange->openConnections() == 0; }));
    }
}

TEST_F(WebSocketFaultsTest, failsWhenTheUpgradeIsAnsweredWithAStatus) {
    m_exchange.faults().status(503, 1, "/stream");
    StreamReader reader = connect();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cannotConnect);
    EXPECT_EQ(reader.httpStatus, 503);
    EXPECT_THAT(reader.errorText, HasSubstr("503"));
}

TEST_F(WebSocketFaultsTest, failsWhileConnectionsAreRefused) {
    m_exchange.faults().refuseConnections(OpenConnections::drop);
    StreamReader reader = connect();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cannotConnect);
}

TEST_F(WebSocketFaultsTest, deliversABurstInOrderAndWhole) {
    constexpr std::size_t kBurst = 20'000;
    StreamReader reader = connect();
    ASSERT_TRUE(isStreaming(reader));
    m_exchange.faults().burst(kBurst);
    ASSERT_TRUE(reader.receives(2 + kBurst));
    for (std::size_t i = 0; i < kBurst; ++i) {
        ASSERT_THAT(reader.buffers[2 + i],
                    HasSubstr(i % 2 == 0 ? "btcusdt@miniTicker" : "ethusdt@miniTicker"));
    }
}

TEST_F(WebSocketFaultsTest, answersAPing) {
    StreamReader reader = connect();
    ASSERT_TRUE(isStreaming(reader));
    m_exchange.faults().ping("1699999999");
    EXPECT_TRUE(spinUntil([this] { return !m_exchange->pongs().empty(); }));
    EXPECT_THAT(m_exchange->pongs(), ElementsAre("1699999999"));
    EXPECT_EQ(reader.buffers.size(), 2U);
}

TEST_F(WebSocketFaultsTest, deliversAServerShutdownAndThenItsEnd) {
    StreamReader reader = connect();
    ASSERT_TRUE(isStreaming(reader));
    m_exchange.faults().serverShutdown();
    m_exchange.faults().endStreams(StreamEnd::close);
    ASSERT_TRUE(reader.ends());
    ASSERT_EQ(reader.buffers.size(), 3U);
    EXPECT_THAT(reader.buffers[2], HasSubstr("serverShutdown"));
    EXPECT_EQ(reader.error, std::nullopt);
}

TEST_F(WebSocketFaultsTest, deliversWhatIsNotJson) {
    StreamReader reader = connect();
    ASSERT_TRUE(isStreaming(reader));
    m_exchange.faults().sendText("<html>");
    m_exchange.faults().sendBinary("\x01\x02");
    ASSERT_TRUE(reader.receives(4));
    EXPECT_EQ(reader.buffers[2], "<html>");
    EXPECT_EQ(reader.buffers[3], "\x01\x02");
}

TEST_F(WebSocketFaultsTest, refusesAnExpiredCertificate) {
    m_exchange.faults().setCertificate(CertificateKind::expired);
    StreamReader reader = connect();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::secureConnectionFailed);
    EXPECT_THAT(reader.errorText, HasSubstr("expired"));
    EXPECT_EQ(m_exchange->streamsAccepted(), 0);
}

TEST_F(WebSocketFaultsTest, refusesACertificateForAnotherHost) {
    m_exchange.faults().setCertificate(CertificateKind::wrongHost);
    StreamReader reader = connect();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::secureConnectionFailed);
    EXPECT_THAT(reader.errorText, HasSubstr("host name"));
    EXPECT_EQ(m_exchange->streamsAccepted(), 0);
}

TEST(WebSocketTrustTest, refusesACertificateFromAnUnknownAuthority) {
    TestExchange exchange(Trust::unknown);
    EventLoop loop;
    URLSessionWebSocket socket;
    StreamReader reader(loop, socket.connect(exchange.streamUrl()));
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::secureConnectionFailed);
    EXPECT_EQ(exchange->streamsAccepted(), 0);
}

}  // namespace
}  // namespace quillbar
