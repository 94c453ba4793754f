// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/JSONDecodingError.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/market/CoinGeckoError.h"
#include "QuillbarCore/market/CoinGeckoRESTClient.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeFetcher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <memory>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kBTC =
    R"([{"symbol":"btc","current_price":1,"market_cap":2,"market_cap_rank":3}])";

class CoinGeckoRESTClientTest : public ::testing::Test {
protected:
    void ask(int count) {
        m_error = nullptr;
        m_scope.spawn(keep(count));
        m_executor.run();
    }

    Task<void> keep(int count) {
        try {
            m_entries = co_await m_client.topByMarketCap(count);
        } catch (...) {
            m_error = std::current_exception();
        }
    }

    CapturedLog m_log;
    ManualExecutor m_executor;
    std::shared_ptr<FakeFetcher> m_fetcher = std::make_shared<FakeFetcher>();
    CoinGeckoRESTClient m_client{m_fetcher, "https://caps.test/api/v3"};
    std::vector<MarketCapEntry> m_entries;
    std::exception_ptr m_error;
    // Last: its tasks use the client.
    TaskScope m_scope{m_executor};
};

TEST_F(CoinGeckoRESTClientTest, asksForOnePageOfTheLargest) {
    m_fetcher->answer(200, kBTC);
    ask(100);
    EXPECT_THAT(m_fetcher->requests,
                ElementsAre("https://caps.test/api/v3/coins/markets?vs_currency=usd"
                            "&order=market_cap_desc&per_page=100&page=1&sparkline=false"));
    EXPECT_THAT(m_entries, ElementsAre(MarketCapEntry{"BTC", 3, 2, 1}));
    EXPECT_FALSE(m_error);
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(CoinGeckoRESTClientTest, limitsTheCountTo250) {
    for (const auto& [count, asked] : {std::pair(0, "per_page=1&"),
                                       std::pair(-5, "per_page=1&"),
                                       std::pair(250, "per_page=250&"),
                                       std::pair(1000, "per_page=250&")}) {
        ask(count);
        EXPECT_THAT(m_fetcher->requests.back(), HasSubstr(asked));
    }
}

TEST_F(CoinGeckoRESTClientTest, throwsAStatusAndLogsItOnce) {
    for (const int status : {429, 201, 299, 500, 0}) {
        m_log.clear();
        m_fetcher->answer(status, kBTC);
        ask(250);
        ASSERT_TRUE(m_error);
        try {
            std::rethrow_exception(m_error);
        } catch (const CoinGeckoError& error) {
            EXPECT_EQ(error, CoinGeckoError(status));
        }
        EXPECT_THAT(m_log.lines(),
                    ElementsAre("CoinGecko|default|coingecko http " + std::to_string(status)));
    }
}

TEST_F(CoinGeckoRESTClientTest, passesErrorsOnUnchanged) {
    m_fetcher->fail(URLError(URLError::Code::timedOut, "timed out"));
    ask(250);
    EXPECT_THROW(std::rethrow_exception(m_error), URLError);
    m_fetcher->answer(200, "<html>");
    ask(250);
    EXPECT_THROW(std::rethrow_exception(m_error), JSONDecodingError);
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

}  // namespace

}  // namespace quillbar
