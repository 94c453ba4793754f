// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/BoardsPrinter.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"
#include "tests/support/FakeCoinGeckoAPI.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BoardsPrinterTest : public ::testing::Test {
protected:
    BoardsPrinterTest() {
        m_api.exchangeInfoAnswers.otherwise({{"BTCUSDT", "BTC"}, {"ETHUSDT", "ETH"}});
        m_api.ticker24hAllAnswers.otherwise(
            {{"BTCUSDT", {67234.5, 66417.56, 1.5e9}}, {"ETHUSDT", {0.5, 1, 20000}}});
        m_coinGecko.answers.otherwise({{"BTC", 1, 1.35e12, 67000}});
    }

    void run(Task<void> task) {
        TaskScope scope(m_executor);
        scope.spawn(std::move(task));
        m_executor.run();
    }
    void print() {
        m_printer.start();
        m_executor.run();
    }

    CapturedLog m_log;
    ManualExecutor m_executor;
    ManualTime m_time{m_executor};
    TemporaryFolder m_folder;
    FakeBinanceAPI m_api;
    FakeCoinGeckoAPI m_coinGecko;
    CoinCatalog m_catalog{m_executor, m_api, m_folder.path(), m_time.clock()};
    MarketState m_market{m_executor, m_api, m_catalog, m_time.clock(), m_time.sleeper()};
    MarketCapState m_marketCaps{m_executor,
                                m_coinGecko,
                                MarketCapCache(m_folder.path(), m_time.clock()),
                                m_time.clock(),
                                m_time.sleeper()};
    std::vector<std::string> m_texts;
    std::vector<int> m_statuses;
    bool m_hasReader = true;
    BoardsPrinter m_printer{m_market,
                            m_marketCaps,
                            m_executor,
                            m_time.sleeper(),
                            {.print =
                                 [this](std::string_view text) {
                                     m_texts.emplace_back(text);
                                     return m_hasReader;
                                 },
                             .finish = [this](int status) { m_statuses.push_back(status); }}};
};

TEST_F(BoardsPrinterTest, failsWhenTheBoardsCannotBeWritten) {
    m_hasReader = false;
    print();
    EXPECT_THAT(m_statuses, ElementsAre(4));
}

TEST_F(BoardsPrinterTest, printsTheFourBoardsInTheirOrder) {
    print();
    EXPECT_THAT(m_texts,
                ElementsAre("涨幅\n"
                            "  1  BTC            67,234.50     +1.23%  15.00亿\n"
                            "  2  ETH                  0.5    -50.00%  2.00万\n"
                            "\n"
                            "跌幅\n"
                            "  1  ETH                  0.5    -50.00%  2.00万\n"
                            "  2  BTC            67,234.50     +1.23%  15.00亿\n"
                            "\n"
                            "成交额\n"
                            "  1  BTC            67,234.50     +1.23%  15.00亿\n"
                            "  2  ETH                  0.5    -50.00%  2.00万\n"
                            "\n"
                            "市值\n"
                            "  1  BTC            67,234.50     +1.23%  1.35万亿\n"));
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

TEST_F(BoardsPrinterTest, letsNoBaseAssetCommandTheTerminal) {
    m_api.exchangeInfoAnswers.value({{"XUSDT", "A\x1b[2J\u009b\u202e\nB"}});
    m_api.ticker24hAllAnswers.value({{"XUSDT", {0.5, 1, 20000}}});
    print();
    ASSERT_EQ(m_texts.size(), 1U);
    EXPECT_TRUE(
        m_texts.front().starts_with("涨幅\n"
                                    "  1  A [2J  B             0.5    -50.00%  2.00万\n"
                                    "\n"))
        << m_texts.front();
}

TEST_F(BoardsPrinterTest, printsOnceWhateverComesLater) {
    print();
    m_time.advance(Seconds(60));
    EXPECT_EQ(m_texts.size(), 1U);
    EXPECT_EQ(m_statuses.size(), 1U);
}

TEST_F(BoardsPrinterTest, saysWhatIsMissingAndTellsInItsStatus) {
    m_coinGecko.answers.error(BinanceError(503));
    print();
    ASSERT_EQ(m_texts.size(), 1U);
    EXPECT_TRUE(m_texts.front().ends_with("\n市值\n     加载行情失败\n"));
    EXPECT_THAT(m_statuses, ElementsAre(3));
}

TEST_F(BoardsPrinterTest, saysHowOldTheMarketCapsAreThatCouldNotBeRefreshed) {
    run(m_marketCaps.refreshOnce());
    m_time.setClock(m_time.now() + Seconds(20 * 86400));
    m_coinGecko.answers.error(BinanceError(503));
    print();
    ASSERT_EQ(m_texts.size(), 1U);
    EXPECT_TRUE(m_texts.front().ends_with(
        "\n市值（数据为20 天前的）\n  1  BTC            67,234.50     +1.23%  1.35万亿\n"))
        << m_texts.front();
    EXPECT_TRUE(m_texts.front().starts_with("涨幅\n")) << "the prices are fresh";
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

TEST_F(BoardsPrinterTest, tellsBoardsWithoutRowsFromThoseThatCouldNotBeLoaded) {
    m_api.exchangeInfoAnswers.value({});
    print();
    EXPECT_THAT(m_texts,
                ElementsAre("涨幅\n     暂无数据\n\n跌幅\n     暂无数据\n\n"
                            "成交额\n     暂无数据\n\n市值\n     暂无数据\n"));
    EXPECT_THAT(m_statuses, ElementsAre(3));
}

TEST_F(BoardsPrinterTest, saysOfEveryBoardThatItCouldNotBeLoaded) {
    m_api.ticker24hAllAnswers.error(BinanceError(503));
    print();
    EXPECT_THAT(m_texts,
                ElementsAre("涨幅\n     加载行情失败\n\n跌幅\n     加载行情失败\n\n"
                            "成交额\n     加载行情失败\n\n市值\n     加载行情失败\n"));
    EXPECT_THAT(m_statuses, ElementsAre(3));
}

TEST_F(BoardsPrinterTest, waitsForBothSourcesButNotForEver) {
    auto answer = m_api.ticker24hAllAnswers.held();
    print();
    m_time.advance(Seconds(14.9));
    EXPECT_THAT(m_texts, IsEmpty());
    m_time.advance(Seconds(0.1));
    EXPECT_EQ(m_texts.size(), 1U);
    EXPECT_THAT(m_statuses, ElementsAre(3));
    answer.setValue({});
    m_executor.run();
    EXPECT_EQ(m_texts.size(), 1U);
}

TEST_F(BoardsPrinterTest, printsTenRowsOfEach) {
    std::vector<Coin> coins;
    TickerMap tickers;
    for (int index = 0; index < 30; ++index) {
        const std::string base = "C" + std::to_string(index);
        coins.push_back({base + "USDT", base});
        tickers[base + "USDT"] = {1.0 + index, 1, 1.0 + index};
    }
    m_api.exchangeInfoAnswers.value(coins);
    m_api.ticker24hAllAnswers.value(tickers);
    print();
    ASSERT_EQ(m_texts.size(), 1U);
    EXPECT_NE(m_texts.front().find(" 10  C20"), std::string::npos);
    EXPECT_EQ(m_texts.front().find(" 11  "), std::string::npos);
}

}  // namespace

}  // namespace quillbar
