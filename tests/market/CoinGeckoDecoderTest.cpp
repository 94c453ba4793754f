// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/JSONDecodingError.h"
#include "QuillbarCore/market/CoinGeckoDecoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quillbar {

namespace {

using CoinGeckoDecoder::decodeMarkets;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

std::string row(const std::string& symbol,
                const std::string& price,
                const std::string& marketCap,
                const std::string& rank) {
    return R"({"id":"x","symbol":)" + symbol + R"(,"current_price":)" + price + R"(,"market_cap":)"
           + marketCap + R"(,"market_cap_rank":)" + rank + "}";
}

std::vector<MarketCapEntry> decodeRow(const std::string& symbol,
                                      const std::string& price,
                                      const std::string& marketCap,
                                      const std::string& rank) {
    return decodeMarkets("[" + row(symbol, price, marketCap, rank) + "]");
}

TEST(CoinGeckoDecoder, readsARowInUpperCase) {
    EXPECT_THAT(decodeRow(R"("btc")", "67234.5", "1350000000000", "1"),
                ElementsAre(MarketCapEntry{"BTC", 1, 1.35e12, 67234.5}));
}

TEST(CoinGeckoDecoder, takesIntegersAndFractions) {
    EXPECT_THAT(decodeRow(R"("a")", "1", "2.5e3", "7.0"),
                ElementsAre(MarketCapEntry{"A", 7, 2500, 1}));
}

TEST(CoinGeckoDecoder, keepsRepeatsInTheOrderOfTheAnswer) {
    const auto entries =
        decodeMarkets("[" + row(R"("eth")", "1", "3", "2") + "," + row(R"("eth")", "2", "2", "3")
                      + "," + row(R"("btc")", "3", "9", "1") + "]");
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].referencePrice, 1);
    EXPECT_EQ(entries[1].referencePrice, 2);
    EXPECT_EQ(entries[2].symbol, "BTC");
}

TEST(CoinGeckoDecoder, dropsRowsThatCannotBeRanked) {
    EXPECT_THAT(decodeRow("null", "1", "1", "1"), IsEmpty());
    EXPECT_THAT(decodeRow(R"("")", "1", "1", "1"), IsEmpty());
    EXPECT_THAT(decodeRow(R"("a")", "null", "1", "1"), IsEmpty());
    EXPECT_THAT(decodeRow(R"("a")", "0", "1", "1"), IsEmpty());
    EXPECT_THAT(decodeRow(R"("a")", "-1", "1", "1"), IsEmpty());
    EXPECT_THAT(decodeRow(R"("a")", "1", "null", "1"), IsEmpty());
    EXPECT_THAT(decodeRow(R"("a")", "1", "0", "1"), IsEmpty());
    EXPECT_THAT(decodeRow(R"("a")", "1", "1", "null"), IsEmpty());
    EXPECT_THAT(decodeMarkets("[{}]"), IsEmpty());
    EXPECT_THAT(decodeMarkets("[]"), IsEmpty());
}

std::string refusalOf(const std::string& body) {
    try {
        static_cast<void>(decodeMarkets(body));
    } catch (const JSONDecodingError& error) {
        return error.what();
    }
    return "none";
}

TEST(CoinGeckoDecoder, refusesAnotherAnswerThanTheServices) {
    for (const char* const body : {"{}", "null", R"({"error":"x"})"}) {
        EXPECT_EQ(refusalOf(body), "the answer is not an array") << body;
    }
    EXPECT_EQ(refusalOf("[1]"), "a coin is not an object");
    EXPECT_EQ(refusalOf(""), "malformed JSON: empty");
    for (const char* const body : {"[", "<html>"}) {
        EXPECT_THAT(refusalOf(body), StartsWith("malformed JSON: ")) << body;
    }
}

TEST(CoinGeckoDecoder, takesIntegersOfAnyLength) {
    const MarketCapEntry entry{"A", 3, 2, 1};
    EXPECT_THAT(decodeMarkets(R"([{"symbol":"a","current_price":1,"market_cap":2,)"
                              R"("market_cap_rank":3,"total_supply":100000000000000000000000}])"),
                ElementsAre(entry));
    EXPECT_THAT(decodeMarkets(R"([{"symbol":"a","current_price":1,"market_cap":2,)"
                              R"("market_cap_rank":3,"max_supply":-100000000000000000000000}])"),
                ElementsAre(entry));
    EXPECT_THAT(decodeRow(R"("a")", "18446744073709551616", "100000000000000000000", "1"),
                ElementsAre(MarketCapEntry{"A", 1, 1e20, 18446744073709551616.0}));
    EXPECT_THROW((void)decodeRow(R"("a")", "1", "1", "100000000000000000000"), JSONDecodingError);
    EXPECT_THROW((void)decodeRow(R"("a")", "1", "0100000000000000000000", "1"), JSONDecodingError);
    EXPECT_THROW((void)decodeMarkets("[100000000000000000000"), JSONDecodingError);
}

TEST(CoinGeckoDecoder, saysWhichFieldIsOfAnotherType) {
    const auto refusal = [](const std::string& symbol,
                            const std::string& price,
                            const std::string& marketCap,
                            const std::string& rank) {
        return refusalOf("[" + row(symbol, price, marketCap, rank) + "]");
    };
    EXPECT_EQ(refusal("7", "1", "1", "1"), "symbol is not a string");
    EXPECT_EQ(refusal(R"("a")", R"("1")", "1", "1"), "current_price is not a number");
    EXPECT_EQ(refusal(R"("a")", "1", "true", "1"), "market_cap is not a number");
    EXPECT_EQ(refusal(R"("a")", "1", "1", "1.5"), "market_cap_rank is not an integer");
    EXPECT_EQ(refusal(R"("a")", "1", "1", "1e300"), "market_cap_rank is not an integer");
    // Even in a row that would be dropped.
    EXPECT_EQ(refusal("null", "1", "1", R"("1")"), "market_cap_rank is not a number");
}

TEST(CoinGeckoDecoder, takesARankUpToTheLargestThatEveryNumberCanHold) {
    EXPECT_THAT(decodeRow(R"("a")", "1", "1", "9007199254740992"),
                ElementsAre(MarketCapEntry{"A", 9'007'199'254'740'992, 1, 1}));
    EXPECT_THAT(decodeRow(R"("a")", "1", "1", "-9007199254740992"),
                ElementsAre(MarketCapEntry{"A", -9'007'199'254'740'992, 1, 1}));
    EXPECT_THROW((void)decodeRow(R"("a")", "1", "1", "9007199254740994"), JSONDecodingError);
}

}  // namespace

}  // namespace quillbar
