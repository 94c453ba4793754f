// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceDecoder.h"
#include "QuillbarCore/exchange/BinanceDecodingError.h"
#include "QuillbarCore/exchange/JSONDecodingError.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::string frame(std::string_view data) {
    return fmt::format(R"({{"stream":"btcusdt@miniTicker","data":{}}})", data);
}

std::string invalidNumber(const std::function<void()>& decode) {
    try {
        decode();
    } catch (const BinanceDecodingError& error) {
        return error.invalidNumber();
    } catch (const std::exception& error) {
        return std::string("another error: ") + error.what();
    }
    return "no error";
}

std::string structuralError(const std::function<void()>& decode) {
    try {
        decode();
    } catch (const JSONDecodingError& error) {
        return error.what();
    } catch (const std::exception& error) {
        return std::string("another error: ") + error.what();
    }
    return "no error";
}

std::string frameError(const std::string& bytes) {
    return structuralError(
        [&] { static_cast<void>(BinanceDecoder::decodeMiniTickerFrame(bytes)); });
}

std::string tickersError(const std::string& bytes) {
    return structuralError([&] { static_cast<void>(BinanceDecoder::decodeTicker24hArray(bytes)); });
}

std::string exchangeInfoError(const std::string& bytes) {
    return structuralError([&] { static_cast<void>(BinanceDecoder::decodeExchangeInfo(bytes)); });
}

std::string klinesError(const std::string& bytes) {
    return structuralError([&] { static_cast<void>(BinanceDecoder::decodeKlines(bytes)); });
}

std::string listing(std::string_view symbol,
                    std::string_view status,
                    std::string_view base,
                    std::string_view quote) {
    return fmt::format(
        R"({{"symbol":"{}","status":"{}","baseAsset":"{}","quoteAsset":"{}","filters":[{{"a":1}}]}})",
        symbol,
        status,
        base,
        quote);
}

std::string exchangeInfo(const std::vector<std::string>& entries) {
    return fmt::format(R"({{"timezone":"UTC","symbols":[{}]}})", fmt::join(entries, ","));
}

}  // namespace

TEST(BinanceDecoderTest, decodesAFrame) {
    const TickerEvent event = BinanceDecoder::decodeMiniTickerFrame(
        frame(R"({"e":"24hrMiniTicker","s":"BTCUSDT","c":"65000.10","o":"64000","q":"1.5E9"})"));
    EXPECT_EQ(event, (TickerEvent{"BTCUSDT", {65000.1, 64000, 1.5e9}}));
}

TEST(BinanceDecoderTest, leavesTheVolumeOfAFrameAbsent) {
    for (const char* const data : {R"({"s":"BTCUSDT","c":"65000.10","o":"64000"})",
                                   R"({"s":"BTCUSDT","c":"65000.10","o":"64000","q":null})"}) {
        const TickerEvent event = BinanceDecoder::decodeMiniTickerFrame(frame(data));
        EXPECT_EQ(event, (TickerEvent{"BTCUSDT", {65000.1, 64000, std::nullopt}})) << data;
    }
}

TEST(BinanceDecoderTest, failsAFrameWithAnInvalidVolume) {
    const std::string bytes = frame(R"({"s":"BTCUSDT","c":"65000.10","o":"64000","q":"abc"})");
    EXPECT_EQ(
        invalidNumber([&] { static_cast<void>(BinanceDecoder::decodeMiniTickerFrame(bytes)); }),
        "abc");
}

TEST(BinanceDecoderTest, convertsThePricesOfAFrameInTheirOrder) {
    const std::string bytes = frame(R"({"q":"third","o":"second","c":"first","s":"BTCUSDT"})");
    EXPECT_EQ(
        invalidNumber([&] { static_cast<void>(BinanceDecoder::decodeMiniTickerFrame(bytes)); }),
        "first");
}

TEST(BinanceDecoderTest, takesTheSymbolOfAFrameAsReceived) {
    const TickerEvent event = BinanceDecoder::decodeMiniTickerFrame(
        R"({"data":{"o":"1","c":"2","s":"\u5e01btc"},"stream":"of another"})");
    EXPECT_EQ(event.symbol, "\u5e01btc");
}

