// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/BinanceIconURL.h"
#include "QuillbarCore/catalog/CoinIconDescriptor.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbar {

namespace {

std::string monogram(const std::string& baseAsset) {
    return CoinIconDescriptor{baseAsset}.monogram();
}

int colour(const std::string& baseAsset) {
    return CoinIconDescriptor{baseAsset}.colorIndex();
}

bool canHaveLogo(const std::string& baseAsset) {
    return CoinIconDescriptor{baseAsset}.canHaveLogo();
}

TEST(CoinIconDescriptor, namesItsFileInLowerCase) {
    EXPECT_EQ(CoinIconDescriptor{"BTC"}.fileName(), "btc.png");
    EXPECT_EQ(CoinIconDescriptor{"1000Sats"}.fileName(), "1000sats.png");
    EXPECT_EQ(CoinIconDescriptor{"ÄB"}.fileName(), "äb.png");
}

TEST(CoinIconDescriptor, hasAMonogramOfUpToThreeCharacters) {
    EXPECT_EQ(monogram("btc"), "BTC");
    EXPECT_EQ(monogram("DOGE"), "DOG");
    EXPECT_EQ(monogram("T"), "T");
    EXPECT_EQ(monogram(""), "?");
}

TEST(CoinIconDescriptor, leavesTheDigitsInFrontOutOfTheMonogram) {
    EXPECT_EQ(monogram("1INCH"), "INC");
    EXPECT_EQ(monogram("1000SATS"), "SAT");
    EXPECT_EQ(monogram("42"), "42");
    EXPECT_EQ(monogram("4242"), "424");
    EXPECT_EQ(monogram("A1B2"), "A1B");
    // Digits of other scripts are numbers too.
    EXPECT_EQ(monogram("٣٤ab"), "AB");
    EXPECT_EQ(monogram("½x"), "X");
}

TEST(CoinIconDescriptor, cutsTheMonogramByCharactersNotBytes) {
    EXPECT_EQ(monogram("币安人生"), "币安人");
    // A letter with a combining accent, and a flag of two code points, are one character each.
    EXPECT_EQ(monogram("e\u0301abc"), "E\u0301AB");
    EXPECT_EQ(monogram("🇨🇳ab"), "🇨🇳AB");
    EXPECT_EQ(monogram("straße"), "STR");
}

TEST(CoinIconDescriptor, hasAColourThatNeverChanges) {
    EXPECT_EQ(colour(""), 5);
    // 64-bit FNV-1a of the upper-case bytes, modulo 12, computed apart.
    EXPECT_EQ(colour("BTC"), 0);
    EXPECT_EQ(colour("ETH"), 8);
    EXPECT_EQ(colour("1000SATS"), 9);
    EXPECT_EQ(colour("币安人生"), 11);
}

TEST(CoinIconDescriptor, hasTheSameColourInAnyCase) {
    EXPECT_EQ(colour("btc"), colour("BTC"));
    EXPECT_EQ(colour("äb"), colour("ÄB"));
}

TEST(CoinIconDescriptor, hasNoLogoUnderANameThatCouldLeaveTheFolder) {
    for (const char* const good : {"BTC", "1INCH", "T", "币安人生", "...", ".a", "a.b"}) {
        EXPECT_TRUE(canHaveLogo(good)) << good;
    }
    for (const char* const bad : {"", ".", "..", "/", "a/b", "../../etc/passwd", "/etc/passwd"}) {
        EXPECT_FALSE(canHaveLogo(bad)) << bad;
    }
    EXPECT_FALSE(canHaveLogo(std::string("a\0b", 3)));
    EXPECT_TRUE(canHaveLogo(std::string(64, 'A')));
    EXPECT_FALSE(canHaveLogo(std::string(65, 'A')));
}

TEST(BinanceIconURL, appendsTheBaseAssetInUpperCase) {
    EXPECT_EQ(BinanceIconURL::url("https://icons.test/logos", "btc"),
              "https://icons.test/logos/BTC.png");
}

TEST(BinanceIconURL, encodesWhatAURLCannotHold) {
    EXPECT_EQ(BinanceIconURL::url("https://icons.test", "币 a?#%"),
              "https://icons.test/%E5%B8%81%20A%3F%23%25.png");
}

}  // namespace

}  // namespace quillbar
