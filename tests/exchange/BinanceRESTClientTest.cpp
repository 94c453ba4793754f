// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceDecodingError.h"
#include "QuillbarCore/exchange/BinanceEndpoints.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/BinanceRESTClient.h"
#include "QuillbarCore/exchange/JSONDecodingError.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Cancelled.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeFetcher.h"
#include "tests/support/TaskRun.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kTickersBody =
    R"([{"symbol":"BTCUSDT","lastPrice":"2","openPrice":"1","quoteVolume":"10"}])";

const TickerMap kTickers{{"BTCUSDT", {2, 1, 10}}};

// A worker that runs its jobs when the test says so.
class HeldWorker final : public Worker {
public:
    void run(std::function<void()> job) override { jobs.push_back(std::move(job)); }

    std::vector<std::function<void()>> jobs;
};

struct BinanceRESTClientTest : ::testing::Test {
    using Tickers = TaskRun<TickerMap>;

    Tickers tickers() { return Tickers(executor, client.ticker24h({"BTCUSDT"})); }

    [[nodiscard]] int endpointInUse() const { return endpoints->current()->index; }

    // The URL of a tickers request below the endpoint of this index.
    static std::string url(std::size_t index) {
        return BinanceEndpoints::rest()[index] + "/ticker/24hr?symbols=%5B%22BTCUSDT%22%5D";
    }

    CapturedLog log;
    ManualExecutor executor;
    InlineWorker worker;
    std::shared_ptr<FakeFetcher> fetcher = std::make_shared<FakeFetcher>();
    std::shared_ptr<EndpointSelector> endpoints =
        std::make_shared<EndpointSelector>(BinanceEndpoints::rest());
    BinanceRESTClient client{fetcher, endpoints, worker};
};

}  // namespace

