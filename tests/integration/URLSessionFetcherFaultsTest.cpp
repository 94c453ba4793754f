// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "tests/integration/Fetching.h"
#include "tests/integration/TestExchange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace quillbar {
namespace {

using Code = URLError::Code;
using simulator::CertificateKind;
using simulator::Handshake;
using simulator::OpenConnections;
using simulator::RequestFault;
using std::chrono::milliseconds;
using testing::HasSubstr;
using testing::StartsWith;
using Kind = RequestFault::Kind;

// The fetcher against the simulated exchange, over TLS.
class FetcherFaultsTest : public testing::Test {
protected:
    void strike(Kind kind) { m_exchange.faults().on(kind); }

    TestExchange m_exchange;
    Fetching m_fetching;
};

TEST_F(FetcherFaultsTest, fetchesOverTlsFromAnAuthorityThatIsTrusted) {
    const HTTPResponse response = m_fetching.get(m_exchange.klinesUrl());
    EXPECT_EQ(response.status, 200);
    EXPECT_THAT(response.body, StartsWith("[["));
}

TEST_F(FetcherFaultsTest, fetchesTheWholeExchangeInformation) {
    const HTTPResponse response = m_fetching.get(m_exchange->restBase() + "/exchangeInfo");
    EXPECT_EQ(response.status, 200);
    EXPECT_GT(response.body.size(), 3'000'000U);
    EXPECT_EQ(response.body.back(), '}');
}

TEST_F(FetcherFaultsTest, returnsAStatusAndThenTheAnswer) {
    m_exchange.faults().status(503, 2);
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 503);
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 503);
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 200);
}

TEST_F(FetcherFaultsTest, waitsForADelayedAnswer) {
    m_exchange.faults().onRequests({.delay = milliseconds(60)});
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 200);
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(60));
}

TEST_F(FetcherFaultsTest, timesOutWhileAnAnswerIsHeld) {
    strike(Kind::hold);
    EXPECT_EQ(Fetching({.withoutProgress = milliseconds(500)}).failure(m_exchange.klinesUrl()),
              Code::timedOut);
    // On a slow machine the exchange may not have taken the request yet.
    m_exchange.faults().clear();
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 200);
}

TEST_F(FetcherFaultsTest, failsForABodyThatIsCutShort) {
    strike(Kind::cutShort);
    EXPECT_EQ(m_fetching.failure(m_exchange.klinesUrl()), Code::connectionLost);
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 200);
}

TEST_F(FetcherFaultsTest, failsWhenTheConnectionIsReset) {
    // As often as Qt tries again by itself, and once more.
    m_exchange.faults().on(Kind::reset, {}, 100);
    EXPECT_EQ(m_fetching.failure(m_exchange.klinesUrl()), Code::connectionLost);
    m_exchange.faults().clear();
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 200);
}

TEST_F(FetcherFaultsTest, returnsABodyThatIsNotJson) {
    strike(Kind::notJson);
    const HTTPResponse response = m_fetching.get(m_exchange.klinesUrl());
    EXPECT_EQ(response.status, 200);
    EXPECT_THAT(response.body, StartsWith("<"));
}

TEST_F(FetcherFaultsTest, returnsABodyWithAWrongNumber) {
    strike(Kind::wrongNumber);
    EXPECT_THAT(m_fetching.get(m_exchange.klinesUrl()).body, HasSubstr("\"abc\""));
}

TEST_F(FetcherFaultsTest, refusesABodyThatIsTooLarge) {
    constexpr std::size_t kLimit = 1'000'000;
    Fetching fetching({.bodySize = kLimit});
    m_exchange.faults().onRequests({.kind = Kind::oversized, .bytes = kLimit + 1});
    EXPECT_EQ(fetching.failure(m_exchange.klinesUrl()), Code::tooLarge);
    EXPECT_EQ(fetching.errorText, "the body exceeds 1000000 bytes");
}

