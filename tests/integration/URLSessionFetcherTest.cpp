// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "QuillbarCore/runtime/Cancelled.h"
#include "tests/integration/Fetching.h"
#include "tests/integration/RawServer.h"

#include <QTimer>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace quillbar {
namespace {

using Code = URLError::Code;
using std::chrono::milliseconds;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

RawServer::Answer say(std::string answer) {
    return [answer = std::move(answer)](const std::string&, QTcpSocket& socket) {
        socket.write(QByteArray::fromStdString(answer));
    };
}

RawServer::Answer sayAndClose(std::string answer) {
    return [answer = std::move(answer)](const std::string&, QTcpSocket& socket) {
        socket.write(QByteArray::fromStdString(answer));
        socket.disconnectFromHost();
    };
}

void sayNothing(const std::string&, QTcpSocket&) {}

TEST(URLSessionFetcherTest, givesAStalledTransferAMinuteAndABody64MiB) {
    EXPECT_EQ(TransferLimits{}.withoutProgress, std::chrono::seconds(60));
    EXPECT_EQ(TransferLimits{}.total, std::chrono::seconds(90));
    EXPECT_EQ(TransferLimits{}.bodySize, 67'108'864U);
}

TEST(URLSessionFetcherTest, getsABodyAndItsStatus) {
    RawServer server(say(httpAnswer("200 OK", "[1,2]")));
    EXPECT_EQ(Fetching().get(server.url("/api")), (HTTPResponse{"[1,2]", 200}));
}

TEST(URLSessionFetcherTest, getsAnEmptyBody) {
    RawServer server(say(httpAnswer("204 No Content", "")));
    EXPECT_EQ(Fetching().get(server.url()), (HTTPResponse{"", 204}));
}

TEST(URLSessionFetcherTest, keepsEveryByteOfABody) {
    std::string body;
    for (int i = 0; i < 300'000; ++i) {
        body += static_cast<char>(i * 7 % 256);
    }
    RawServer server(say(httpAnswer("200 OK", body)));
    EXPECT_EQ(Fetching().get(server.url()).body, body);
}

TEST(URLSessionFetcherTest, sendsAPlainGetWithAUserAgentAndNoBody) {
    RawServer server(say(httpAnswer("200 OK", "")));
    static_cast<void>(Fetching().get(server.url("/klines?symbols=%5B%22BTCUSDT%22%5D&limit=5")));
    ASSERT_EQ(server.heads.size(), 1U);
    // Qt 6.8 writes the names of headers in small letters, which mean the same.
    const std::string& head = server.heads[0];
    EXPECT_EQ(head.substr(0, head.find("\r\n")),
              "GET /klines?symbols=%5B%22BTCUSDT%22%5D&limit=5 HTTP/1.1");
    EXPECT_THAT(head, ContainsRegex("\r\n[Uu]ser-[Aa]gent: Quillbar/" QUILLBAR_VERSION "\r\n"));
    EXPECT_THAT(head, ContainsRegex("\r\n[Aa]ccept-[Ee]ncoding: .*gzip"));
    EXPECT_THAT(head, Not(ContainsRegex("[Cc]ontent-[Ll]ength")));
}

TEST(URLSessionFetcherTest, returnsEveryStatusThatIsNoSuccess) {
    Fetching fetching;
    for (const int status : {300,
                             304,
                             400,
                             401,
                             403,
                             404,
                             405,
                             407,
                             409,
                             410,
                             418,
                             429,
                             451,
                             500,
                             501,
                             502,
                             503,
                             504,
                             599}) {
        SCOPED_TRACE(status);
        RawServer server(say(httpAnswer(fmt::format("{} Said", status), R"({"code":-1})")));
        const HTTPResponse response = fetching.get(server.url());
        EXPECT_EQ(response.status, status);
        if (status != 304) {
            EXPECT_EQ(response.body, R"({"code":-1})") << status;
        }
    }
}

TEST(URLSessionFetcherTest, failsForAStatusThatHasNotThreeDigits) {
    for (const int status : {-407, -200, 0, 99, 1000}) {
        SCOPED_TRACE(status);
        RawServer server(say(httpAnswer(fmt::format("{} Said", status), "{}")));
        Fetching fetching;
        EXPECT_EQ(fetching.failure(server.url()), Code::other);
    }
}

TEST(URLSessionFetcherTest, givesStatusZeroToWhatIsNotHttp) {
    EXPECT_EQ(Fetching().get("data:text/plain,hello"), (HTTPResponse{"hello", 0}));
}

TEST(URLSessionFetcherTest, refusesWhatIsNoUrl) {
    Fetching fetching;
    EXPECT_EQ(fetching.failure(""), Code::badURL);
    EXPECT_EQ(fetching.failure("/api/v3/klines"), Code::badURL);
    EXPECT_EQ(fetching.failure("https://[half"), Code::badURL);
    EXPECT_EQ(fetching.failure("carrier-pigeon://host/"), Code::badURL);
    EXPECT_EQ(fetching.failure("no url\nat all"), Code::badURL);
    EXPECT_EQ(fetching.errorText, "not a URL: no url at all");
}

TEST(URLSessionFetcherTest, failsWhereNobodyListens) {
    std::string url;
    {
        const RawServer gone(sayNothing);
        url = gone.url();
    }
    EXPECT_EQ(Fetching().failure(url), Code::cannotConnect);
}

TEST(URLSessionFetcherTest, failsForAHostWithoutAnAddress) {
    EXPECT_EQ(Fetching().failure("http://" + hostWithoutAnAddress() + "/"), Code::cannotFindHost);
}

TEST(URLSessionFetcherTest, failsWhenTheBodyEndsEarly) {
    RawServer server(
        sayAndClose("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly the beginning"));
    EXPECT_EQ(Fetching().failure(server.url()), Code::connectionLost);
}

TEST(URLSessionFetcherTest, failsWhenTheAnswerIsNotHttp) {
    RawServer server(sayAndClose("220 mail.example ESMTP ready to greet anybody\r\n"));
    EXPECT_TRUE(Fetching().failure(server.url()).has_value());
}

TEST(URLSessionFetcherTest, acceptsABodyOfTheLargestSizeAndNoByteMore) {
    constexpr std::size_t kLargest = 100'000;
    Fetching fetching({.bodySize = kLargest});
    RawServer fitting(say(httpAnswer("200 OK", std::string(kLargest, 'x'))));
    EXPECT_EQ(fetching.get(fitting.url()).body.size(), kLargest);
    RawServer exceeding(say(httpAnswer("200 OK", std::string(kLargest + 1, 'x'))));
    EXPECT_EQ(fetching.failure(exceeding.url()), Code::tooLarge);
    EXPECT_EQ(fetching.errorText, "the body exceeds 100000 bytes");
}

TEST(URLSessionFetcherTest, abortsAnEndlessBody) {
    const std::string chunk = "10000\r\n" + std::string(0x10000, 'x') + "\r\n";
    RawServer server([&chunk](const std::string&, QTcpSocket& socket) {
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, [&socket, &chunk] {
            socket.write(QByteArray::fromStdString(chunk));
        });
        socket.write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
    });
    EXPECT_EQ(Fetching({.bodySize = 1'000'000}).failure(server.url()), Code::tooLarge);
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

TEST(URLSessionFetcherTest, timesOutWhenNothingIsAnswered) {
    RawServer server(sayNothing);
    // Long enough to reach the server on a busy machine: it sees the end of what it has accepted.
    Fetching fetching({.withoutProgress = milliseconds(500)});
    EXPECT_EQ(fetching.failure(server.url()), Code::timedOut);
    EXPECT_EQ(fetching.errorText, "no progress for 500 ms");
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

TEST(URLSessionFetcherTest, timesOutWhenABodyStalls) {
    RawServer server(say("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly the beginning"));
    EXPECT_EQ(Fetching({.withoutProgress = milliseconds(50)}).failure(server.url()),
              Code::timedOut);
}

TEST(URLSessionFetcherTest, takesItsTimeForABodyThatKeepsComing) {
    // Altogether longer than a transfer may take without progress.
    constexpr int kPieces = 12;
    RawServer server([](const std::string&, QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 12\r\n\r\n");
        auto* const timer = new QTimer(&socket);
        timer->callOnTimeout(&socket, [&socket, timer, sent = 0]() mutable {
            socket.write("x");
            if (++sent == kPieces) {
                timer->stop();
            }
        });
        timer->start(milliseconds(100));
    });
    EXPECT_EQ(Fetching({.withoutProgress = milliseconds(1'000)}).get(server.url()).body,
              std::string(kPieces, 'x'));
}

TEST(URLSessionFetcherTest, givesUpABodyThatComesTooSlowly) {
    QTimer drip;
    RawServer server([&drip](const std::string&, QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
        QObject::connect(&drip, &QTimer::timeout, &socket, [&socket] { socket.write("x"); });
        drip.start(20);
    });
    Fetching fetching({.total = milliseconds(400)});
    EXPECT_EQ(fetching.failure(server.url()), Code::timedOut);
    EXPECT_EQ(fetching.errorText, "not done within 400 ms");
}

TEST(URLSessionFetcherTest, goesOnWithOtherTransfersAfterATimeout) {
    QTcpSocket* slow = nullptr;
    RawServer server([&slow](const std::string& head, QTcpSocket& socket) {
        if (head.starts_with("GET /slow")) {
            slow = &socket;
        } else if (head.starts_with("GET /quick")) {
            socket.write(QByteArray::fromStdString(httpAnswer("200 OK", "quick")));
        }
    });
    Fetching fetching;
    HTTPResponse response;
    const auto fetch = [&](std::string url) -> Task<void> {
        response = co_await fetching.fetcher().fetch(std::move(url));
    };
    fetching.loop().spawn(fetch(server.url("/slow")));
    ASSERT_TRUE(spinUntil([&slow] { return slow != nullptr; }));
    EXPECT_EQ(Fetching({.withoutProgress = milliseconds(50)}).failure(server.url("/never")),
              Code::timedOut);
    EXPECT_EQ(fetching.get(server.url("/quick")).body, "quick");
    slow->write(QByteArray::fromStdString(httpAnswer("200 OK", "slow")));
    EXPECT_TRUE(spinUntil([&response] { return response.status == 200; }));
    EXPECT_EQ(response.body, "slow");
}

TEST(URLSessionFetcherTest, trustsNoOpenConnectionAfterATimeout) {
    std::vector<QTcpSocket*> waiting;
    RawServer server([&waiting](const std::string& head, QTcpSocket& socket) {
        if (!head.starts_with("GET /never")) {
            waiting.push_back(&socket);
        }
    });
    const auto answerAll = [&waiting] {
        for (QTcpSocket* const socket : std::exchange(waiting, {})) {
            socket->write(QByteArray::fromStdString(httpAnswer("200 OK", "")));
        }
    };
    Fetching fetching;
    int done = 0;
    const auto fetch = [&](std::string url) -> Task<void> {
        const HTTPResponse response = co_await fetching.fetcher().fetch(std::move(url));
        ++done;
    };
    fetching.loop().spawn(fetch(server.url("/first")));
    fetching.loop().spawn(fetch(server.url("/second")));
    ASSERT_TRUE(spinUntil([&waiting] { return waiting.size() == 2; }));
    answerAll();
    ASSERT_TRUE(spinUntil([&done] { return done == 2; }));
    EXPECT_EQ(Fetching({.withoutProgress = milliseconds(50)}).failure(server.url("/never")),
              Code::timedOut);
    EXPECT_EQ(server.accepted, 2);
    fetching.loop().spawn(fetch(server.url("/third")));
    ASSERT_TRUE(spinUntil([&waiting] { return waiting.size() == 1; }));
    EXPECT_EQ(server.accepted, 3);
    answerAll();
    EXPECT_TRUE(spinUntil([&done] { return done == 3; }));
}

TEST(URLSessionFetcherTest, abortsTheTransferWhenTheTaskIsCancelled) {
    RawServer server(sayNothing);
    Fetching fetching;
    bool isCancelled = false;
    const auto fetch = [&](std::string url) -> Task<void> {
        try {
            const HTTPResponse response = co_await fetching.fetcher().fetch(std::move(url));
        } catch (const Cancelled&) {
            isCancelled = true;
        }
    };
    const auto handle = fetching.loop().spawn(fetch(server.url()));
    ASSERT_TRUE(spinUntil([&server] { return !server.heads.empty(); }));
    EXPECT_EQ(server.ended, 0);
    handle.cancel();
    EXPECT_TRUE(spinUntil([&] { return isCancelled && server.ended == 1; }));
}

TEST(URLSessionFetcherTest, abortsTheTransferWhenTheTaskIsDestroyed) {
    RawServer server(sayNothing);
    {
        Fetching fetching;
        const auto fetch = [&fetching](std::string url) -> Task<void> {
            const HTTPResponse response = co_await fetching.fetcher().fetch(std::move(url));
        };
        fetching.loop().spawn(fetch(server.url()));
        ASSERT_TRUE(spinUntil([&server] { return !server.heads.empty(); }));
    }
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

TEST(URLSessionFetcherTest, sharesConnectionsBetweenFetchers) {
    RawServer server(say(httpAnswer("200 OK", "")));
    for (int i = 0; i < 3; ++i) {
        static_cast<void>(Fetching().get(server.url()));
    }
    EXPECT_EQ(server.heads.size(), 3U);
    EXPECT_EQ(server.accepted, 1);
}

TEST(URLSessionFetcherTest, leavesTheConnectionsThatItIsToForget) {
    // A connection dies after its first answer, as over a sleep, and nobody is told.
    RawServer server([](const std::string&, QTcpSocket& socket) {
        if (!socket.property("isDead").toBool()) {
            socket.setProperty("isDead", true);
            socket.write(QByteArray::fromStdString(httpAnswer("200 OK", "")));
        }
    });
    Fetching fetching({.withoutProgress = milliseconds(5'000)});
    static_cast<void>(fetching.get(server.url()));
    URLSessionFetcher::forgetConnections();
    EXPECT_EQ(fetching.failure(server.url()), std::nullopt);
    EXPECT_EQ(server.accepted, 2);
    EXPECT_TRUE(spinUntil([&server] { return server.ended == 1; }));
}

TEST(URLSessionFetcherTest, endsTheTransfersUnderWayOnTheConnectionsThatItIsToForget) {
    QTcpSocket* waiting = nullptr;
    RawServer server([&waiting](const std::string&, QTcpSocket& socket) { waiting = &socket; });
    Fetching fetching;
    int status = 0;
    const auto fetch = [&](std::string url) -> Task<void> {
        const HTTPResponse response = co_await fetching.fetcher().fetch(std::move(url));
        status = response.status;
    };
    fetching.loop().spawn(fetch(server.url()));
    ASSERT_TRUE(spinUntil([&waiting] { return waiting != nullptr; }));
    URLSessionFetcher::forgetConnections();
    waiting->write(QByteArray::fromStdString(httpAnswer("200 OK", "")));
    EXPECT_TRUE(spinUntil([&status] { return status == 200; }));
    EXPECT_EQ(server.accepted, 1);
}

TEST(URLSessionFetcherTest, asksAgainForWhatCouldBeCachedAndReturnsNoCookies) {
    RawServer server(say(
        httpAnswer("200 OK", "", "Set-Cookie: id=1; Path=/\r\nCache-Control: max-age=3600\r\n")));
    Fetching fetching;
    static_cast<void>(fetching.get(server.url()));
    static_cast<void>(fetching.get(server.url()));
    ASSERT_EQ(server.heads.size(), 2U);
    EXPECT_THAT(server.heads[1], Not(HasSubstr("Cookie")));
}

TEST(URLSessionFetcherTest, doesNotFollowARedirectToPlainHttp) {
    RawServer target(say(httpAnswer("200 OK", "never asked")));
    for (const char* const status : {"301 Moved Permanently",
                                     "302 Found",
                                     "307 Temporary Redirect",
                                     "308 Permanent Redirect"}) {
        RawServer server(
            say(httpAnswer(status, "elsewhere", "Location: " + target.url() + "\r\n")));
        const HTTPResponse response = Fetching().get(server.url());
        EXPECT_EQ(fmt::format("{}", response.status), std::string(status, 3));
        EXPECT_EQ(response.body, "elsewhere");
    }
    EXPECT_TRUE(target.heads.empty());
}

TEST(URLSessionFetcherTest, doesNotFollowARedirectToAnotherScheme) {
    for (const char* const location : {"data:text/plain,gotcha", "file:///etc/passwd", "/other"}) {
        RawServer server(
            say(httpAnswer("302 Found", "", fmt::format("Location: {}\r\n", location))));
        EXPECT_EQ(Fetching().get(server.url()), (HTTPResponse{"", 302})) << location;
        EXPECT_EQ(server.heads.size(), 1U) << location;
    }
}

}  // namespace
}  // namespace quillbar
