// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/SearchResultRow.h"
#include "tests/qtsupport/ViewFixture.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

TEST(SearchResultRowTest, writesAPairAsPeopleDo) {
    EXPECT_EQ(SearchResultRow::pairOf(coinOf("SOL")), QStringLiteral("SOL/USDT"));
    EXPECT_EQ(SearchResultRow::pairOf({"USDTUSDT", "USDT"}), QStringLiteral("USDT/USDT"));
    EXPECT_EQ(SearchResultRow::pairOf({"ODD", "SOL"}), QStringLiteral("ODD"));
    EXPECT_EQ(SearchResultRow::pairOf({"SOL", "SOL"}), QStringLiteral("SOL"));
    EXPECT_EQ(SearchResultRow::pairOf({"USDT", ""}), QStringLiteral("USDT"));
    EXPECT_EQ(SearchResultRow::pairOf({"A\nBUSDT", "A\nB"}), QStringLiteral("A B/USDT"));
}

}  // namespace
}  // namespace quillbar
