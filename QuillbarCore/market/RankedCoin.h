// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"

#include <optional>
#include <string>

namespace quillbar {

/// One row of a board. A plain value.
struct RankedCoin final {
    /// Position on the board, from 1.
    int rank = 0;
    Coin coin;
    Ticker ticker;
    /// In US dollars; absent on the exchange's own boards.
    std::optional<double> marketCap = std::nullopt;

    /// The row's identity while ranks change.
    [[nodiscard]] const std::string& id() const { return coin.symbol; }

    [[nodiscard]] bool operator==(const RankedCoin&) const = default;
};

}  // namespace quillbar