TEST_F(BinanceRESTClientTest, asksForKlines) {
    fetcher->answer(200, R"([[1000,"1","2","0.5","1.5"]])");
    const TaskRun run(executor, client.klines("BTCUSDT", "5m", 288, std::nullopt));
    EXPECT_THAT(fetcher->requests,
                ElementsAre("https://api.binance.com/api/v3/klines"
                            "?symbol=BTCUSDT&interval=5m&limit=288"));
    EXPECT_THAT(run.value(), ElementsAre(Candle{TimePoint(Seconds(1)), 1, 2, 0.5, 1.5}));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(BinanceRESTClientTest, asksForKlinesFromATimeOn) {
    fetcher->answer(200, "[]");
    const TaskRun run(executor, client.klines("BTCUSDT", "1m", 1, 1700000000000));
    EXPECT_THAT(fetcher->requests,
                ElementsAre("https://api.binance.com/api/v3/klines"
                            "?symbol=BTCUSDT&interval=1m&limit=1&startTime=1700000000000"));
    EXPECT_THAT(run.value(), IsEmpty());
}

TEST_F(BinanceRESTClientTest, percentEncodesTheQuery) {
    const TaskRun run(executor, client.klines("A&b=c d/\u5e01~", "5m", -1, std::nullopt));
    EXPECT_THAT(fetcher->requests,
                ElementsAre("https://api.binance.com/api/v3/klines"
                            "?symbol=A%26b%3Dc%20d%2F%E5%B8%81~&interval=5m&limit=-1"));
}

TEST_F(BinanceRESTClientTest, asksForExchangeInformationWithoutAQuery) {
    fetcher->answer(200,
                    R"({"symbols":[{"symbol":"BTCUSDT","status":"TRADING",)"
                    R"("baseAsset":"BTC","quoteAsset":"USDT"}]})");
    const TaskRun run(executor, client.exchangeInfo());
    EXPECT_THAT(fetcher->requests, ElementsAre("https://api.binance.com/api/v3/exchangeInfo"));
    EXPECT_THAT(run.value(), ElementsAre(Coin{"BTCUSDT", "BTC"}));
}

TEST_F(BinanceRESTClientTest, asksForTheTickersOfSomePairsInTheirOrder) {
    fetcher->answer(200, kTickersBody);
    const TaskRun run(executor, client.ticker24h({"BTCUSDT", "ETHUSDT", "BTCUSDT"}));
    EXPECT_THAT(fetcher->requests,
                ElementsAre("https://api.binance.com/api/v3/ticker/24hr?symbols="
                            "%5B%22BTCUSDT%22%2C%22ETHUSDT%22%2C%22BTCUSDT%22%5D"));
    EXPECT_EQ(run.value(), kTickers);
}

TEST_F(BinanceRESTClientTest, asksForTheTickersOfAnEmptyListToo) {
    const TaskRun run(executor, client.ticker24h({}));
    EXPECT_THAT(fetcher->requests,
                ElementsAre("https://api.binance.com/api/v3/ticker/24hr?symbols=%5B%5D"));
}

TEST_F(BinanceRESTClientTest, asksForAllTickers) {
    fetcher->answer(200, kTickersBody);
    const TaskRun run(executor, client.ticker24hAll());
    EXPECT_THAT(fetcher->requests,
                ElementsAre("https://api.binance.com/api/v3/ticker/24hr?type=MINI"));
    EXPECT_EQ(run.value(), kTickers);
}

TEST_F(BinanceRESTClientTest, appendsToABaseWithASlashOnce) {
    const auto mirror =
        std::make_shared<EndpointSelector>(std::vector<std::string>{"http://[::1]:8080/"});
    BinanceRESTClient mirrored(fetcher, mirror, worker);
    const TaskRun run(executor, mirrored.exchangeInfo());
    EXPECT_THAT(fetcher->requests, ElementsAre("http://[::1]:8080/exchangeInfo"));
}

TEST_F(BinanceRESTClientTest, movesToTheNextEndpointAfterAServerError) {
    fetcher->answer(503, "busy");
    fetcher->answer(200, kTickersBody);
    EXPECT_EQ(tickers().value(), kTickers);
    EXPECT_THAT(fetcher->requests, ElementsAre(url(0), url(1)));
    EXPECT_EQ(endpointInUse(), 1);
    EXPECT_THAT(
        log.lines(),
        ElementsAre("REST|error|HTTP 503 for " + url(0),
                    "Endpoint|default|switching endpoint to " + BinanceEndpoints::rest()[1]));

    fetcher->answer(200, kTickersBody);
    EXPECT_EQ(tickers().value(), kTickers);
    EXPECT_EQ(fetcher->requests.back(), url(1));
}

TEST_F(BinanceRESTClientTest, movesToTheNextEndpointAfterATransportError) {
    fetcher->fail(URLError(URLError::Code::timedOut, "timed out"));
    fetcher->answer(200, kTickersBody);
    EXPECT_EQ(tickers().value(), kTickers);
    EXPECT_EQ(endpointInUse(), 1);
    EXPECT_THAT(log.lines("REST"),
                ElementsAre("REST|error|request failed for " + url(0) + ": timed out"));
}

TEST_F(BinanceRESTClientTest, givesUpAfterEveryEndpointWithTheLastError) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        fetcher->fail(URLError(URLError::Code::cannotConnect, "refused"));
    }
    fetcher->answer(502);
    const Tickers run = tickers();
    EXPECT_THROW(static_cast<void>(run.value()), BinanceError);
    EXPECT_THAT(fetcher->requests, ElementsAre(url(0), url(1), url(2), url(3), url(4), url(5)));
    EXPECT_EQ(endpointInUse(), 5);
    EXPECT_THAT(log.lines("REST"), SizeIs(6));
    EXPECT_THAT(log.lines("Endpoint"), SizeIs(5));
}

TEST_F(BinanceRESTClientTest, triesTheLastEndpointAgainInsteadOfTheFirst) {
    for (int index = 0; index < 5; ++index) {
        endpoints->markFailed(index);
    }
    fetcher->answers.otherwiseError(URLError(URLError::Code::connectionLost, "lost"));
    const Tickers run = tickers();
    EXPECT_THROW(static_cast<void>(run.value()), URLError);
    EXPECT_THAT(fetcher->requests, ElementsAre(url(5), url(5), url(5), url(5), url(5), url(5)));
    EXPECT_EQ(endpointInUse(), 5);
}

TEST_F(BinanceRESTClientTest, takesOtherEndpointsWithItsCopies) {
    BinanceRESTClient copy = client;
    client.useEndpoints(
        std::make_shared<EndpointSelector>(std::vector<std::string>{"https://new"}));
    fetcher->answer(200, kTickersBody);
    fetcher->answer(200, kTickersBody);
    EXPECT_EQ(tickers().value(), kTickers);
    EXPECT_EQ(Tickers(executor, copy.ticker24h({"BTCUSDT"})).value(), kTickers);
    const std::string url = "https://new/ticker/24hr?symbols=%5B%22BTCUSDT%22%5D";
    EXPECT_THAT(fetcher->requests, ElementsAre(url, url));
}

