// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceEndpoints.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/BinanceRESTClient.h"
#include "QuillbarCore/exchange/RegionalFetcher.h"
#include "QuillbarCore/exchange/URLError.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeFetcher.h"
#include "tests/support/TaskRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* kOfTheExchange =
    R"({"code":0,"msg":"Service unavailable from a Restricted Location according to the terms."})";
constexpr const char* kOfTheNetwork =
    "<html>The distribution is configured to block access from your country.</html>";

struct RegionalFetcherTest : ::testing::Test {
    /// Whether the answer counts as that of a host that does not serve this place.
    bool isNotServed(int status, const std::string& body) {
        service->answer(status, body);
        const TaskRun<HTTPResponse> run(executor, fetcher.fetch("https://one.test/"));
        try {
            const HTTPResponse& response = run.value();
            EXPECT_EQ(response.status, status);
            EXPECT_EQ(response.body, body);
            return false;
        } catch (const URLError& error) {
            EXPECT_EQ(error.code(), URLError::Code::notServedHere);
            return true;
        }
    }

    CapturedLog log;
    ManualExecutor executor;
    InlineWorker worker;
    std::shared_ptr<FakeFetcher> service = std::make_shared<FakeFetcher>();
    RegionalFetcher fetcher{service};
};

}  // namespace

TEST_F(RegionalFetcherTest, knowsTheAnswersThatBlameTheRegion) {
    EXPECT_TRUE(isNotServed(451, ""));
    EXPECT_TRUE(isNotServed(451, kOfTheExchange));
    EXPECT_TRUE(isNotServed(403, kOfTheExchange));
    EXPECT_TRUE(isNotServed(403, kOfTheNetwork));
}

TEST_F(RegionalFetcherTest, passesEveryOtherAnswerOn) {
    EXPECT_FALSE(isNotServed(403, ""));
    EXPECT_FALSE(isNotServed(403, R"({"code":-1003,"msg":"Too many requests."})"));
    EXPECT_FALSE(isNotServed(403, std::string(100'000, 'x') + kOfTheExchange));
    for (const int status : {0, 200, 400, 404, 418, 429, 500, 503}) {
        EXPECT_FALSE(isNotServed(status, kOfTheExchange)) << status;
    }
}

TEST_F(RegionalFetcherTest, passesErrorsOn) {
    service->fail(URLError(URLError::Code::timedOut, "timed out"));
    const TaskRun<HTTPResponse> run(executor, fetcher.fetch("https://one.test/"));
    try {
        static_cast<void>(run.value());
        ADD_FAILURE() << "no error";
    } catch (const URLError& error) {
        EXPECT_EQ(error.code(), URLError::Code::timedOut);
    }
}

TEST_F(RegionalFetcherTest, makesTheClientAskTheNextHost) {
    const auto endpoints = std::make_shared<EndpointSelector>(BinanceEndpoints::rest());
    BinanceRESTClient client(std::make_shared<RegionalFetcher>(service), endpoints, worker);
    service->answer(451);
    service->answer(200, "[]");
    const TaskRun<std::vector<Candle>> run(executor,
                                           client.klines("BTCUSDT", "1m", 1, std::nullopt));
    EXPECT_THAT(run.value(), SizeIs(0));
    EXPECT_THAT(service->requests,
                ElementsAre(StartsWith(BinanceEndpoints::rest()[0]),
                            StartsWith(BinanceEndpoints::rest()[1])));
    EXPECT_EQ(endpoints->current()->index, 1);
    EXPECT_THAT(log.lines("REST"),
                ElementsAre(::testing::EndsWith("the host does not serve this region (HTTP 451)")));
}

}  // namespace quillbar
