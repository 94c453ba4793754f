// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionWebSocket.h"
#include "simulator/WebSocketFrames.h"
#include "tests/integration/RawServer.h"
#include "tests/integration/StreamReader.h"

#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace quillbar {
namespace {

using Code = URLError::Code;
using simulator::WebSocketFrames::decode;
using simulator::WebSocketFrames::encode;
using simulator::WebSocketFrames::encodeClose;
using simulator::WebSocketFrames::Opcode;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// The first frames a client sent, in order.
std::vector<simulator::WebSocketFrames::Frame> framesIn(std::string_view bytes) {
    std::vector<simulator::WebSocketFrames::Frame> frames;
    while (auto frame = decode(bytes)) {
        bytes.remove_prefix(frame->length);
        frames.push_back(std::move(*frame));
    }
    return frames;
}

// A message in two frames, as a server may cut it.
std::string inTwoFrames(std::string_view first, std::string_view second) {
    std::string begin = encode(Opcode::text, first);
    constexpr unsigned kWithoutFinalBit = 0x7F;
    begin[0] = static_cast<char>(static_cast<unsigned char>(begin[0]) & kWithoutFinalBit);
    return begin + encode(Opcode::continuation, second);
}

class URLSessionWebSocketTest : public testing::Test {
protected:
    StreamReader connect(const std::string& url) { return {m_loop, m_socket.connect(url)}; }

    EventLoop m_loop;
    URLSessionWebSocket m_socket;
};

TEST_F(URLSessionWebSocketTest, givesAHandshakeAMinuteAndNoticesADeadPeerSooner) {
    EXPECT_EQ(WebSocketLimits{}.handshake, std::chrono::seconds(12));
    EXPECT_LT(3 * WebSocketLimits{}.heartbeat, std::chrono::seconds(60));
}

TEST_F(URLSessionWebSocketTest, deliversEachMessageAsItsBytes) {
    using namespace std::string_literals;
    RawServer server(upgradeAndSay(encode(Opcode::text, R"({"a":1})")
                                   + encode(Opcode::text, "币安 €")
                                   + encode(Opcode::binary, "\x00\xFF\x80z"s)
                                   + encode(Opcode::text, "") + inTwoFrames("be", "gin")));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.receives(5));
    EXPECT_THAT(reader.buffers, ElementsAre(R"({"a":1})", "币安 €", "\x00\xFF\x80z"s, "", "begin"));
    EXPECT_FALSE(reader.isEnded);
}

TEST_F(URLSessionWebSocketTest, asksForTheUrlAsItIs) {
    RawServer server(upgradeAndSay({}));
    StreamReader reader =
        connect(server.streamUrl() + "?streams=btcusdt@miniTicker/ethusdt@miniTicker");
    ASSERT_TRUE(spinUntil([&server] { return !server.heads.empty(); }));
    EXPECT_THAT(server.heads[0],
                testing::StartsWith("GET /stream?streams=btcusdt@miniTicker/ethusdt@miniTicker "
                                    "HTTP/1.1\r\n"));
    EXPECT_THAT(server.heads[0], Not(HasSubstr("Sec-WebSocket-Protocol")));
}

TEST_F(URLSessionWebSocketTest, endsNormallyWhenTheServerSaysFarewell) {
    for (const int code : {1000, 1001, 1003, 1008, 1011, 4000}) {
        RawServer server(upgradeAndSay(encode(Opcode::text, "last")
                                       + encodeClose(static_cast<std::uint16_t>(code))));
        URLSessionWebSocket socket;
        StreamReader reader(m_loop, socket.connect(server.streamUrl()));
        ASSERT_TRUE(reader.ends());
        EXPECT_EQ(reader.error, std::nullopt) << code << ": " << reader.errorText;
        EXPECT_THAT(reader.buffers, ElementsAre("last"));
        EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; })) << code;
    }
}

