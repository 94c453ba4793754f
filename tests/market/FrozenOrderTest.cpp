// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/FrozenOrder.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

Coin coin(const std::string& base) {
    return {base + "USDT", base};
}

RankedCoin row(int rank, const std::string& base, double price) {
    return {.rank = rank, .coin = coin(base), .ticker = {price, 1, 2}, .marketCap = 3};
}

std::string symbolsOf(const std::vector<Coin>& coins) {
    std::string result;
    for (const Coin& entry : coins) {
        result += entry.baseAsset;
    }
    return result;
}

const std::vector<Coin> kLiveCoins{coin("A"), coin("B"), coin("C")};
const std::vector<RankedCoin> kLiveRows{row(1, "C", 30), row(2, "A", 10), row(3, "D", 40)};

TEST(FrozenOrder, changesNothingWhenItIsEmpty) {
    EXPECT_EQ(FrozenOrder::project(kLiveCoins, std::vector<std::string>{}), kLiveCoins);
    EXPECT_EQ(FrozenOrder::project(kLiveRows, std::vector<FrozenRank>{}), kLiveRows);
}

TEST(FrozenOrder, keepsCapturedCoinsInPlaceAndAppendsTheRest) {
    EXPECT_EQ(symbolsOf(FrozenOrder::project(kLiveCoins, {"BUSDT", "AUSDT"})), "BAC");
}

TEST(FrozenOrder, skipsCapturedCoinsThatHaveGone) {
    EXPECT_EQ(symbolsOf(FrozenOrder::project(kLiveCoins, {"CUSDT", "XUSDT", "AUSDT"})), "CAB");
}

TEST(FrozenOrder, countsTheFirstOfACoinThatOccursTwice) {
    const std::vector<Coin> twice{coin("A"), {"BUSDT", "first"}, {"BUSDT", "second"}};
    const auto projected = FrozenOrder::project(twice, {"BUSDT"});
    ASSERT_FALSE(projected.empty());
    EXPECT_EQ(projected.front().baseAsset, "first");
}

TEST(FrozenOrder, keepsCapturedRanksWithLiveValuesAndNoMarketCap) {
    const auto projected =
        FrozenOrder::project(kLiveRows, {{"AUSDT", 1}, {"BUSDT", 2}, {"CUSDT", 3}});
    ASSERT_EQ(projected.size(), 2U);
    EXPECT_EQ(projected[0],
              (RankedCoin{.rank = 1, .coin = coin("A"), .ticker = kLiveRows[1].ticker}));
    EXPECT_EQ(projected[1],
              (RankedCoin{.rank = 3, .coin = coin("C"), .ticker = kLiveRows[0].ticker}));
}

TEST(FrozenOrder, leavesOutRowsThatWereNotCaptured) {
    const auto projected = FrozenOrder::project(kLiveRows, {{"CUSDT", 1}});
    ASSERT_EQ(projected.size(), 1U);
    EXPECT_EQ(projected[0].id(), "CUSDT");
}

TEST(FrozenOrder, capturesTheOrderThatItProjectsOnto) {
    EXPECT_EQ(FrozenOrder::capture(kLiveCoins),
              (std::vector<std::string>{"AUSDT", "BUSDT", "CUSDT"}));
    EXPECT_EQ(FrozenOrder::capture(kLiveRows),
              (std::vector<FrozenRank>{{"CUSDT", 1}, {"AUSDT", 2}, {"DUSDT", 3}}));
}

}  // namespace

}  // namespace quillbar
