// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/CoinName.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

TEST(CoinName, isABaseAssetOrAPairInEitherCase) {
    const Coin ether{"ETHUSDT", "ETH"};
    for (const char* const name :
         {"ETH", "eth", "Eth", "ETH/USDT", "eth/usdt", "ETHUSDT", "ethUsdt"}) {
        EXPECT_EQ(coinNamed(name), ether) << name;
    }
    EXPECT_EQ(coinNamed("1000sats"), (Coin{"1000SATSUSDT", "1000SATS"}));
    EXPECT_EQ(coinNamed("币安人生"), (Coin{"币安人生USDT", "币安人生"}));
    EXPECT_EQ(coinNamed("usdt"), (Coin{"USDTUSDT", "USDT"}));
}

TEST(CoinName, isNoOtherPairAndNoOtherText) {
    for (const char* const name : {"",
                                   "ETH/BTC",
                                   "ETH/",
                                   "/USDT",
                                   "ETH/USDT/USDT",
                                   "ETH-USDT",
                                   "ETH,BTC",
                                   " ETH",
                                   "ETH USDT",
                                   "E\"H",
                                   "ETH\n"}) {
        EXPECT_EQ(coinNamed(name), std::nullopt) << name;
    }
}

}  // namespace

}  // namespace quillbar
