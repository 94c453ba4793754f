// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/simulator/Clients.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbar::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class RestTest : public ::testing::Test {
protected:
    static SimulatorOptions options() {
        SimulatorOptions options;
        options.symbolCount = 100;
        options.startTime = MarketTime{std::chrono::milliseconds{1'772'368'496'789}};
        return options;
    }

    Answer rest(const std::string& pathAndQuery) {
        return m_client.get(simulator.restBase() + pathAndQuery);
    }

    void expectRefusal(const std::string& pathAndQuery, const std::string& body) {
        const Answer answer = rest(pathAndQuery);
        EXPECT_EQ(answer.status, 400) << pathAndQuery;
        EXPECT_EQ(answer.body, body);
    }

    static std::vector<std::string> keys(const QJsonObject& object) {
        std::vector<std::string> keys;
        for (const QString& key : object.keys()) {
            keys.push_back(key.toStdString());
        }
        return keys;
    }

public:
    Simulator simulator{options()};

private:
    HttpClient m_client{simulator};
};

std::string text(const QJsonValue& value) {
    return value.toString().toStdString();
}

TEST_F(RestTest, TheBasesNameTheOnePortAndTheControlAnother) {
    const std::string host = "127.0.0.1:" + std::to_string(simulator.port());
    EXPECT_EQ(simulator.restBase(), "https://" + host + "/api/v3");
    EXPECT_EQ(simulator.streamBase(), "wss://" + host);
    EXPECT_EQ(simulator.marketCapBase(), "https://" + host + "/coingecko/api/v3");
    EXPECT_EQ(simulator.iconBase(), "https://" + host + "/icons");
    EXPECT_TRUE(simulator.controlBase().starts_with("http://127.0.0.1:"));
    EXPECT_NE(simulator.controlBase(), "http://" + host);
}

TEST_F(RestTest, KlinesAreArraysOfTwelve) {
    const Answer answer = rest("/klines?symbol=BTCUSDT&interval=5m&limit=288");
    EXPECT_EQ(answer.status, 200);
    EXPECT_THAT(answer.contentType, HasSubstr("application/json"));
    const QJsonArray rows = answer.json().array();
    ASSERT_EQ(rows.size(), 288);
    for (const auto& each : rows) {
        const QJsonArray row = each.toArray();
        ASSERT_EQ(row.size(), 12);
        for (const int number : {0, 6, 8}) {
            EXPECT_TRUE(row[number].isDouble());
        }
        for (const int decimal : {1, 2, 3, 4, 5, 7, 9, 10, 11}) {
            EXPECT_TRUE(row[decimal].isString());
        }
    }
    EXPECT_EQ(text(rows.last()[4]), "67234.50000000");
}

TEST_F(RestTest, KlinesTakeAStartTimeAndOfferEveryInterval) {
    const QJsonArray first =
        rest("/klines?symbol=BTCUSDT&interval=1m&limit=1&startTime=1772323200000").json().array();
    ASSERT_EQ(first.size(), 1);
    EXPECT_EQ(first[0][0].toInteger(), 1772323200000);
    for (const std::string interval : {"1m", "5m", "1h", "4h", "1d"}) {
        const QJsonArray rows =
            rest("/klines?symbol=ETHUSDT&limit=3&interval=" + interval).json().array();
        EXPECT_EQ(rows.size(), 3) << interval;
    }
    EXPECT_EQ(rest("/klines?symbol=BTCUSDT&interval=1m").json().array().size(), 500);
    EXPECT_EQ(rest("/klines?symbol=BTCUSDT&interval=1m&limit=5000").json().array().size(), 1000);
}