TEST_F(URLSessionWebSocketTest, endsNormallyForACloseFrameWithoutACode) {
    RawServer server(upgradeAndSay(encode(Opcode::close, "")));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, std::nullopt) << reader.errorText;
}

TEST_F(URLSessionWebSocketTest, failsWhenTheServerSaysThatTheProtocolWasBroken) {
    RawServer server(upgradeAndSay(encodeClose(1002)));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::other);
    EXPECT_THAT(reader.errorText, testing::StartsWith("closed with code 1002"));
}

TEST_F(URLSessionWebSocketTest, failsForACloseCodeThatQtDoesNotKnow) {
    RawServer server(upgradeAndSay(encodeClose(1012)));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::other);
}

TEST_F(URLSessionWebSocketTest, failsForATextThatIsNotUtf8) {
    RawServer server(upgradeAndSay(encode(Opcode::text, "\xC3\x28")));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::other);
    EXPECT_TRUE(reader.buffers.empty());
}

TEST_F(URLSessionWebSocketTest, failsForAFrameThatBreaksTheProtocol) {
    RawServer server(upgradeAndSay("\x83\x01x"));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::other);
}

TEST_F(URLSessionWebSocketTest, acceptsAMessageOfTheLargestSizeAndNoByteMore) {
    const std::size_t largest = WebSocketLimits{}.messageSize;
    EXPECT_EQ(largest, 1'048'576U);
    for (const Opcode opcode : {Opcode::text, Opcode::binary}) {
        RawServer server(upgradeAndSay(encode(opcode, std::string(largest, 'x'))
                                       + encode(opcode, std::string(largest + 1, 'x'))));
        URLSessionWebSocket socket;
        StreamReader reader(m_loop, socket.connect(server.streamUrl()));
        ASSERT_TRUE(reader.ends());
        ASSERT_EQ(reader.buffers.size(), 1U);
        EXPECT_EQ(reader.buffers[0].size(), largest);
        EXPECT_EQ(reader.error, Code::tooLarge) << reader.errorText;
    }
}

TEST_F(URLSessionWebSocketTest, failsForAFrameThatAnnouncesTooMuchBeforeItComes) {
    using namespace std::string_literals;
    RawServer server(upgradeAndSay("\x82\x7F\0\0\0\0\0\x10\0\x01"s));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::tooLarge) << reader.errorText;
}

TEST_F(URLSessionWebSocketTest, failsForAMessageThatIsTooLargeAsAWhole) {
    const std::string half(WebSocketLimits{}.messageSize / 2 + 1, 'x');
    RawServer server(upgradeAndSay(inTwoFrames(half, half)));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::tooLarge) << reader.errorText;
}

TEST_F(URLSessionWebSocketTest, failsForWhatIsNoWebSocketUrl) {
    for (const char* const url : {"", "https://127.0.0.1/", "wss:", "/stream", "wss://[half"}) {
        URLSessionWebSocket socket;
        StreamReader reader(m_loop, socket.connect(url));
        ASSERT_TRUE(reader.ends()) << url;
        EXPECT_EQ(reader.error, Code::badURL) << url;
        socket.cancel();
    }
}

TEST_F(URLSessionWebSocketTest, failsWhereNobodyListens) {
    std::string url;
    {
        const RawServer gone(upgradeAndSay({}));
        url = gone.streamUrl();
    }
    StreamReader reader = connect(url);
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cannotConnect);
    EXPECT_EQ(reader.httpStatus, 0);
}

TEST_F(URLSessionWebSocketTest, failsForAHostWithoutAnAddress) {
    StreamReader reader = connect("wss://" + hostWithoutAnAddress() + ":9443/stream");
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cannotFindHost);
}

