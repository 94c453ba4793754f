// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/Coin.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

TEST(Coin, isIdentifiedByItsSymbol) {
    const Coin coin{"BTCUSDT", "BTC"};
    EXPECT_EQ(coin.id(), "BTCUSDT");
}

TEST(Coin, equalityComparesBothFieldsCaseSensitively) {
    EXPECT_EQ((Coin{"BTCUSDT", "BTC"}), (Coin{"BTCUSDT", "BTC"}));
    EXPECT_NE((Coin{"BTCUSDT", "BTC"}), (Coin{"btcusdt", "BTC"}));
    EXPECT_NE((Coin{"BTCUSDT", "BTC"}), (Coin{"BTCUSDT", "XBT"}));
}

}  // namespace
}  // namespace quillbar
