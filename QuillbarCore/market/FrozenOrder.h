// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/RankedCoin.h"
#include "QuillbarCore/model/Coin.h"

#include <string>
#include <vector>

namespace quillbar {

/// A position on a board as it was on screen when its order was captured.
struct FrozenRank final {
    std::string symbol;
    /// The rank it showed, from 1.
    int rank = 0;

    [[nodiscard]] bool operator==(const FrozenRank&) const = default;
};

/// Keeps rows from moving under the pointer: puts a live list into the order that was captured when
/// the pointer came. Pure. If a symbol occurs twice among the live items, the first counts.
namespace FrozenOrder {

/// The order of these items, for `project`.
[[nodiscard]] std::vector<std::string> capture(const std::vector<Coin>& items);
[[nodiscard]] std::vector<FrozenRank> capture(const std::vector<RankedCoin>& items);

/// The live coins in the captured order of symbols, followed by those that were added since. An
/// empty order changes nothing.
[[nodiscard]] std::vector<Coin> project(const std::vector<Coin>& items,
                                        const std::vector<std::string>& order);

/// The captured rows that still exist, with their captured ranks and live values; rows that were
/// added since are left out. The rows carry no market capitalisation. An empty order changes
/// nothing.
[[nodiscard]] std::vector<RankedCoin> project(const std::vector<RankedCoin>& items,
                                              const std::vector<FrozenRank>& order);

}  // namespace FrozenOrder

}  // namespace quillbar
