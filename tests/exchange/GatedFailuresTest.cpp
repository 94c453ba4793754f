// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/BinanceRESTClient.h"
#include "QuillbarCore/exchange/GatedFetcher.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Cancelled.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeFetcher.h"
#include "tests/support/TaskRun.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using Code = URLError::Code;
using ::testing::SizeIs;

constexpr const char* kOne = "https://one.test/x";
constexpr const char* kTwo = "https://two.test/x";

/// A service whose hosts fail, behind its gate. The pauses are not jittered.
struct GatedFailuresTest : ::testing::Test {
    /// How many of so many requests in a row reach the network.
    std::size_t sentOf(int count, const std::string& url = kOne) {
        const std::size_t before = service->requests.size();
        for (int request = 0; request < count; ++request) {
            const TaskRun<HTTPResponse> run(executor, fetcher->fetch(url));
            EXPECT_TRUE(run.isDone());
        }
        return service->requests.size() - before;
    }

    void theHostsAnswer(int status) {
        service->answers.otherwise(HTTPResponse{.body = "body", .status = status});
    }
    void theHostsFailWith(Code code) { service->answers.otherwiseError(URLError(code, "broken")); }

    CapturedLog log;
    ManualExecutor executor;
    ManualTime time{executor};
    TemporaryFolder folder;
    std::shared_ptr<FakeFetcher> service = std::make_shared<FakeFetcher>();
    std::shared_ptr<GatedFetcher> fetcher = std::make_shared<GatedFetcher>(
        service,
        std::make_shared<ServiceGate>("exchange", folder.path(), time.clock()),
        HostBreakers(time.clock(), [](double seconds) { return seconds; }));
};

}  // namespace

TEST_F(GatedFailuresTest, pauseForAHostWhoseServerFails) {
    for (const int status : {500, 503, 599}) {
        fetcher->forgetFailures();
        theHostsAnswer(status);
        EXPECT_EQ(sentOf(100), 3U);
        const TaskRun<HTTPResponse> run(executor, fetcher->fetch(kOne));
        EXPECT_EQ(run.value(), (HTTPResponse{.body = "", .status = status}));
    }
}

TEST_F(GatedFailuresTest, pauseForAHostThatCannotBeReached) {
    for (const Code code : {Code::timedOut,
                            Code::cannotFindHost,
                            Code::cannotConnect,
                            Code::connectionLost,
                            Code::secureConnectionFailed,
                            Code::notServedHere}) {
        fetcher->forgetFailures();
        theHostsFailWith(code);
        EXPECT_EQ(sentOf(100), 3U);
        const TaskRun<HTTPResponse> run(executor, fetcher->fetch(kOne));
        try {
            static_cast<void>(run.value());
            ADD_FAILURE() << "no error";
        } catch (const URLError& error) {
            EXPECT_EQ(error.code(), code);
        }
    }
}

TEST_F(GatedFailuresTest, keepAskingAHostThatAnswersWhateverItsStatus) {
    for (const int status : {0, 200, 302, 400, 403, 404, 451, 499, 600}) {
        theHostsAnswer(status);
        EXPECT_EQ(sentOf(10), 10U) << status;
    }
    for (const Code code : {Code::cancelled, Code::badURL}) {
        theHostsFailWith(code);
        EXPECT_EQ(sentOf(10), 10U);
    }
}

TEST_F(GatedFailuresTest, askOneHostDuringThePauseOfAnother) {
    theHostsAnswer(503);
    EXPECT_EQ(sentOf(10), 3U);
    theHostsAnswer(200);
    EXPECT_EQ(sentOf(10), 0U);
    EXPECT_EQ(sentOf(10, kTwo), 10U);
    time.advance(Seconds(2));
    EXPECT_EQ(sentOf(10), 10U);
}

TEST_F(GatedFailuresTest, sendOneRequestAfterEachPause) {
    theHostsAnswer(503);
    sentOf(10);
    std::size_t sent = 0;
    for (int second = 0; second < 10 * 60; ++second) {
        time.advance(Seconds(1));
        sent += sentOf(10);
    }
    // After 2, 4, 8, 16, 32 s, then once a minute.
    EXPECT_EQ(sent, 5U + 8U);
}

TEST_F(GatedFailuresTest, ignoreACancelledRequest) {
    theHostsAnswer(503);
    sentOf(3);
    time.advance(Seconds(2));
    service->answers.held();
    TaskRun<HTTPResponse> run(executor, fetcher->fetch(kOne));
    EXPECT_EQ(sentOf(5), 0U);
    run.cancel();
    EXPECT_THROW(static_cast<void>(run.value()), Cancelled);
    EXPECT_EQ(sentOf(5), 1U);
}

TEST_F(GatedFailuresTest, spareTheServersOfAClientThatTriesAllOfThem) {
    InlineWorker worker;
    const std::vector<std::string> hosts{"https://a", "https://b", "https://c"};
    const auto endpoints = std::make_shared<EndpointSelector>(hosts);
    BinanceRESTClient client(fetcher, endpoints, worker);
    theHostsAnswer(503);
    for (int coin = 0; coin < 100; ++coin) {
        const TaskRun<std::vector<Candle>> run(executor, client.klines("A", "1m", 1, 0));
        EXPECT_THROW(static_cast<void>(run.value()), BinanceError);
    }
    // One failure of each of the first two, then three of the last.
    EXPECT_THAT(service->requests, SizeIs(5));
}

}  // namespace quillbar