TEST_F(BinanceRESTClientTest, letsARequestUnderWayKeepItsEndpoints) {
    const auto other = std::make_shared<EndpointSelector>(std::vector<std::string>{"a", "b"});
    // As it is when the failure of the last endpoint brings others.
    const auto replaced = std::make_shared<EndpointSelector>(
        BinanceEndpoints::rest(), [this, other] { client.useEndpoints(other); });
    for (int index = 0; index < 5; ++index) {
        replaced->markFailed(index);
    }
    client.useEndpoints(replaced);
    fetcher->answers.otherwiseError(URLError(URLError::Code::connectionLost, "lost"));
    const Tickers run = tickers();
    EXPECT_THROW(static_cast<void>(run.value()), URLError);
    EXPECT_THAT(fetcher->requests, ElementsAre(url(5), url(5), url(5), url(5), url(5), url(5)));
    EXPECT_EQ(other->current()->index, 0);
}

TEST_F(BinanceRESTClientTest, throwsAClientErrorAtOnce) {
    for (const int status : {400, 404, 418, 429, 451, 0, 100, 302}) {
        fetcher->requests.clear();
        log.clear();
        fetcher->answer(status);
        const Tickers run = tickers();
        try {
            static_cast<void>(run.value());
            ADD_FAILURE() << "no error for " << status;
        } catch (const BinanceError& error) {
            EXPECT_EQ(error, BinanceError(status));
        }
        EXPECT_THAT(fetcher->requests, ElementsAre(url(0)));
        EXPECT_THAT(log.lines(),
                    ElementsAre(fmt::format("REST|error|HTTP {} for {}", status, url(0))));
        EXPECT_EQ(endpointInUse(), 0);
    }
}

TEST_F(BinanceRESTClientTest, takesEveryStatusFrom200To299) {
    for (const int status : {200, 204, 299}) {
        fetcher->answer(status, kTickersBody);
        EXPECT_EQ(tickers().value(), kTickers) << status;
    }
    for (const int status : {199, 300}) {
        fetcher->answer(status, kTickersBody);
        const Tickers run = tickers();
        EXPECT_THROW(static_cast<void>(run.value()), BinanceError) << status;
    }
}

TEST_F(BinanceRESTClientTest, doesNotTryElsewhereAfterADecodingError) {
    fetcher->answer(200, "<html>");
    EXPECT_THROW(static_cast<void>(tickers().value()), JSONDecodingError);
    fetcher->answer(200, R"([{"symbol":"A","lastPrice":"x","openPrice":"1"}])");
    EXPECT_THROW(static_cast<void>(tickers().value()), BinanceDecodingError);
    fetcher->answer(200, "<html>");
    const TaskRun<std::vector<Coin>> coins(executor, client.exchangeInfo());
    EXPECT_THROW(static_cast<void>(coins.value()), JSONDecodingError);
    EXPECT_THAT(fetcher->requests, SizeIs(3));
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_EQ(endpointInUse(), 0);
}

TEST_F(BinanceRESTClientTest, throwsWithoutARequestWhenThereIsNoEndpoint) {
    BinanceRESTClient nowhere(
        fetcher, std::make_shared<EndpointSelector>(std::vector<std::string>{}), worker);
    const TaskRun run(executor, nowhere.exchangeInfo());
    try {
        static_cast<void>(run.value());
        ADD_FAILURE() << "no error";
    } catch (const BinanceError& error) {
        EXPECT_EQ(error, BinanceError(0));
    }
    EXPECT_THAT(fetcher->requests, IsEmpty());
}

TEST_F(BinanceRESTClientTest, logsACancelledRequestAndLeavesTheEndpoint) {
    fetcher->answers.held();
    Tickers run(executor, client.ticker24h({"BTCUSDT"}));
    EXPECT_FALSE(run.isDone());
    run.cancel();
    EXPECT_THROW(static_cast<void>(run.value()), Cancelled);
    EXPECT_EQ(fetcher->answers.waitingCount(), 0U);
    EXPECT_THAT(fetcher->requests, ElementsAre(url(0)));
    EXPECT_THAT(log.lines(),
                ElementsAre("REST|error|request failed for " + url(0) + ": cancelled"));
    EXPECT_EQ(endpointInUse(), 0);
}

