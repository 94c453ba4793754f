// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/RankedCoin.h"
#include "QuillbarCore/market/RankingBoard.h"

#include <QString>

#include <cstdint>

namespace quillbar {

/// What a board shows of its coins beside price and change.
enum class SecondaryColumn : std::uint8_t { volume, marketCap };

/// The column that a board has. Pure.
[[nodiscard]] SecondaryColumn secondaryColumnOf(RankingBoard board);

/// The column's title. Pure.
[[nodiscard]] QString columnTitle(SecondaryColumn column);

/// The text of the column for a coin: "15.00亿", or "—" when it is unknown. Pure.
[[nodiscard]] QString columnText(SecondaryColumn column, const RankedCoin& entry);

}  // namespace quillbar
