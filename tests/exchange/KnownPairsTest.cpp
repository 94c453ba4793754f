// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/KnownPairs.h"
#include "QuillbarCore/exchange/PercentEncoding.h"
#include "QuillbarCore/exchange/URLError.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"
#include "tests/support/TaskRun.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;
using Symbols = std::vector<std::string>;

TickerMap tickersOf(const Symbols& symbols) {
    TickerMap tickers;
    for (const std::string& symbol : symbols) {
        tickers[symbol] = {2, 1, 10};
    }
    return tickers;
}

Symbols numbered(int count) {
    Symbols symbols;
    for (int number = 0; number < count; ++number) {
        symbols.push_back(fmt::format("A{}USDT", number));
    }
    return symbols;
}

struct KnownPairsTest : ::testing::Test {
    TickerMap ask(const Symbols& symbols) {
        const TaskRun<TickerMap> run(executor, pairs.ticker24h(symbols));
        return run.value();
    }

    /// The status with which asking fails; absent when it succeeds.
    std::optional<int> refusal(const Symbols& symbols) {
        try {
            ask(symbols);
            return std::nullopt;
        } catch (const BinanceError& error) {
            return error.httpStatus();
        }
    }

    void theExchangeRefuses(int status = 400) {
        exchange.ticker24hAnswers.error(BinanceError(status));
    }

    CapturedLog log;
    ManualExecutor executor;
    FakeBinanceAPI exchange;
    KnownPairs pairs{exchange};
};

}  // namespace