TEST(BinanceDecoderTest, failsAFrameThatLacksAKey) {
    EXPECT_EQ(frameError(R"({"data":{"s":"BTCUSDT","c":"1","o":"1"}})"),
              "the key stream is missing");
    EXPECT_EQ(frameError(R"({"stream":"x"})"), "the key data is missing");
    EXPECT_EQ(frameError(frame(R"({"c":"1","o":"1"})")), "the key s is missing");
    EXPECT_EQ(frameError(frame(R"({"s":"BTCUSDT","o":"1"})")), "the key c is missing");
    EXPECT_EQ(frameError(frame(R"({"s":"BTCUSDT","c":"1"})")), "the key o is missing");
}

TEST(BinanceDecoderTest, failsAFrameWithAValueOfAnotherType) {
    EXPECT_EQ(frameError("[]"), "the frame is not an object");
    EXPECT_EQ(frameError(R"({"stream":1,"data":{"s":"BTCUSDT","c":"1","o":"1"}})"),
              "stream is not a string");
    EXPECT_EQ(frameError(frame("[]")), "data is not an object");
    EXPECT_EQ(frameError(frame(R"({"s":null,"c":"1","o":"1"})")), "s is not a string");
    EXPECT_EQ(frameError(frame(R"({"s":"BTCUSDT","c":1.5,"o":"1"})")), "c is not a string");
    EXPECT_EQ(frameError(frame(R"({"s":"BTCUSDT","c":"1","o":true})")), "o is not a string");
    EXPECT_EQ(frameError(frame(R"({"s":"BTCUSDT","c":"1","o":"1","q":2})")), "q is not a string");
}

TEST(BinanceDecoderTest, failsWhatIsNotJSON) {
    const std::string whole = frame(R"({"s":"BTCUSDT","c":"1","o":"1","n":[1,true,null]})");
    ASSERT_EQ(frameError(whole), "no error");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THAT(frameError(whole.substr(0, length)), HasSubstr("malformed JSON: "));
    }
    for (const std::string& bytes : {std::string("<html>"),
                                     whole + whole,
                                     whole + "x",
                                     std::string("{\"a\":01}"),
                                     std::string("{\"a\":\"\xff\"}"),
                                     std::string(R"({"a":"\ud800"})"),
                                     std::string("{\"a\":1,}"),
                                     std::string("{\"a\":\"line\nfeed\"}"),
                                     std::string("{'a':1}"),
                                     std::string("\0", 1),
                                     std::string(2000, '[')}) {
        EXPECT_THAT(frameError(bytes), HasSubstr("malformed JSON: ")) << bytes;
    }
}

TEST(BinanceDecoderTest, goesOnAfterABadFrame) {
    EXPECT_THAT(frameError("{"), HasSubstr("malformed JSON: "));
    EXPECT_EQ(frameError("\xEF\xBB\xBF{}"), "malformed JSON: a byte-order mark");
    EXPECT_EQ(frameError(frame(R"({"s":"BTCUSDT","c":"1","o":"1"})")), "no error");
}

TEST(BinanceDecoderTest, countsTheLastOfARepeatedKey) {
    const TickerEvent event = BinanceDecoder::decodeMiniTickerFrame(
        R"({"stream":1,"stream":"x","data":[],)"
        R"("data":{"s":"A","c":"bad","o":"1","c":"2","s":"B","q":7,"q":null}})");
    EXPECT_EQ(event, (TickerEvent{"B", {2, 1, std::nullopt}}));
}

TEST(BinanceDecoderTest, readsEscapedKeys) {
    const TickerEvent event = BinanceDecoder::decodeMiniTickerFrame(
        R"({"str\u0065am":"x","data":{"\u0073":"A","c":"2","o":"1"}})");
    EXPECT_EQ(event.symbol, "A");
}

TEST(BinanceDecoderTest, decodesTickers) {
    const TickerMap tickers = BinanceDecoder::decodeTicker24hArray(
        R"([{"symbol":"BTCUSDT","lastPrice":"2","openPrice":"1","quoteVolume":"10","count":5},)"
        R"({"symbol":"ETHUSDT","lastPrice":"-0.5","openPrice":"0x1p3"}])");
    EXPECT_EQ(tickers, (TickerMap{{"BTCUSDT", {2, 1, 10}}, {"ETHUSDT", {-0.5, 8, std::nullopt}}}));
}

TEST(BinanceDecoderTest, decodesNoTickers) {
    EXPECT_THAT(BinanceDecoder::decodeTicker24hArray("[]"), IsEmpty());
}

