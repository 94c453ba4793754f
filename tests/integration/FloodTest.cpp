// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "QuillbarCore/exchange/URLSessionWebSocket.h"
#include "simulator/WebSocketFrames.h"
#include "tests/integration/Fetching.h"
#include "tests/integration/FloodServer.h"
#include "tests/integration/RawServer.h"
#include "tests/integration/StreamReader.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QTimer>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillbar {
namespace {

using Code = URLError::Code;
using simulator::WebSocketFrames::encode;
using simulator::WebSocketFrames::Opcode;
using std::chrono::milliseconds;

constexpr std::size_t kMegabyte = std::size_t{1024} * 1024;
// What the system's buffers take, on both sides, and a little more.
constexpr std::size_t kOnItsWay = 20 * kMegabyte;

std::string repeated(std::string_view text) {
    std::string result;
    while (result.size() < std::size_t{64} * 1024) {
        result += text;
    }
    return result;
}

// The beginning of every answer.
auto saying(std::string text) {
    return [text = std::move(text)](const std::string& /*head*/) { return text; };
}

// What becomes of a stream from this server.
StreamReader& readToItsEnd(StreamReader& reader) {
    EXPECT_TRUE(reader.ends());
    return reader;
}

constexpr std::size_t kLargest = 8 * kMegabyte;

TEST(FetchFloodTest, makesAServerWaitUntilItsBodyIsReadAndLeavesItAtTheLargestSize) {
    FloodServer server(saying("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n"),
                       std::string(65536, 'x'));
    EXPECT_EQ(Fetching({.bodySize = kLargest}).failure(server.url()), Code::tooLarge);
    EXPECT_LT(server.sent(), kLargest + kOnItsWay);
}

// How much such a server could send meanwhile depends on who is faster.
TEST(FetchFloodTest, leavesAServerWhoseChunksHaveNoEndAtTheLargestSize) {
    FloodServer server(saying("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"),
                       fmt::format("10000\r\n{}\r\n", std::string(65536, 'x')));
    Fetching fetching({.bodySize = kLargest});
    EXPECT_EQ(fetching.failure(server.url()), Code::tooLarge);
    EXPECT_TRUE(spinUntil([&server] { return server.isLeft(); }));
}

TEST(FetchFloodTest, leavesAServerWhoseHeadHasNoEnd) {
    for (const char* const drop : {"HTTP/1.1 200 ", "X: ", "HTTP/1.1 100 Continue\r\n\r\n"}) {
        QTimer drip;
        RawServer server([&](const std::string& /*head*/, QTcpSocket& socket) {
            socket.write(*drop == 'X' ? "HTTP/1.1 200 OK\r\nX: " : drop);
            drip.callOnTimeout(&socket, [&socket, drop] { socket.write(drop); });
            drip.start(milliseconds(10));
        });
        Fetching fetching({.head = milliseconds(300)});
        EXPECT_EQ(fetching.failure(server.url()), Code::timedOut);
        EXPECT_EQ(fetching.errorText, "no head within 300 ms");
    }
}

TEST(FetchFloodTest, leavesABodyThatDecompressesWithoutEnd) {
    // One block of zlib's format: a zero byte, then again and again 2064 of them in 13 bytes.
    const std::string zeros("\x78\x9c\x63\x18", 4);
    std::string period;
    std::string bits;
    while (bits.size() < 104) {
        bits += "1100010100000";
    }
    // Three bits of the block's head and eight of the byte stand before the first of them.
    bits = bits.substr(5) + bits.substr(0, 5);
    for (std::size_t at = 0; at < bits.size(); at += 8) {
        unsigned byte = 0;
        for (std::size_t bit = 0; bit < 8; ++bit) {
            byte |= bits[at + bit] == '1' ? 1U << bit : 0U;
        }
        period += static_cast<char>(byte);
    }
    FloodServer server(
        saying("HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\nConnection: close\r\n\r\n" + zeros),
        repeated(period));
    // Which of the two bounds is met first depends on how much comes at a time.
    const auto failure = Fetching().failure(server.url());
    EXPECT_TRUE(failure == Code::other || failure == Code::tooLarge);
    EXPECT_LT(server.sent(), kOnItsWay);
}

TEST(StreamFloodTest, leavesAServerThatSaysMoreThanCanBeRead) {
    FloodServer server(upgradeAnswer, repeated(encode(Opcode::text, "x")));
    EventLoop loop;
    URLSessionWebSocket socket;
    StreamReader reader(loop, socket.connect(server.streamUrl()));
    EXPECT_EQ(readToItsEnd(reader).error, Code::tooLarge);
    EXPECT_LT(server.sent(), kOnItsWay);
}

TEST(StreamFloodTest, leavesAServerThatPingsAndTakesNoAnswer) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{125}}) {
        FloodServer server(upgradeAnswer, repeated(encode(Opcode::ping, std::string(size, 'p'))));
        EventLoop loop;
        URLSessionWebSocket socket;
        StreamReader reader(loop, socket.connect(server.streamUrl()));
        EXPECT_EQ(readToItsEnd(reader).error, Code::other);
        EXPECT_EQ(reader.errorText, "the peer takes no answers");
        EXPECT_LT(server.sent(), kOnItsWay);
    }
}

TEST(StreamFloodTest, makesAServerWaitWhoseUpgradeHasNoEnd) {
    FloodServer server(saying("HTTP/1.1 101 "), std::string(65536, 'x'));
    EventLoop loop;
    URLSessionWebSocket socket({.handshake = milliseconds(1'500)});
    StreamReader reader(loop, socket.connect(server.streamUrl()));
    EXPECT_EQ(readToItsEnd(reader).error, Code::timedOut);
    EXPECT_LT(server.sent(), kOnItsWay);
}

TEST(StreamFloodTest, goesOnWithAServerWhoseMessagesAreLargeAndMany) {
    FloodServer server(upgradeAnswer, encode(Opcode::text, std::string(kMegabyte, 'x')));
    EventLoop loop;
    URLSessionWebSocket socket;
    StreamReader reader(loop, socket.connect(server.streamUrl()));
    EXPECT_TRUE(reader.receives(20));
    EXPECT_FALSE(reader.isEnded);
    socket.cancel();
    EXPECT_TRUE(reader.ends());
}

}  // namespace
}  // namespace quillbar
