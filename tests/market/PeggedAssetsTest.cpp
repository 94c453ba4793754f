// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/PeggedAssets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quillbar {

namespace {

using PeggedAssets::isPegged;
using ::testing::ElementsAre;

TEST(PeggedAssets, areNineteenInThreeLists) {
    EXPECT_THAT(PeggedAssets::kStablecoins,
                ElementsAre("BFUSD",
                            "EURI",
                            "FDUSD",
                            "FRAX",
                            "RLUSD",
                            "TUSD",
                            "U",
                            "USD1",
                            "USDC",
                            "USDE",
                            "USDP",
                            "USDS",
                            "USTC",
                            "XUSD"));
    EXPECT_THAT(PeggedAssets::kWrappedAndStaked, ElementsAre("WBTC", "WBETH", "BNSOL"));
    EXPECT_THAT(PeggedAssets::kMetalPegged, ElementsAre("XAUT", "PAXG"));
}

TEST(PeggedAssets, areAllKnown) {
    const auto allArePegged = [](const auto& list) {
        return std::all_of(list.begin(), list.end(), isPegged);
    };
    EXPECT_TRUE(allArePegged(PeggedAssets::kStablecoins));
    EXPECT_TRUE(allArePegged(PeggedAssets::kWrappedAndStaked));
    EXPECT_TRUE(allArePegged(PeggedAssets::kMetalPegged));
}

TEST(PeggedAssets, areKnownInAnyCase) {
    EXPECT_TRUE(isPegged("wbtc"));
    EXPECT_TRUE(isPegged("Usdc"));
    EXPECT_TRUE(isPegged("u"));
    EXPECT_TRUE(isPegged("PAXG"));
    EXPECT_TRUE(isPegged("BNSOL"));
}

TEST(PeggedAssets, areMatchedWhole) {
    EXPECT_FALSE(isPegged("BTC"));
    EXPECT_FALSE(isPegged("USDC2"));
    EXPECT_FALSE(isPegged("USD"));
    EXPECT_FALSE(isPegged(""));
    EXPECT_FALSE(isPegged("USDT"));
}

}  // namespace

}  // namespace quillbar
