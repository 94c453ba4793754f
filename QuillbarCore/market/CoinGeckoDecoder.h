// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapEntry.h"

#include <string_view>
#include <vector>

/// What the market-cap service sends. Pure.
namespace quillbar::CoinGeckoDecoder {

/// The rows of a "coins/markets" answer, in its order. Rows without a symbol, a rank, or a
/// capitalisation and a price above 0 are left out. Throws `JSONDecodingError` for a body that is
/// no array of objects, and for a field of another type.
[[nodiscard]] std::vector<MarketCapEntry> decodeMarkets(std::string_view bytes);

}  // namespace quillbar::CoinGeckoDecoder