TEST_F(FetcherFaultsTest, failsWhileConnectionsAreRefused) {
    m_exchange.faults().refuseConnections(OpenConnections::drop);
    EXPECT_EQ(m_fetching.failure(m_exchange.klinesUrl()), Code::cannotConnect);
    m_exchange.faults().listenAgain();
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 200);
}

TEST_F(FetcherFaultsTest, timesOutInATlsHandshakeThatIsNotAnswered) {
    m_exchange.faults().setHandshake(Handshake::silentTls);
    EXPECT_EQ(Fetching({.withoutProgress = milliseconds(50)}).failure(m_exchange.klinesUrl()),
              Code::timedOut);
}

TEST_F(FetcherFaultsTest, followsARedirectToHttps) {
    m_exchange.faults().onRequests(
        {.kind = Kind::redirect, .pathPrefix = "/elsewhere", .location = m_exchange.klinesUrl()});
    const HTTPResponse response = m_fetching.get(
        m_exchange->restBase().substr(0, m_exchange->restBase().find("/api")) + "/elsewhere");
    EXPECT_EQ(response.status, 200);
    EXPECT_THAT(response.body, StartsWith("[["));
}

TEST_F(FetcherFaultsTest, followsTwentyRedirectsAndReturnsTheNext) {
    m_exchange.faults().onRequests(
        {.kind = Kind::redirect, .times = 1'000, .location = m_exchange.klinesUrl()});
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 302);
    EXPECT_EQ(m_exchange->requests().size(), 21U);
}

TEST_F(FetcherFaultsTest, countsTheTimeOfRedirectsTogether) {
    m_exchange.faults().onRequests({.kind = Kind::redirect,
                                    .times = 1'000,
                                    .delay = milliseconds(100),
                                    .location = m_exchange.klinesUrl()});
    Fetching fetching({.total = milliseconds(500)});
    EXPECT_EQ(fetching.failure(m_exchange.klinesUrl()), Code::timedOut);
    EXPECT_EQ(fetching.errorText, "not done within 500 ms");
    EXPECT_LT(m_exchange->requests().size(), 7U);
}

TEST_F(FetcherFaultsTest, followsARelativeRedirect) {
    m_exchange.faults().onRequests(
        {.kind = Kind::redirect, .location = "klines?symbol=ETHUSDT&interval=5m&limit=1"});
    EXPECT_EQ(m_fetching.get(m_exchange.klinesUrl()).status, 200);
    ASSERT_EQ(m_exchange->requests().size(), 2U);
    EXPECT_EQ(m_exchange->requests()[1].target,
              "/api/v3/klines?symbol=ETHUSDT&interval=5m&limit=1");
}

TEST_F(FetcherFaultsTest, refusesAnExpiredCertificate) {
    m_exchange.faults().setCertificate(CertificateKind::expired);
    EXPECT_EQ(m_fetching.failure(m_exchange.klinesUrl()), Code::secureConnectionFailed);
    EXPECT_THAT(m_fetching.errorText, HasSubstr("expired"));
    EXPECT_TRUE(m_exchange->requests().empty());
}

TEST_F(FetcherFaultsTest, refusesACertificateForAnotherHost) {
    m_exchange.faults().setCertificate(CertificateKind::wrongHost);
    EXPECT_EQ(m_fetching.failure(m_exchange.klinesUrl()), Code::secureConnectionFailed);
    EXPECT_THAT(m_fetching.errorText, HasSubstr("host name"));
    EXPECT_TRUE(m_exchange->requests().empty());
}

TEST(FetcherTrustTest, refusesACertificateFromAnUnknownAuthority) {
    TestExchange exchange(Trust::unknown);
    EXPECT_EQ(Fetching().failure(exchange.klinesUrl()), Code::secureConnectionFailed);
    EXPECT_TRUE(exchange->requests().empty());
}

}  // namespace
}  // namespace quillbar
