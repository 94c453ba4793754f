// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillbar {

/// One of the market's boards: the order in which all coins are ranked.
enum class RankingBoard : std::uint8_t {
    /// The greatest rise first.
    gainers,
    /// The greatest fall first.
    losers,
    /// The greatest traded volume of 24 hours first.
    volume,
    /// The greatest market capitalisation first.
    marketCap,
};

/// Every board, in the order in which the user is offered them.
inline constexpr std::array kAllRankingBoards{RankingBoard::gainers,
                                              RankingBoard::losers,
                                              RankingBoard::volume,
                                              RankingBoard::marketCap};

/// The text that stands for the board in the settings file. Stable for ever.
[[nodiscard]] std::string_view rawValue(RankingBoard board);

/// The board of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<RankingBoard> rankingBoardFromRawValue(std::string_view rawText);

/// The board's name on its tab.
[[nodiscard]] std::string_view displayName(RankingBoard board);

}  // namespace quillbar