TEST_F(URLSessionWebSocketTest, failsWhenTheUpgradeIsRefused) {
    RawServer server([](const std::string&, QTcpSocket& socket) {
        socket.write(QByteArray::fromStdString(httpAnswer("403 Forbidden", "no")));
    });
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cannotConnect);
    EXPECT_EQ(reader.httpStatus, 403);
    EXPECT_THAT(reader.errorText, HasSubstr("403"));
}

TEST_F(URLSessionWebSocketTest, cancelBeforeConnectDoesNothing) {
    m_socket.cancel();
    RawServer server(upgradeAndSay(encode(Opcode::text, "hello")));
    StreamReader reader = connect(server.streamUrl());
    EXPECT_TRUE(reader.receives(1));
}

TEST_F(URLSessionWebSocketTest, cancelClosesOnceWithGoingAwayHoweverOftenItIsCalled) {
    RawServer server(upgradeAndSay(encode(Opcode::text, "hello")));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.receives(1));
    m_socket.cancel();
    m_socket.cancel();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cancelled);
    ASSERT_TRUE(spinUntil([&server] { return server.ended == 1; }));
    const auto frames = framesIn(server.received);
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_EQ(frames[0].opcode, Opcode::close);
    EXPECT_EQ(frames[0].payload, "\x03\xE9");
}

TEST_F(URLSessionWebSocketTest, cancelWorksFromAnotherThread) {
    RawServer server(upgradeAndSay(encode(Opcode::text, "hello")));
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.receives(1));
    std::thread other([this] { m_socket.cancel(); });
    other.join();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cancelled);
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

TEST_F(URLSessionWebSocketTest, cancelDropsWhatWasNotTaken) {
    RawServer server(upgradeAndSay(encode(Opcode::text, "one") + encode(Opcode::text, "two")
                                   + encode(Opcode::ping, "all said")));
    auto stream = m_socket.connect(server.streamUrl());
    // The pong comes after the messages, which nobody has taken yet.
    ASSERT_TRUE(spinUntil([&server] { return !framesIn(server.received).empty(); }));
    m_socket.cancel();
    StreamReader reader(m_loop, std::move(stream));
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cancelled);
    EXPECT_TRUE(reader.buffers.empty());
}

TEST_F(URLSessionWebSocketTest, cancelEndsAHandshake) {
    RawServer server([](const std::string&, QTcpSocket&) {});
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(spinUntil([&server] { return !server.heads.empty(); }));
    m_socket.cancel();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cancelled);
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

TEST_F(URLSessionWebSocketTest, cancelGivesUpOnAPeerThatReadsNothing) {
    // Pongs fill its window, so that not even the close frame gets out.
    constexpr int kPings = 40'000;
    QTcpSocket* peer = nullptr;
    const auto upgrade = upgradeAndSay({});
    RawServer server([&](const std::string& head, QTcpSocket& socket) {
        upgrade(head, socket);
        peer = &socket;
    });
    server.setWindow(4096);
    URLSessionWebSocket socket({.farewell = milliseconds(50), .unsentBytes = 100'000'000});
    StreamReader reader(m_loop, socket.connect(server.streamUrl()));
    ASSERT_TRUE(spinUntil([&peer] { return peer != nullptr; }));
    peer->setReadBufferSize(1);
    const QByteArray ping = QByteArray::fromStdString(encode(Opcode::ping, std::string(125, 'p')));
    peer->write(ping.repeated(kPings) + QByteArray::fromStdString(encode(Opcode::text, "end")));
    ASSERT_TRUE(reader.receives(1));
    socket.cancel();
    bool isLate = false;
    QTimer::singleShot(milliseconds(200), [&isLate] { isLate = true; });
    ASSERT_TRUE(spinUntil([&isLate] { return isLate; }));
    EXPECT_EQ(server.ended, 0);

    // It reads at last what had got out by then.
    peer->setReadBufferSize(0);
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
    const auto frames = framesIn(server.received);
    ASSERT_FALSE(frames.empty());
    EXPECT_LT(frames.size(), kPings);
    EXPECT_EQ(frames.back().opcode, Opcode::pong);
}

