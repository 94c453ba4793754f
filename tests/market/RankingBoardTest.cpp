// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/RankingBoard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string_view>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;

TEST(RankingBoard, isStoredAsItsRawTextInTheDeclaredOrder) {
    std::vector<std::string_view> rawTexts;
    rawTexts.reserve(kAllRankingBoards.size());
    for (const RankingBoard board : kAllRankingBoards) {
        rawTexts.push_back(rawValue(board));
    }
    EXPECT_THAT(rawTexts, ElementsAre("gainers", "losers", "volume", "marketCap"));
}

TEST(RankingBoard, isBuiltFromItsRawTextAndFromNoOther) {
    for (const RankingBoard board : kAllRankingBoards) {
        EXPECT_EQ(rankingBoardFromRawValue(rawValue(board)), board);
    }
    for (const char* const text : {"", "Gainers", "marketcap", "volume ", "涨幅"}) {
        EXPECT_EQ(rankingBoardFromRawValue(text), std::nullopt) << text;
    }
}

TEST(RankingBoard, isNamedInChinese) {
    std::vector<std::string_view> names;
    names.reserve(kAllRankingBoards.size());
    for (const RankingBoard board : kAllRankingBoards) {
        names.push_back(displayName(board));
    }
    EXPECT_THAT(names, ElementsAre("涨幅", "跌幅", "成交额", "市值"));
}

}  // namespace
}  // namespace quillbar
