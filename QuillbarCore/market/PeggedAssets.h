// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

/// The base assets whose price is pinned to a fiat currency, to another coin or to gold. The board
/// of market capitalisations leaves them out.
namespace quillbar::PeggedAssets {

inline constexpr std::array<std::string_view, 14> kStablecoins{"BFUSD",
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
                                                               "XUSD"};
inline constexpr std::array<std::string_view, 3> kWrappedAndStaked{"WBTC", "WBETH", "BNSOL"};
inline constexpr std::array<std::string_view, 2> kMetalPegged{"XAUT", "PAXG"};

/// Whether the base asset, in any case, is one of them. Compares the whole text: USDC2 is not
/// pegged. Pure.
[[nodiscard]] bool isPegged(std::string_view baseAsset);

}  // namespace quillbar::PeggedAssets