TEST_F(URLSessionWebSocketTest, abandoningTheStreamLeavesTheConnectionOpenUntilCancel) {
    QTcpSocket* peer = nullptr;
    const auto upgrade = upgradeAndSay(encode(Opcode::text, "hello"));
    RawServer server([&](const std::string& head, QTcpSocket& socket) {
        upgrade(head, socket);
        peer = &socket;
    });
    StreamReader reader = connect(server.streamUrl());
    ASSERT_TRUE(reader.receives(1));
    reader.abandon();
    peer->write(QByteArray::fromStdString(encode(Opcode::text, "unheard")
                                          + encode(Opcode::ping, "still there?")));
    ASSERT_TRUE(spinUntil([&server] { return !framesIn(server.received).empty(); }));
    EXPECT_EQ(framesIn(server.received)[0].opcode, Opcode::pong);
    EXPECT_EQ(framesIn(server.received)[0].payload, "still there?");
    EXPECT_EQ(server.ended, 0);
    EXPECT_THAT(reader.buffers, ElementsAre("hello"));
    m_socket.cancel();
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

TEST_F(URLSessionWebSocketTest, destroyingClosesTheConnectionAndEndsTheStream) {
    RawServer server(upgradeAndSay(encode(Opcode::text, "hello")));
    auto socket = std::make_unique<URLSessionWebSocket>();
    StreamReader reader(m_loop, socket->connect(server.streamUrl()));
    ASSERT_TRUE(reader.receives(1));
    socket.reset();
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::cancelled);
    ASSERT_TRUE(spinUntil([&server] { return server.ended == 1; }));
    EXPECT_EQ(framesIn(server.received).at(0).payload, "\x03\xE9");
}

TEST_F(URLSessionWebSocketTest, connectingAgainClosesTheConnectionBefore) {
    RawServer server(upgradeAndSay(encode(Opcode::text, "hello")));
    StreamReader first = connect(server.streamUrl());
    ASSERT_TRUE(first.receives(1));
    StreamReader second = connect(server.streamUrl());
    ASSERT_TRUE(second.receives(1));
    ASSERT_TRUE(first.ends());
    EXPECT_EQ(first.error, Code::cancelled);
    EXPECT_FALSE(second.isEnded);
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

TEST_F(URLSessionWebSocketTest, asksASilentPeerAndStaysWhileItAnswers) {
    const auto upgrade = upgradeAndSay({});
    int pings = 0;
    QTcpSocket* peer = nullptr;
    RawServer server([&](const std::string& head, QTcpSocket& socket) {
        upgrade(head, socket);
        peer = &socket;
    });
    URLSessionWebSocket socket({.heartbeat = milliseconds(40)});
    StreamReader reader(m_loop, socket.connect(server.streamUrl()));
    EXPECT_TRUE(spinUntil([&] {
        for (const auto& frame : framesIn(std::exchange(server.received, {}))) {
            ++pings;
            peer->write(QByteArray::fromStdString(encode(Opcode::pong, frame.payload)));
        }
        return pings >= 4 || reader.isEnded;
    }));
    EXPECT_FALSE(reader.isEnded) << reader.errorText;
}

TEST_F(URLSessionWebSocketTest, failsWhenASilentPeerDoesNotAnswer) {
    RawServer server(upgradeAndSay(encode(Opcode::text, "last words")));
    URLSessionWebSocket socket({.heartbeat = milliseconds(20)});
    StreamReader reader(m_loop, socket.connect(server.streamUrl()));
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, Code::timedOut);
    EXPECT_EQ(reader.errorText, "the peer does not answer pings");
    EXPECT_THAT(reader.buffers, ElementsAre("last words"));
    EXPECT_EQ(framesIn(server.received).at(0).opcode, Opcode::ping);
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

}  // namespace
}  // namespace quillbar
