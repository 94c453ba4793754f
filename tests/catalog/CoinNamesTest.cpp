// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/CoinNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using CoinNames::Found;
using CoinNames::List;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Names = std::vector<std::string>;

std::vector<Coin> coinsOf(const Names& baseAssets) {
    std::vector<Coin> coins;
    coins.reserve(baseAssets.size());
    for (const std::string& base : baseAssets) {
        coins.push_back({base + "USDT", base});
    }
    return coins;
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string whole;
    for (std::size_t time = 0; time < count; ++time) {
        whole += text;
    }
    return whole;
}

// Reading

TEST(CoinNames, readsAListAsPeopleWriteIt) {
    EXPECT_EQ(CoinNames::parse("BTC, eth; SOL/USDT 1000SATS"),
              (List{.names = {"BTC", "ETH", "SOL/USDT", "1000SATS"}}));
    EXPECT_EQ(CoinNames::parse("比特币、eth，sol；ada\nbnb"),
              (List{.names = {"比特币", "ETH", "SOL", "ADA", "BNB"}}));
}

TEST(CoinNames, readsEachNameOnce) {
    EXPECT_EQ(CoinNames::parse("btc ETH Btc eth BTC"), (List{.names = {"BTC", "ETH"}}));
}

TEST(CoinNames, readsASingleNameAndNone) {
    EXPECT_EQ(CoinNames::parse(" sol "), (List{.names = {"SOL"}}));
    EXPECT_EQ(CoinNames::parse("sol,"), (List{.names = {"SOL"}}));
    EXPECT_EQ(CoinNames::parse(" ; "), List());
    EXPECT_EQ(CoinNames::parse(""), List());
}

TEST(CoinNames, readsATextThatJustFitsToItsEnd) {
    const std::string text = repeated("AB,", CoinNames::kMaximumBytes / 3) + "C";
    ASSERT_EQ(text.size(), CoinNames::kMaximumBytes);
    EXPECT_EQ(CoinNames::parse(text), (List{.names = {"AB", "C"}}));
}

TEST(CoinNames, leavesOutTheNameAtWhichALongTextIsCut) {
    // "SOLV" would be read as "SOL".
    std::string text = "BTC" + std::string(CoinNames::kMaximumBytes - 6, ' ') + "SOLV,ETH";
    EXPECT_EQ(CoinNames::parse(text), (List{.names = {"BTC"}, .isCut = true}));
    text.erase(3, 5);
    EXPECT_EQ(CoinNames::parse(text), (List{.names = {"BTC", "SOLV", "ETH"}}));
}

TEST(CoinNames, cutsWithinACharacterToo) {
    for (std::size_t spaces = 0; spaces < 3; ++spaces) {
        const std::string text =
            std::string(spaces, ' ') + "BTC " + repeated("币", CoinNames::kMaximumBytes);
        EXPECT_EQ(CoinNames::parse(text), (List{.names = {"BTC"}, .isCut = true})) << spaces;
    }
}