TEST_F(RestTest, KlinesRefuseAsTheExchangeDoes) {
    expectRefusal("/klines?symbol=NOPE&interval=1m", R"({"code":-1121,"msg":"Invalid symbol."})");
    expectRefusal("/klines?symbol=BTCUSDT&interval=7m",
                  R"({"code":-1120,"msg":"Invalid interval."})");
    expectRefusal("/klines?interval=1m",
                  R"({"code":-1102,"msg":"Mandatory parameter 'symbol' was not sent, )"
                  R"(was empty/null, or malformed."})");
    expectRefusal("/klines?symbol=BTCUSDT",
                  R"({"code":-1102,"msg":"Mandatory parameter 'interval' was not sent, )"
                  R"(was empty/null, or malformed."})");
    for (const std::string wrong : {"limit=0", "limit=-1", "limit=x", "limit=1.5"}) {
        expectRefusal("/klines?symbol=BTCUSDT&interval=1m&" + wrong,
                      R"({"code":-1100,"msg":"Illegal characters found in parameter 'limit'."})");
    }
    expectRefusal("/klines?symbol=BTCUSDT&interval=1m&startTime=now",
                  R"({"code":-1100,"msg":"Illegal characters found in parameter 'startTime'."})");
}

TEST_F(RestTest, TickersOfChosenPairsComeInTheOrderAsked) {
    const QJsonArray rows =
        rest("/ticker/24hr?symbols=%5B%22ETHUSDT%22,%22BTCUSDT%22%5D").json().array();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(text(rows[0][u"symbol"]), "ETHUSDT");
    EXPECT_EQ(text(rows[1][u"symbol"]), "BTCUSDT");
    EXPECT_EQ(text(rows[1][u"lastPrice"]), "67234.50000000");
    EXPECT_THAT(keys(rows[0].toObject()),
                ElementsAre("askPrice",
                            "askQty",
                            "bidPrice",
                            "bidQty",
                            "closeTime",
                            "count",
                            "firstId",
                            "highPrice",
                            "lastId",
                            "lastPrice",
                            "lastQty",
                            "lowPrice",
                            "openPrice",
                            "openTime",
                            "prevClosePrice",
                            "priceChange",
                            "priceChangePercent",
                            "quoteVolume",
                            "symbol",
                            "volume",
                            "weightedAvgPrice"));
}

TEST_F(RestTest, MiniTickersOfAllPairsHaveFewerKeys) {
    const QJsonArray rows = rest("/ticker/24hr?type=MINI").json().array();
    ASSERT_EQ(rows.size(), 100);
    EXPECT_THAT(keys(rows[0].toObject()),
                ElementsAre("closeTime",
                            "count",
                            "firstId",
                            "highPrice",
                            "lastId",
                            "lastPrice",
                            "lowPrice",
                            "openPrice",
                            "openTime",
                            "quoteVolume",
                            "symbol",
                            "volume"));
    EXPECT_EQ(rest("/ticker/24hr").json().array().size(), 100);
}

TEST_F(RestTest, DeadPairsStandAmongTheTickersWithZeroPrices) {
    int dead = 0;
    const QJsonArray rows = rest("/ticker/24hr?type=MINI").json().array();
    for (const auto& row : rows) {
        if (text(row[u"lastPrice"]) == "0.00000000") {
            ++dead;
            EXPECT_EQ(text(row[u"openPrice"]), "0.00000000");
            EXPECT_EQ(text(row[u"quoteVolume"]), "0.00000000");
            EXPECT_EQ(row[u"count"].toInt(), 0);
        }
    }
    EXPECT_GT(dead, 0);
}

TEST_F(RestTest, TickersRefuseAsTheExchangeDoes) {
    expectRefusal("/ticker/24hr?symbols=%5B%22BTCUSDT%22,%22NOPE%22%5D",
                  R"({"code":-1121,"msg":"Invalid symbol."})");
    expectRefusal("/ticker/24hr?symbol=NOPE", R"({"code":-1121,"msg":"Invalid symbol."})");
    for (const std::string wrong : {"symbols=%5B%5D", "symbols=BTCUSDT", "symbols=%5B1%5D"}) {
        expectRefusal("/ticker/24hr?" + wrong,
                      R"({"code":-1100,"msg":"Illegal characters found in parameter 'symbols'."})");
    }
    expectRefusal("/ticker/24hr?type=HUGE",
                  R"({"code":-1100,"msg":"Illegal characters found in parameter 'type'."})");
}

