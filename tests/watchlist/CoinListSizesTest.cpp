// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/DrawnAtSizes.h"
#include "tests/watchlist/CoinListFixture.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

using CoinListSizesTest = CoinListFixture;

TEST_F(CoinListSizesTest, aRowOfTheWatchlistIsWrittenAtItsSizes) {
    show({"BTC"});
    tick("BTC", {67234.5, 66417.56, 1.5e9});
    // Half a point need not be seen: a screen may draw whole ones.
    EXPECT_EQ(volumeCell("BTC")->fontSize(), 10.5);
    EXPECT_EQ(priceCell("BTC")->fontSize(), 12);
    EXPECT_EQ(pictureOf(*volumeCell("BTC")), writtenAt(64, 10.5, *volumeCell("BTC")));
    EXPECT_EQ(pictureOf(*priceCell("BTC")), writtenAt(82, 12, *priceCell("BTC")));
    EXPECT_EQ(pictureOf(*arrow("BTC")), drawnAt(9, Glyph::chevronRight, *arrow("BTC")));
}

}  // namespace
}  // namespace quillbar
