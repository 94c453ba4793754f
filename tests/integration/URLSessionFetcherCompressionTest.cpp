// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "tests/integration/Fetching.h"
#include "tests/integration/RawServer.h"

#include <gtest/gtest.h>

#include <chrono>
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
RawServer::Answer sayDeflated(const std::string& body, const std::string& status = "200 OK") {
    return [answer = httpAnswer(status, body, "Content-Encoding: deflate\r\n")](
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

TEST(URLSessionFetcherCompressionTest, keepsTheStatusOfAnErrorWhoseCompressionIsDamaged) {
    // More than what is read ahead, so that the end of the answer waits for somebody to read it.
    const std::string damaged(1'000'000, 'x');
    for (const int status : {429, 503}) {
        RawServer server(sayDeflated(damaged, std::to_string(status) + " No"));
        // Well before the time that a transfer may take.
        Fetching fetching({.total = std::chrono::seconds(20)});
        EXPECT_EQ(fetching.get(server.url()).status, status);
    }
}

TEST(URLSessionFetcherCompressionTest, refusesABodyThatInflatesBeyondTheLargestSize) {
    constexpr std::size_t kLargest = 100'000;
    Fetching fetching({.bodySize = kLargest});
    RawServer fitting(sayDeflated(deflated(std::string(kLargest, 'x'))));
    EXPECT_EQ(fetching.get(fitting.url()).body.size(), kLargest);
    RawServer exceeding(sayDeflated(deflated(std::string(kLargest + 1, 'x'))));
    EXPECT_EQ(fetching.failure(exceeding.url()), Code::tooLarge);
}

TEST(URLSessionFetcherCompressionTest, givesUpABodyThatInflatesFarBeyondTheLargestSize) {
    RawServer server(sayDeflated(deflated(std::string(std::size_t{12} * 1024 * 1024, 'x'))));
    Fetching fetching({.bodySize = 100'000});
    EXPECT_EQ(fetching.failure(server.url()), Code::other);
}

TEST(URLSessionFetcherCompressionTest, readsACompressedBodyThatIsLongerThanWhatIsReadAhead) {
    // Numbers that hardly compress.
    std::string body;
    unsigned state = 1;
    while (body.size() < 2'000'000) {
        state = state * 1'664'525U + 1'013'904'223U;
        body += static_cast<char>(state >> 24U);
    }
    RawServer server(sayDeflated(deflated(body)));
    EXPECT_EQ(Fetching().get(server.url()).body, body);
}

}  // namespace
}  // namespace quillbar