TEST(BinanceDecoderTest, keepsTheLaterTickerOfARepeatedSymbol) {
    const TickerMap tickers = BinanceDecoder::decodeTicker24hArray(
        R"([{"symbol":"BTCUSDT","lastPrice":"2","openPrice":"1","quoteVolume":"10"},)"
        R"({"symbol":"BTCUSDT","lastPrice":"3","openPrice":"1"}])");
    EXPECT_EQ(tickers, (TickerMap{{"BTCUSDT", {3, 1, std::nullopt}}}));
}

TEST(BinanceDecoderTest, convertsTickersInTheirOrder) {
    const auto failing = [](const std::string& bytes) {
        return invalidNumber(
            [&] { static_cast<void>(BinanceDecoder::decodeTicker24hArray(bytes)); });
    };
    EXPECT_EQ(failing(R"([{"symbol":"A","quoteVolume":"c","openPrice":"b","lastPrice":"a"}])"),
              "a");
    EXPECT_EQ(failing(R"([{"symbol":"A","lastPrice":"1","openPrice":"1","quoteVolume":"x"},)"
                      R"({"symbol":"B","lastPrice":"y","openPrice":"1"}])"),
              "x");
}

TEST(BinanceDecoderTest, findsAStructuralErrorBeforeABadNumber) {
    EXPECT_EQ(tickersError(R"([{"symbol":"A","lastPrice":"x","openPrice":"1"},{"symbol":"B"}])"),
              "the key lastPrice is missing");
}

TEST(BinanceDecoderTest, ignoresAnIntegerOfAnyLengthUnderAnotherKey) {
    const TickerMap tickers = BinanceDecoder::decodeTicker24hArray(
        R"([{"symbol":"BTCUSDT","lastPrice":"2","openPrice":"1","count":100000000000000000000}])");
    EXPECT_EQ(tickers, (TickerMap{{"BTCUSDT", {2, 1, std::nullopt}}}));
}

TEST(BinanceDecoderTest, failsTickersOfAnotherShape) {
    EXPECT_EQ(tickersError("{}"), "the answer is not an array");
    EXPECT_EQ(tickersError("[[]]"), "a ticker is not an object");
    EXPECT_EQ(tickersError(R"([{"lastPrice":"1","openPrice":"1"}])"), "the key symbol is missing");
    EXPECT_EQ(tickersError(R"([{"symbol":"A","lastPrice":"1"}])"), "the key openPrice is missing");
    EXPECT_EQ(tickersError(R"([{"symbol":"A","lastPrice":2,"openPrice":"1"}])"),
              "lastPrice is not a string");
    EXPECT_EQ(tickersError(R"([{"symbol":"A","lastPrice":"2","openPrice":"1","quoteVolume":1}])"),
              "quoteVolume is not a string");
}

TEST(BinanceDecoderTest, keepsThePairsThatAreTradedInUSDT) {
    const auto coins = BinanceDecoder::decodeExchangeInfo(
        exchangeInfo({listing("BTCUSDT", "TRADING", "BTC", "USDT"),
                      listing("ETHBTC", "TRADING", "ETH", "BTC"),
                      listing("LUNAUSDT", "BREAK", "LUNA", "USDT"),
                      listing("ethusdt", "TRADING", "eth", "usdt"),
                      listing("XRPUSDT", "Trading", "XRP", "USDT")}));
    EXPECT_THAT(coins, ElementsAre(Coin{"BTCUSDT", "BTC"}));
}

TEST(BinanceDecoderTest, keepsTheOrderAndTheRepetitionsOfTheExchange) {
    const auto coins = BinanceDecoder::decodeExchangeInfo(
        exchangeInfo({listing("TUSDT", "TRADING", "T", "USDT"),
                      listing("1INCHUSDT", "TRADING", "1INCH", "USDT"),
                      listing("TUSDT", "TRADING", "T", "USDT")}));
    EXPECT_THAT(coins,
                ElementsAre(Coin{"TUSDT", "T"}, Coin{"1INCHUSDT", "1INCH"}, Coin{"TUSDT", "T"}));
}

TEST(BinanceDecoderTest, failsExchangeInformationOfAnotherShape) {
    EXPECT_EQ(exchangeInfoError("[]"), "the answer is not an object");
    EXPECT_EQ(exchangeInfoError("{}"), "the key symbols is missing");
    EXPECT_EQ(exchangeInfoError(R"({"symbols":{}})"), "symbols is not an array");
    EXPECT_EQ(exchangeInfoError(R"({"symbols":[1]})"), "a symbol's entry is not an object");
    // Also where the pair would not be kept.
    EXPECT_EQ(exchangeInfoError(
                  exchangeInfo({R"({"symbol":"ETHBTC","status":"BREAK","quoteAsset":"BTC"})"})),
              "the key baseAsset is missing");
    EXPECT_EQ(exchangeInfoError(exchangeInfo(
                  {R"({"symbol":"A","status":null,"baseAsset":"A","quoteAsset":"BTC"})"})),
              "status is not a string");
}

