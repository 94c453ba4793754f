// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/HttpMessage.h"
#include "simulator/WebSocketFrames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quillbar::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;
using State = HttpParse::State;

TEST(HttpMessageTest, ReadsARequestAndLeavesWhatFollows) {
    const std::string text =
        "GET /a%20b/c?symbols=%5B%22X%22%5D&limit=5&flag HTTP/1.1\r\nHOST:  x \r\nA:b:c\r\n\r\nGET";
    const HttpParse parse = parseRequest(text);
    ASSERT_EQ(parse.state, State::complete);
    EXPECT_EQ(parse.length, text.size() - 3);
    EXPECT_EQ(parse.request.method, "GET");
    EXPECT_EQ(parse.request.target, "/a%20b/c?symbols=%5B%22X%22%5D&limit=5&flag");
    EXPECT_EQ(parse.request.path, "/a b/c");
    EXPECT_THAT(parse.request.query,
                ElementsAre(Pair("symbols", "[\"X\"]"), Pair("limit", "5"), Pair("flag", "")));
    EXPECT_THAT(parse.request.headers, ElementsAre(Pair("host", "x"), Pair("a", "b:c")));
    EXPECT_EQ(parse.request.parameter("limit"), "5");
    EXPECT_EQ(parse.request.parameter("other"), std::nullopt);
}

TEST(HttpMessageTest, WaitsForTheRest) {
    const std::string text = "POST /x HTTP/1.1\r\nContent-Length: 3\r\n\r\nabc";
    for (std::size_t length = 0; length < text.size(); ++length) {
        EXPECT_EQ(parseRequest(text.substr(0, length)).state, State::incomplete) << length;
    }
    EXPECT_EQ(parseRequest(text).state, State::complete);
}

TEST(HttpMessageTest, RefusesWhatMakesNoSense) {
    for (const std::string text : {"hello\r\n\r\n",
                                   "GET x HTTP/1.1\r\n\r\n",
                                   "GET / SPDY/1\r\n\r\n",
                                   "GET / HTTP/1.1\r\nno colon\r\n\r\n",
                                   "GET / HTTP/1.1\r\n: x\r\n\r\n",
                                   "GET / HTTP/1.1\r\nContent-Length: x\r\n\r\n",
                                   "GET / HTTP/1.1\r\nContent-Length: 99999999\r\n\r\n",
                                   "GET / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n"}) {
        EXPECT_EQ(parseRequest(text).state, State::malformed) << text;
    }
    EXPECT_EQ(parseRequest(std::string(70'000, 'x')).state, State::malformed);
}

TEST(HttpMessageTest, ABrokenPercentSignStays) {
    EXPECT_EQ(percentDecoded("%41%4a%4A"), "AJJ");
    EXPECT_EQ(percentDecoded("%E5%B8%81"), "\u5e01");
    EXPECT_EQ(percentDecoded("100%"), "100%");
    EXPECT_EQ(percentDecoded("%4"), "%4");
    EXPECT_EQ(percentDecoded("%zz%-1"), "%zz%-1");
}

TEST(HttpMessageTest, WritesAHead) {
    HttpResponse response;
    response.status = 429;
    response.body = "12345";
    response.headers.emplace_back("Retry-After", "7");
    EXPECT_EQ(headText(response),
              "HTTP/1.1 429 Too Many Requests\r\nContent-Type: application/json;charset=UTF-8\r\n"
              "Content-Length: 5\r\nRetry-After: 7\r\n\r\n");
}

TEST(WebSocketFramesTest, AnswersTheKeyOfTheStandardsExample) {
    EXPECT_EQ(WebSocketFrames::acceptKey("dGhlIHNhbXBsZSBub25jZQ=="),
              "s3pPLMBiTxaQ9kYGzzhZRbK+xOo=");
}

TEST(WebSocketFramesTest, EncodesTheThreeLengths) {
    using WebSocketFrames::Opcode;
    EXPECT_EQ(WebSocketFrames::encode(Opcode::text, "Hello"), "\x81\x05Hello");
    EXPECT_EQ(WebSocketFrames::encode(Opcode::binary, std::string(256, 'x')).substr(0, 4),
              (std::string{"\x82\x7E\x01\x00", 4}));
    EXPECT_EQ(WebSocketFrames::encode(Opcode::binary, std::string(65536, 'x')).substr(0, 10),
              (std::string{"\x82\x7F\x00\x00\x00\x00\x00\x01\x00\x00", 10}));
    EXPECT_EQ(WebSocketFrames::encodeClose(1001), "\x88\x02\x03\xE9");
}

TEST(WebSocketFramesTest, UnmasksTheStandardsExample) {
    const std::string masked = "\x81\x85\x37\xfa\x21\x3d\x7f\x9f\x4d\x51\x58";
    for (std::size_t length = 0; length < masked.size(); ++length) {
        EXPECT_FALSE(WebSocketFrames::decode(masked.substr(0, length)).has_value()) << length;
    }
    const auto frame = WebSocketFrames::decode(masked + "more");
    ASSERT_TRUE(frame.has_value());
    EXPECT_EQ(frame->opcode, WebSocketFrames::Opcode::text);
    EXPECT_EQ(frame->payload, "Hello");
    EXPECT_EQ(frame->length, masked.size());
}

TEST(WebSocketFramesTest, DecodesWhatItEncodes) {
    for (const std::size_t size : {0U, 1U, 125U, 126U, 65535U, 65536U, 100'000U}) {
        const std::string payload(size, 'p');
        const auto frame = WebSocketFrames::decode(
            WebSocketFrames::encode(WebSocketFrames::Opcode::ping, payload));
        ASSERT_TRUE(frame.has_value()) << size;
        EXPECT_EQ(frame->payload, payload);
        EXPECT_EQ(frame->opcode, WebSocketFrames::Opcode::ping);
    }
}

TEST(WebSocketFramesTest, ReadsACloseCode) {
    EXPECT_EQ(WebSocketFrames::closeCode("\x03\xE9gone"), 1001);
    EXPECT_EQ(WebSocketFrames::closeCode(""), 1005);
    EXPECT_EQ(WebSocketFrames::closeCode("\x03"), 1005);
}

}  // namespace
}  // namespace quillbar::simulator
