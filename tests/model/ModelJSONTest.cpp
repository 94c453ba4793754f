// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/JSONDocument.h"
#include "QuillbarCore/model/ModelJSON.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using JSONDocument::compactText;
using JSONDocument::parse;

template <typename Value>
std::string textOf(const Value& value) {
    return compactText(ModelJSON::toJSON(value));
}

Watchlist watchlistOf(const std::string& text) {
    return ModelJSON::watchlistFromJSON(parse(text));
}

/// What the error says that reading the watchlist ends with.
std::string complaintAbout(const std::string& text) {
    try {
        static_cast<void>(watchlistOf(text));
    } catch (const DocumentError& error) {
        return error.what();
    }
    return "read without complaint";
}

TEST(ModelJSON, writesACoinInTheOrderOfItsFields) {
    EXPECT_EQ(textOf(Coin{"BTCUSDT", "BTC"}), R"({"symbol":"BTCUSDT","baseAsset":"BTC"})");
}

TEST(ModelJSON, writesAWatchlistInTheOrderOfItsFields) {
    const Watchlist list{1, {{"BTCUSDT", "BTC"}, {"ETHUSDT", "ETH"}}, "ETHUSDT"};
    EXPECT_EQ(textOf(list),
              R"({"schemaVersion":1,"coins":[{"symbol":"BTCUSDT","baseAsset":"BTC"},)"
              R"({"symbol":"ETHUSDT","baseAsset":"ETH"}],"pinnedSymbol":"ETHUSDT"})");
}

TEST(ModelJSON, leavesAnAbsentPinOut) {
    EXPECT_EQ(textOf(Watchlist{1, {}}), R"({"schemaVersion":1,"coins":[]})");
}

TEST(ModelJSON, readsBackWhatItWrote) {
    const std::vector<Watchlist> lists{Watchlist::defaultWatchlist(),
                                       {1, {}},
                                       {-9, {{"币安USDT", "币安"}, {"\"\\\n", ""}}, "nowhere"}};
    for (const Watchlist& list : lists) {
        EXPECT_EQ(watchlistOf(textOf(list)), list);
    }
    const std::vector<Coin> coins = Watchlist::defaultWatchlist().coins;
    EXPECT_EQ(ModelJSON::coinsFromJSON(parse(textOf(coins))), coins);
}

TEST(ModelJSON, aWatchlistWithoutThePinOrWithANullHasNone) {
    EXPECT_EQ(watchlistOf(R"({"schemaVersion":1,"coins":[]})"), (Watchlist{1, {}}));
    EXPECT_EQ(watchlistOf(R"({"schemaVersion":1,"coins":[],"pinnedSymbol":null})"),
              (Watchlist{1, {}}));
}

TEST(ModelJSON, ignoresUnknownKeysAndTheOrderOfKeys) {
    EXPECT_EQ(watchlistOf(R"({"x":[],"pinnedSymbol":"A","coins":[{"baseAsset":"B","y":1,)"
                          R"("symbol":"A"}],"Coins":3,"schemaVersion":1})"),
              (Watchlist{1, {{"A", "B"}}, "A"}));
}

TEST(ModelJSON, keepsAVersionItDoesNotKnow) {
    EXPECT_EQ(watchlistOf(R"({"schemaVersion":2,"coins":[]})").schemaVersion, 2);
}

TEST(ModelJSON, takesEveryIntegralNumberOf64BitsAsAVersion) {
    const auto version = [](const std::string& number) {
        return watchlistOf(R"({"schemaVersion":)" + number + R"(,"coins":[]})").schemaVersion;
    };
    EXPECT_EQ(version("1.0"), 1);
    EXPECT_EQ(version("1e0"), 1);
    EXPECT_EQ(version("-3"), -3);
    EXPECT_EQ(version("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(version("-9223372036854775808"), INT64_MIN);
}

TEST(ModelJSON, refusesAVersionThatIsNoIntegerOf64Bits) {
    for (const char* const number : {"1.5",
                                     "\"1\"",
                                     "true",
                                     "[1]",
                                     "9223372036854775808",
                                     "9223372036854775808.0",
                                     "-9223372036854775809",
                                     "1e300"}) {
        EXPECT_EQ(complaintAbout(std::string(R"({"schemaVersion":)") + number + R"(,"coins":[]})"),
                  "\"schemaVersion\" is not an integer of 64 bits")
            << number;
    }
}

TEST(ModelJSON, refusesAMissingKey) {
    EXPECT_EQ(complaintAbout(R"({"coins":[]})"), "\"schemaVersion\" is missing");
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1})"), "\"coins\" is missing");
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1,"coins":null})"), "\"coins\" is missing");
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1,"Coins":[]})"), "\"coins\" is missing");
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1,"coins":[{"symbol":"A"}]})"),
              "\"baseAsset\" is missing");
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1,"coins":[{"baseAsset":"A"}]})"),
              "\"symbol\" is missing");
}

TEST(ModelJSON, refusesAValueOfAnotherType) {
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1,"coins":{}})"), "the coins are not an array");
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1,"coins":[7]})"), "no object to hold \"symbol\"");
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1,"coins":[{"symbol":1,"baseAsset":"A"}]})"),
              "\"symbol\" is not a string");
    EXPECT_EQ(complaintAbout(R"({"schemaVersion":1,"coins":[],"pinnedSymbol":1})"),
              "\"pinnedSymbol\" is not a string");
    for (const char* const text : {"[]", "1", "\"watchlist\"", "null"}) {
        EXPECT_EQ(complaintAbout(text), "no object to hold \"schemaVersion\"") << text;
    }
}

}  // namespace
}  // namespace quillbar
