// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/RankingBoard.h"

#include "QuillbarCore/model/RawValue.h"
#include "QuillbarCore/model/UserText.h"

namespace quillbar {

std::string_view rawValue(RankingBoard board) {
    switch (board) {
    case RankingBoard::gainers:
        return "gainers";
    case RankingBoard::losers:
        return "losers";
    case RankingBoard::volume:
        return "volume";
    case RankingBoard::marketCap:
        break;
    }
    return "marketCap";
}

std::optional<RankingBoard> rankingBoardFromRawValue(std::string_view rawText) {
    return valueWithRawText(rawText, kAllRankingBoards);
}

std::string_view displayName(RankingBoard board) {
    switch (board) {
    case RankingBoard::gainers:
        return userText("core", "涨幅");
    case RankingBoard::losers:
        return userText("core", "跌幅");
    case RankingBoard::volume:
        return userText("core", "成交额");
    case RankingBoard::marketCap:
        break;
    }
    return userText("core", "市值");
}

}  // namespace quillbar