TEST(CoinNames, readsTheBeginningOfAMegabyte) {
    const List list = CoinNames::parse(repeated("BTC\nETH\n", 131'072));
    EXPECT_EQ(list, (List{.names = {"BTC", "ETH"}, .isCut = true}));
    EXPECT_EQ(CoinNames::parse(std::string(1'048'576, 'A')), (List{.isCut = true}));
}

// Looking up

TEST(CoinNames, findsCoinsByBaseAssetSymbolAndPair) {
    const auto catalog = coinsOf({"ADA", "BNB", "BTC", "ETH", "SOL"});
    const Found found =
        CoinNames::find({"SOL", "BTCUSDT", "ETH/USDT", "ADA-USDT", "BNB_USDT"}, catalog);
    EXPECT_EQ(found.coins, coinsOf({"SOL", "BTC", "ETH", "ADA", "BNB"}));
    EXPECT_THAT(found.unknown, IsEmpty());
}

TEST(CoinNames, namesWhatIsUnknownInItsOrder) {
    const Found found = CoinNames::find({"FOO", "BTC", "SO", "BAR"}, coinsOf({"SOL", "BTC"}));
    EXPECT_EQ(found.coins, coinsOf({"BTC"}));
    EXPECT_THAT(found.unknown, ElementsAre("FOO", "SO", "BAR"));
}

TEST(CoinNames, findsACoinOnceUnderAllItsNames) {
    const Found found =
        CoinNames::find({"SOL/USDT", "BTC", "SOL", "SOLUSDT"}, coinsOf({"BTC", "SOL"}));
    EXPECT_EQ(found, (Found{.coins = coinsOf({"SOL", "BTC"})}));
}

TEST(CoinNames, aPairAgainstAnotherCoinIsUnknown) {
    const Names names{"SOL/BTC", "B/TCUSDT", "SOL/", "/SOL", "/", "SOL//USDT", "SOLUSDT/"};
    EXPECT_EQ(CoinNames::find(names, coinsOf({"BTC", "SOL"})).unknown, names);
}

TEST(CoinNames, findsAPairWhoseBaseAssetHasAStroke) {
    const auto catalog = coinsOf({"A-B"});
    EXPECT_EQ(CoinNames::find({"A-B", "A-B/USDT"}, catalog), (Found{.coins = catalog}));
}

TEST(CoinNames, prefersABaseAssetToASymbol) {
    const std::vector<Coin> catalog{{"BTCUSDT", "BTC"}, {"ODD", "BTCUSDT"}};
    EXPECT_THAT(CoinNames::find({"BTCUSDT"}, catalog).coins, ElementsAre(catalog[1]));
}

TEST(CoinNames, findsTheCataloguesFirstOfSeveral) {
    const std::vector<Coin> catalog{{"XUSDT", "X"}, {"X2USDT", "X"}, {"XUSDT", "Y"}};
    EXPECT_THAT(CoinNames::find({"X"}, catalog).coins, ElementsAre(catalog[0]));
    EXPECT_THAT(CoinNames::find({"XUSDT"}, catalog).coins, ElementsAre(catalog[0]));
}

TEST(CoinNames, theCatalogueMayBeInAnyCase) {
    const auto catalog = coinsOf({"beamX", "ДОГ", "币安人生"});
    EXPECT_EQ(CoinNames::find({"BEAMX/USDT", "ДОГ", "币安人生"}, catalog).coins, catalog);
    EXPECT_THAT(CoinNames::find({"BEAMXUSDT"}, catalog).coins, SizeIs(1));
}

// Writing

TEST(CoinNames, writesBaseAssets) {
    EXPECT_EQ(CoinNames::textOf(coinsOf({"BTC", "ETH", "1000SATS"})), "BTC, ETH, 1000SATS");
    EXPECT_EQ(CoinNames::textOf(coinsOf({"BTC"})), "BTC");
    EXPECT_EQ(CoinNames::textOf({}), "");
}

TEST(CoinNames, writesTheSymbolWhereTheBaseAssetIsAnother) {
    EXPECT_EQ(CoinNames::textOf({{"ODD", "SOL"}, {"EMPTY", ""}}), "ODD, EMPTY");
}

TEST(CoinNames, writesOneLineWithoutControlSequences) {
    EXPECT_EQ(CoinNames::textOf(coinsOf({"A\x1B[2J", "B\nC"})), "A [2J, B C");
}

TEST(CoinNames, findsWhatItWrote) {
    const auto catalog = coinsOf({"ETH", "BTC", "1000SATS", "币安人生", "beamX"});
    const List read = CoinNames::parse(CoinNames::textOf(catalog));
    EXPECT_EQ(CoinNames::find(read.names, catalog), (Found{.coins = catalog}));
}

}  // namespace
}  // namespace quillbar
