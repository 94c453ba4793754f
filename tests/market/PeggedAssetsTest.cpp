// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/PeggedAssets.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

using PeggedAssets::isPegged;

TEST(PeggedAssets, areNineteenInThreeLists) {
    EXPECT_EQ(PeggedAssets::kStablecoins.size(), 14U);
    EXPECT_EQ(PeggedAssets::kWrappedAndStaked.size(), 3U);
    EXPECT_EQ(PeggedAssets::kMetalPegged.size(), 2U);
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