TEST_F(RestTest, ATickerOfOnePairIsAnObject) {
    const QJsonObject row = rest("/ticker/24hr?symbol=BTCUSDT").json().object();
    EXPECT_EQ(text(row[u"symbol"]), "BTCUSDT");
}

TEST_F(RestTest, ExchangeInfoListsEveryPair) {
    const QJsonObject info = rest("/exchangeInfo").json().object();
    EXPECT_THAT(keys(info),
                ElementsAre("exchangeFilters", "rateLimits", "serverTime", "symbols", "timezone"));
    const QJsonArray symbols = info[u"symbols"].toArray();
    ASSERT_EQ(symbols.size(), 100);
    const QJsonObject first = symbols[0].toObject();
    EXPECT_EQ(text(first[u"symbol"]), "BTCUSDT");
    EXPECT_EQ(text(first[u"status"]), "TRADING");
    EXPECT_EQ(text(first[u"baseAsset"]), "BTC");
    EXPECT_EQ(text(first[u"quoteAsset"]), "USDT");
    EXPECT_EQ(first[u"filters"].toArray().size(), 11);
    EXPECT_TRUE(first[u"permissions"].toArray().isEmpty());
    EXPECT_EQ(text(first[u"permissionSets"][0][0]), "SPOT");
    EXPECT_EQ(first[u"orderTypes"].toArray().size(), 7);
}

TEST_F(RestTest, MarketCapsComeByFallingCapitalisationWithNullsAndRepeats) {
    HttpClient client(simulator);
    const QJsonArray rows =
        client.get(simulator.marketCapBase() + "/coins/markets?vs_currency=usd&per_page=250&page=1")
            .json()
            .array();
    ASSERT_EQ(rows.size(), 250);
    EXPECT_EQ(text(rows[0][u"symbol"]), "btc");
    EXPECT_EQ(rows[0][u"market_cap_rank"].toInt(), 1);
    EXPECT_EQ(rows[0][u"current_price"].toDouble(), 67234.5);
    double previous = rows[0][u"market_cap"].toDouble();
    int nulls = 0;
    int pepes = 0;
    for (const auto& row : rows) {
        pepes += text(row[u"symbol"]) == "pepe" ? 1 : 0;
        if (row[u"market_cap"].isNull()) {
            ++nulls;
            EXPECT_TRUE(row[u"market_cap_rank"].isNull());
        } else {
            EXPECT_LE(row[u"market_cap"].toDouble(), previous);
            previous = row[u"market_cap"].toDouble();
        }
    }
    EXPECT_EQ(nulls, 2);
    EXPECT_EQ(pepes, 2);
}

TEST_F(RestTest, MarketCapsComeInPages) {
    HttpClient client(simulator);
    const std::string url = simulator.marketCapBase() + "/coins/markets?vs_currency=usd&per_page=";
    EXPECT_EQ(client.get(url + "1").json().array().size(), 1);
    EXPECT_EQ(client.get(url + "1000").json().array().size(), 250);
    const QJsonArray second = client.get(url + "10&page=2").json().array();
    ASSERT_EQ(second.size(), 10);
    EXPECT_EQ(second[0][u"market_cap_rank"].toInt(), 11);
    EXPECT_EQ(client.get(simulator.marketCapBase() + "/coins/markets").status, 422);
}

TEST_F(RestTest, IconsAreServedForListedBaseAssetsOnly) {
    HttpClient client(simulator);
    const Answer icon = client.get(simulator.iconBase() + "/BTC.png");
    EXPECT_EQ(icon.status, 200);
    EXPECT_EQ(icon.contentType, "image/png");
    EXPECT_EQ(icon.body.substr(0, 8), "\x89PNG\r\n\x1A\n");
    EXPECT_EQ(client.get(simulator.iconBase() + "/NOPE.png").status, 404);
    EXPECT_EQ(client.get(simulator.iconBase() + "/btc.png").status, 404);
}

