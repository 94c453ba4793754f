// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "tests/integration/Fetching.h"
#include "tests/integration/RawServer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace quillbar {
namespace {

using Code = URLError::Code;

// zlib's format, which HTTP calls deflate.
std::string deflated(const std::string& text) {
    constexpr int kLengthOfQtsOwnHeader = 4;
    return qCompress(QByteArray::fromStdString(text), 9).mid(kLengthOfQtsOwnHeader).toStdString();
}

/// Says that this body is compressed.
RawServer::Answer sayDeflated(const std::string& body) {
    return [answer = httpAnswer("200 OK", body, "Content-Encoding: deflate\r\n")](
               const std::string&, QTcpSocket& socket) {
        socket.write(QByteArray::fromStdString(answer));
    };
}

TEST(URLSessionFetcherCompressionTest, inflatesACompressedBody) {
    const std::string body(200'000, 'x');
    RawServer server(sayDeflated(deflated(body)));
    EXPECT_EQ(Fetching().get(server.url()).body, body);
}

TEST(URLSessionFetcherCompressionTest, inflatesWhatCompressesWellUpToTheLargestSize) {
    // More than ten mebibytes, of which Qt by itself accepts no more than forty times what came.
    constexpr std::size_t kSize = std::size_t{12} * 1024 * 1024;
    const std::string small = deflated(std::string(kSize, 'x'));
    ASSERT_LT(small.size() * 40, kSize);
    RawServer server(sayDeflated(small));
    EXPECT_EQ(Fetching().get(server.url()).body.size(), kSize);
}

TEST(URLSessionFetcherCompressionTest, failsWhenTheCompressionIsDamaged) {
    RawServer server(sayDeflated("this was never deflated"));
    EXPECT_EQ(Fetching().failure(server.url()), Code::other);
}

TEST(URLSessionFetcherCompressionTest, refusesABodyThatInflatesBeyondTheLargestSize) {
    constexpr std::size_t kLargest = 100'000;
    Fetching fetching({.bodySize = kLargest});
    RawServer fitting(sayDeflated(deflated(std::string(kLargest, 'x'))));
    EXPECT_EQ(fetching.get(fitting.url()).body.size(), kLargest);
    RawServer exceeding(sayDeflated(deflated(std::string(kLargest + 1, 'x'))));
    EXPECT_EQ(fetching.failure(exceeding.url()), Code::tooLarge);
}

}  // namespace
}  // namespace quillbar