TEST_F(KnownPairsTest, asksForAnOrdinaryListInOneRequest) {
    const Symbols list{"BTCUSDT", "ETHUSDT", "BTCUSDT"};
    exchange.ticker24hAnswers.value(tickersOf(list));
    EXPECT_EQ(ask(list), tickersOf(list));
    EXPECT_THAT(exchange.ticker24hRequests, ElementsAre(list));
    EXPECT_EQ(exchange.ticker24hAllRequests, 0);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(KnownPairsTest, goesOnWithoutThePairsThatTheExchangeDoesNotKnow) {
    theExchangeRefuses();
    exchange.ticker24hAllAnswers.value(tickersOf({"BTCUSDT", "ETHUSDT", "SOLUSDT"}));
    EXPECT_THAT(ask({"BTCUSDT", "GONEUSDT", "ETHUSDT", "LOSTUSDT"}),
                UnorderedElementsAre(Key("BTCUSDT"), Key("ETHUSDT")));
    EXPECT_THAT(exchange.ticker24hRequests, SizeIs(1));
    EXPECT_EQ(exchange.ticker24hAllRequests, 1);
    EXPECT_THAT(log.lines(),
                ElementsAre("REST|error|the exchange does not know GONEUSDT, going on without it",
                            "REST|error|the exchange does not know LOSTUSDT, going on without it"));
}

TEST_F(KnownPairsTest, doesNotAskAgainForAnUnknownPair) {
    theExchangeRefuses();
    exchange.ticker24hAllAnswers.value(tickersOf({"BTCUSDT"}));
    ask({"GONEUSDT", "BTCUSDT"});
    log.clear();
    exchange.ticker24hAnswers.value(tickersOf({"BTCUSDT", "ETHUSDT"}));
    EXPECT_THAT(ask({"GONEUSDT", "BTCUSDT", "ETHUSDT"}), SizeIs(2));
    EXPECT_THAT(exchange.ticker24hRequests.back(), ElementsAre("BTCUSDT", "ETHUSDT"));
    EXPECT_EQ(exchange.ticker24hAllRequests, 1);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(KnownPairsTest, asksAgainForAnUnknownPairWhenToldToForget) {
    theExchangeRefuses();
    exchange.ticker24hAllAnswers.value(tickersOf({"BTCUSDT"}));
    ask({"NEWUSDT", "BTCUSDT"});
    log.clear();
    pairs.forget();
    theExchangeRefuses();
    exchange.ticker24hAllAnswers.value(tickersOf({"BTCUSDT"}));
    EXPECT_THAT(ask({"NEWUSDT", "BTCUSDT"}), ElementsAre(Key("BTCUSDT")));
    EXPECT_THAT(exchange.ticker24hRequests.back(), ElementsAre("NEWUSDT", "BTCUSDT"));
    EXPECT_THAT(log.lines(), IsEmpty()) << "it has been logged before";
    pairs.forget();
    exchange.ticker24hAnswers.value(tickersOf({"BTCUSDT", "NEWUSDT"}));
    EXPECT_THAT(ask({"NEWUSDT", "BTCUSDT"}), SizeIs(2));
    EXPECT_EQ(exchange.ticker24hAllRequests, 2);
}

TEST_F(KnownPairsTest, tellsWhichPairsTheExchangeDoesNotKnow) {
    theExchangeRefuses();
    exchange.ticker24hAllAnswers.value(tickersOf({"BTCUSDT"}));
    EXPECT_FALSE(pairs.isUnknown("GONEUSDT"));
    ask({"GONEUSDT", "BTCUSDT"});
    EXPECT_TRUE(pairs.isUnknown("GONEUSDT"));
    EXPECT_FALSE(pairs.isUnknown("BTCUSDT"));
    EXPECT_FALSE(pairs.isUnknown("ETHUSDT"));
    pairs.forget();
    EXPECT_FALSE(pairs.isUnknown("GONEUSDT"));
}

TEST_F(KnownPairsTest, failsWhenTheExchangeKnowsNoneOfThePairs) {
    theExchangeRefuses();
    exchange.ticker24hAllAnswers.value(tickersOf({"BTCUSDT"}));
    EXPECT_EQ(refusal({"GONEUSDT"}), 400);
    EXPECT_EQ(refusal({"GONEUSDT"}), 400);
    EXPECT_THAT(exchange.ticker24hRequests, SizeIs(1));
    EXPECT_THAT(log.lines(), SizeIs(1));
}

TEST_F(KnownPairsTest, takesNoPairForUnknownWhenTheExchangeListsNone) {
    theExchangeRefuses();
    exchange.ticker24hAllAnswers.value({});
    EXPECT_EQ(refusal({"BTCUSDT"}), 400);
    EXPECT_THAT(log.lines(), IsEmpty());
    exchange.ticker24hAnswers.value(tickersOf({"BTCUSDT"}));
    EXPECT_THAT(ask({"BTCUSDT"}), SizeIs(1));
}

TEST_F(KnownPairsTest, passesEveryOtherFailureOn) {
    for (const int status : {0, 403, 418, 429, 451, 503}) {
        theExchangeRefuses(status);
        EXPECT_EQ(refusal({"BTCUSDT", "ETHUSDT"}), status);
    }
    exchange.ticker24hAnswers.error(URLError(URLError::Code::timedOut, "timed out"));
    EXPECT_THROW(ask({"BTCUSDT"}), URLError);
    EXPECT_EQ(exchange.ticker24hAllRequests, 0);
}

TEST_F(KnownPairsTest, failsWhenTheTickersOfAllPairsCannotBeHad) {
    theExchangeRefuses();
    exchange.ticker24hAllAnswers.error(BinanceError(503));
    EXPECT_EQ(refusal({"BTCUSDT", "GONEUSDT"}), 503);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(KnownPairsTest, asksForAHundredPairsInOneRequest) {
    const Symbols list = numbered(250);
    exchange.ticker24hAnswers.otherwise(tickersOf(list));
    EXPECT_THAT(ask(list), SizeIs(250));
    EXPECT_THAT(exchange.ticker24hRequests, ElementsAre(SizeIs(100), SizeIs(100), SizeIs(50)));
    Symbols asked;
    for (const Symbols& request : exchange.ticker24hRequests) {
        asked.insert(asked.end(), request.begin(), request.end());
    }
    EXPECT_EQ(asked, list);
    exchange.ticker24hRequests.clear();
    EXPECT_THAT(ask(numbered(100)), SizeIs(100));
    EXPECT_THAT(exchange.ticker24hRequests, SizeIs(1));
}

TEST_F(KnownPairsTest, needsOneMoreRequestForABadPairInALongList) {
    const Symbols list = numbered(250);
    exchange.ticker24hAnswers.value(tickersOf(list));
    theExchangeRefuses();
    Symbols known = list;
    known.erase(known.begin() + 150);
    exchange.ticker24hAllAnswers.value(tickersOf(known));
    EXPECT_EQ(ask(list), tickersOf(known));
    EXPECT_THAT(exchange.ticker24hRequests, SizeIs(2));
    EXPECT_EQ(exchange.ticker24hAllRequests, 1);
}

TEST_F(KnownPairsTest, keepsEveryRequestShortEnoughForAURL) {
    Symbols list;
    for (int number = 0; number < 60; ++number) {
        list.push_back(fmt::format("{}\u5e01{}", number, std::string(400, 'A')));
    }
    exchange.ticker24hAnswers.otherwise(tickersOf(list));
    EXPECT_THAT(ask(list), SizeIs(60));
    EXPECT_THAT(exchange.ticker24hRequests, Each(SizeIs(::testing::Ge(10U))));
    for (const Symbols& request : exchange.ticker24hRequests) {
        std::string text;
        for (const std::string& symbol : request) {
            text += '"' + symbol + "\",";
        }
        EXPECT_LE(percentEncoded(text).size(), 7000U);
    }
}

TEST_F(KnownPairsTest, leavesOutAPairThatNoURLCanHold) {
    exchange.ticker24hAnswers.otherwise(tickersOf({"BTCUSDT"}));
    EXPECT_THAT(ask({std::string(7000, 'A'), "BTCUSDT"}), SizeIs(1));
    EXPECT_THAT(exchange.ticker24hRequests, ElementsAre(ElementsAre("BTCUSDT")));
}

TEST_F(KnownPairsTest, dropsTickersThatWereNotAskedFor) {
    exchange.ticker24hAnswers.value(tickersOf({"BTCUSDT", "SPAMUSDT"}));
    EXPECT_THAT(ask({"BTCUSDT"}), ElementsAre(Key("BTCUSDT")));
}

TEST_F(KnownPairsTest, passesTheOtherRequestsOn) {
    exchange.klinesAnswers.value({Candle{}});
    const TaskRun candles(executor, pairs.klines("BTCUSDT", "1m", 1, 5));
    EXPECT_THAT(candles.value(), SizeIs(1));
    EXPECT_EQ(exchange.klinesRequests.front(),
              (FakeBinanceAPI::KlinesRequest{"BTCUSDT", "1m", 1, 5}));
    exchange.exchangeInfoAnswers.value({Coin{"BTCUSDT", "BTC"}});
    const TaskRun coins(executor, pairs.exchangeInfo());
    EXPECT_THAT(coins.value(), SizeIs(1));
    exchange.ticker24hAllAnswers.value(tickersOf({"BTCUSDT"}));
    const TaskRun all(executor, pairs.ticker24hAll());
    EXPECT_THAT(all.value(), SizeIs(1));
}

}  // namespace quillbar