TEST_F(BinanceRESTClientTest, throwsACancelledTransferAtOnce) {
    fetcher->fail(URLError(URLError::Code::cancelled, "the transfer was cancelled"));
    EXPECT_THROW(static_cast<void>(tickers().value()), URLError);
    EXPECT_THAT(fetcher->requests, SizeIs(1));
    EXPECT_THAT(
        log.lines(),
        ElementsAre("REST|error|request failed for " + url(0) + ": the transfer was cancelled"));
    EXPECT_EQ(endpointInUse(), 0);
}

TEST_F(BinanceRESTClientTest, endsSilentlyWhenItsTaskIsDestroyed) {
    fetcher->answers.held();
    {
        const Tickers run(executor, client.ticker24h({"BTCUSDT"}));
        EXPECT_EQ(fetcher->answers.waitingCount(), 1U);
    }
    EXPECT_EQ(fetcher->answers.waitingCount(), 0U);
    executor.run();
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(BinanceRESTClientTest, sharesItsEndpointsWithItsCopies) {
    BinanceRESTClient copy = client;
    fetcher->answer(500);
    fetcher->answer(200, kTickersBody);
    EXPECT_EQ(tickers().value(), kTickers);
    fetcher->answer(200, kTickersBody);
    const TaskRun run(executor, copy.ticker24h({"BTCUSDT"}));
    EXPECT_EQ(run.value(), kTickers);
    EXPECT_EQ(fetcher->requests.back(), url(1));
}

TEST_F(BinanceRESTClientTest, movesOnceForRequestsThatFailTogether) {
    const Deferred<HTTPResponse> first = fetcher->answers.held();
    const Deferred<HTTPResponse> second = fetcher->answers.held();
    fetcher->answer(200, kTickersBody);
    fetcher->answer(200, kTickersBody);
    const Tickers one = tickers();
    const Tickers other = tickers();
    const auto refused =
        std::make_exception_ptr(URLError(URLError::Code::cannotConnect, "refused"));
    first.setError(refused);
    second.setError(refused);
    executor.run();
    EXPECT_EQ(one.value(), kTickers);
    EXPECT_EQ(other.value(), kTickers);
    EXPECT_THAT(fetcher->requests, ElementsAre(url(0), url(0), url(1), url(1)));
    EXPECT_EQ(endpointInUse(), 1);
    EXPECT_THAT(log.lines("Endpoint"), SizeIs(1));
}

TEST_F(BinanceRESTClientTest, decodesOnlyTheLargeBodiesOnTheWorker) {
    HeldWorker held;
    BinanceRESTClient working(fetcher, endpoints, held);
    fetcher->answer(200, kTickersBody);
    fetcher->answer(200, "[]");
    const TaskRun some(executor, working.ticker24h({"BTCUSDT"}));
    const TaskRun klines(executor, working.klines("BTCUSDT", "5m", 288, std::nullopt));
    EXPECT_TRUE(some.isDone());
    EXPECT_TRUE(klines.isDone());
    EXPECT_THAT(held.jobs, IsEmpty());

    fetcher->answer(200, kTickersBody);
    fetcher->answer(200, R"({"symbols":[]})");
    const TaskRun all(executor, working.ticker24hAll());
    const TaskRun coins(executor, working.exchangeInfo());
    ASSERT_THAT(held.jobs, SizeIs(2));
    EXPECT_FALSE(all.isDone());
    EXPECT_FALSE(coins.isDone());
    held.jobs[0]();
    held.jobs[1]();
    executor.run();
    EXPECT_EQ(all.value(), kTickers);
    EXPECT_THAT(coins.value(), IsEmpty());
}

TEST_F(BinanceRESTClientTest, abandonsTheDecodingOfACancelledRequest) {
    HeldWorker held;
    BinanceRESTClient working(fetcher, endpoints, held);
    fetcher->answer(200, kTickersBody);
    TaskRun run(executor, working.ticker24hAll());
    run.cancel();
    EXPECT_THROW(static_cast<void>(run.value()), Cancelled);
    held.jobs.at(0)();
    executor.run();
    EXPECT_THAT(log.lines(), IsEmpty());
}

}  // namespace quillbar