TEST(BinanceDecoderTest, decodesExchangeInformationOfManyMegabytes) {
    std::vector<std::string> entries;
    for (int index = 0; index < 30'000; ++index) {
        const std::string base = fmt::format("C{}", index);
        entries.push_back(listing(base + "USDT", "TRADING", base, "USDT"));
    }
    const std::string bytes = exchangeInfo(entries);
    ASSERT_GT(bytes.size(), 3'000'000U);
    const auto coins = BinanceDecoder::decodeExchangeInfo(bytes);
    EXPECT_THAT(coins, SizeIs(30'000));
    EXPECT_EQ(coins.back(), (Coin{"C29999USDT", "C29999"}));
}

TEST(BinanceDecoderTest, decodesAKline) {
    const auto candles = BinanceDecoder::decodeKlines(
        R"([[1700000000123,"1","2","0.5","1.5","999",1700000299999,"1",5,"1","1","0"]])");
    EXPECT_THAT(candles, ElementsAre(Candle{TimePoint(Seconds(1700000000.123)), 1, 2, 0.5, 1.5}));
}

TEST(BinanceDecoderTest, decodesNoKlines) {
    EXPECT_THAT(BinanceDecoder::decodeKlines("[]"), IsEmpty());
}

TEST(BinanceDecoderTest, keepsTheOrderOfKlinesAndIgnoresWhatFollows) {
    const auto candles =
        BinanceDecoder::decodeKlines(R"([[2000,"1","1","1","1"],[-1500,"2","2","2","2",null,{}]])");
    EXPECT_THAT(candles,
                ElementsAre(Candle{TimePoint(Seconds(2)), 1, 1, 1, 1},
                            Candle{TimePoint(Seconds(-1.5)), 2, 2, 2, 2}));
}

TEST(BinanceDecoderTest, takesTheLargestOpenTime) {
    const auto candles = BinanceDecoder::decodeKlines(R"([[9223372036854775807,"1","1","1","1"]])");
    EXPECT_EQ(candles.at(0).openTime, TimePoint(Seconds(9223372036854775807.0 / 1000.0)));
}

TEST(BinanceDecoderTest, failsAnOpenTimeThatIsNoSigned64BitInteger) {
    for (const char* const openTime :
         {"1.0", "1.5", "1e3", "9223372036854775808", "\"1700000000123\"", "null", "true"}) {
        EXPECT_EQ(klinesError(fmt::format(R"([[{},"1","1","1","1"]])", openTime)),
                  "a kline's open time is not a signed 64-bit integer")
            << openTime;
    }
}

TEST(BinanceDecoderTest, failsKlinesOfAnotherShape) {
    EXPECT_EQ(klinesError(R"({"code":-1121})"), "the answer is not an array");
    EXPECT_EQ(klinesError("[{}]"), "a kline is not an array");
    EXPECT_EQ(klinesError("[[]]"), "a kline has 0 elements");
    EXPECT_EQ(klinesError(R"([[1,"1","1","1"]])"), "a kline has 4 elements");
    EXPECT_EQ(klinesError(R"([[1,"1","1","1",1]])"), "a kline's price is not a string");
}

TEST(BinanceDecoderTest, convertsThePricesOfAKlineInTheirOrder) {
    EXPECT_EQ(invalidNumber([] {
                  static_cast<void>(BinanceDecoder::decodeKlines(R"([[1,"1","b","c","d"]])"));
              }),
              "b");
}

TEST(BinanceDecoderTest, decodesOnManyThreadsAtOnce) {
    std::vector<std::thread> threads;
    std::vector<int> right(4);
    for (int& count : right) {
        threads.emplace_back([&count] {
            for (int round = 0; round < 200; ++round) {
                const std::string symbol = fmt::format("S{}", round);
                const std::string bytes =
                    frame(fmt::format(R"({{"s":"{}","c":"1","o":"1"}})", symbol));
                count += BinanceDecoder::decodeMiniTickerFrame(bytes).symbol == symbol ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(right, ElementsAre(200, 200, 200, 200));
}

}  // namespace quillbar
