// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/exchange/PriceEvent.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"

#include <string_view>
#include <vector>

/// The decoder of the exchange's bodies once more, plainly written on another JSON library: the
/// judge of `BinanceDecoder`. Throws the same errors.
namespace quillbar::NaiveDecoder {

[[nodiscard]] TickerEvent decodeMiniTickerFrame(std::string_view bytes);
[[nodiscard]] TickerMap decodeTicker24hArray(std::string_view bytes);
[[nodiscard]] std::vector<Coin> decodeExchangeInfo(std::string_view bytes);
[[nodiscard]] std::vector<Candle> decodeKlines(std::string_view bytes);

}  // namespace quillbar::NaiveDecoder