TEST_F(RestTest, OtherPathsAreNotFound) {
    EXPECT_EQ(rest("/depth").status, 404);
}

TEST_F(RestTest, RequestsAreRecordedAsTheyCame) {
    rest("/ticker/24hr?symbols=%5B%22BTCUSDT%22%5D");
    ASSERT_EQ(simulator.requests().size(), 1U);
    const RequestRecord& record = simulator.requests()[0];
    EXPECT_EQ(record.method, "GET");
    EXPECT_EQ(record.target, "/api/v3/ticker/24hr?symbols=%5B%22BTCUSDT%22%5D");
    EXPECT_EQ(record.path, "/api/v3/ticker/24hr");
    EXPECT_EQ(record.header("user-agent"), "Mozilla/5.0");
    EXPECT_EQ(record.header("x-absent"), "");
    simulator.forgetRequests();
    EXPECT_TRUE(simulator.requests().empty());
}

TEST_F(RestTest, OneConnectionCarriesManyRequests) {
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(rest("/klines?symbol=BTCUSDT&interval=1m&limit=1").status, 200);
    }
    EXPECT_EQ(simulator.openConnections(), 1);
}

TEST(RestSizeTest, TheFullExchangeInformationIsAsLargeAsTheRealOne) {
    Simulator simulator;
    HttpClient client(simulator);
    const Answer info = client.get(simulator.restBase() + "/exchangeInfo");
    EXPECT_GT(info.body.size(), 3'500'000U);
    EXPECT_LT(info.body.size(), 3'900'000U);
    EXPECT_EQ(info.json().object()[u"symbols"].toArray().size(), 2000);
    EXPECT_EQ(client.get(simulator.restBase() + "/exchangeInfo").body, info.body);
}

TEST(RestSizeTest, TheSameSeedAnswersTheSame) {
    const auto tickers = [](std::uint64_t seed) {
        SimulatorOptions options;
        options.seed = seed;
        options.symbolCount = 40;
        options.startTime = MarketTime{std::chrono::milliseconds{1'772'368'496'789}};
        Simulator simulator(options);
        simulator.tick();
        HttpClient client(simulator);
        return client.get(simulator.restBase() + "/ticker/24hr").body;
    };
    EXPECT_EQ(tickers(3), tickers(3));
    EXPECT_NE(tickers(3), tickers(4));
}

TEST(RestAgreementTest, TheTickerSaysWhatTheDaysCandlesSay) {
    SimulatorOptions options;
    options.symbolCount = 40;
    // 12:35:00, where a candle of five minutes begins.
    options.startTime = MarketTime{std::chrono::milliseconds{1'772'368'500'000}};
    Simulator simulator(options);
    HttpClient client(simulator);
    const auto get = [&](const std::string& path) {
        return client.get(simulator.restBase() + path).json();
    };
    const QJsonObject ticker = get("/ticker/24hr?symbol=ETHUSDT").object();
    const QJsonArray rows =
        get("/klines?symbol=ETHUSDT&interval=5m&limit=288&startTime=1772282100000").array();
    ASSERT_EQ(rows.size(), 288);
    const auto number = [](const QJsonValue& value) { return value.toString().toDouble(); };
    double turnover = 0;
    for (const auto& row : rows) {
        turnover += number(row.toArray()[7]);
    }
    EXPECT_EQ(ticker[u"openPrice"], rows.first()[1]);
    EXPECT_EQ(ticker[u"lastPrice"], rows.last()[4]);
    const double open = number(rows.first()[1]);
    EXPECT_NEAR(
        number(ticker[u"priceChangePercent"]), (number(rows.last()[4]) / open - 1) * 100, 0.0006);
    EXPECT_NEAR(number(ticker[u"quoteVolume"]), turnover, 0.01);
}

}  // namespace
}  // namespace quillbar::simulator
