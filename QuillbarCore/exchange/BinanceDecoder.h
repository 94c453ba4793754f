// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/exchange/PriceEvent.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"

#include <string_view>
#include <vector>

/// Turns what the exchange sends into the core's types: pure functions over the bytes of a body,
/// for any thread.
///
/// Each throws `JSONDecodingError` for bytes that are not one JSON text in UTF-8, for a missing key
/// and for a value of another type; and after that `BinanceDecodingError` for a decimal text that
/// `decimalNumber` refuses. One bad element fails the whole body. Other keys are ignored; of a
/// repeated key the last value counts.
namespace quillbar::BinanceDecoder {

/// One frame of the combined mini-ticker stream: `stream` and, in `data`, the symbol `s`, the last
/// price `c`, the open price `o` and, unless absent or null, the quote volume `q`.
[[nodiscard]] TickerEvent decodeMiniTickerFrame(std::string_view bytes);

/// The array of a 24-hour ticker request: `symbol`, `lastPrice`, `openPrice` and, unless absent or
/// null, `quoteVolume`. Of a symbol that is repeated, the last element counts.
[[nodiscard]] TickerMap decodeTicker24hArray(std::string_view bytes);

/// The exchange information: of its `symbols`, those whose `quoteAsset` is USDT and whose `status`
/// is TRADING, in their order, repetitions kept.
[[nodiscard]] std::vector<Coin> decodeExchangeInfo(std::string_view bytes);

/// The candles of a klines request, in their order. Each is an array: the open time in milliseconds
/// since the Unix epoch, an integer without point or exponent; open, high, low and close as decimal
/// texts; then anything.
[[nodiscard]] std::vector<Candle> decodeKlines(std::string_view bytes);

}  // namespace quillbar::BinanceDecoder
