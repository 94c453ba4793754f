// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"
#include "QuillbarCore/runtime/Task.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// What the application asks of the exchange. Each operation is one request and may fail with
/// `URLError` (nothing arrived), `BinanceError` (an HTTP status that is not a success),
/// `JSONDecodingError` or `BinanceDecodingError` (an answer that cannot be understood), or
/// `Cancelled`. Belongs to the executor's thread; outlives the tasks it returns.
class BinanceAPI {
public:
    virtual ~BinanceAPI() = default;

    /// The newest `limit` candles of a pair, oldest first; with a start time, in milliseconds since
    /// the Unix epoch, the first `limit` candles from then on. `interval` is the exchange's code,
    /// such as "5m", "1h", "4h" or "1m".
    virtual Task<std::vector<Candle>> klines(std::string symbol,
                                             std::string interval,
                                             int limit,
                                             std::optional<std::int64_t> startTime) = 0;

    /// Every pair quoted in USDT that is being traded, in the exchange's order.
    virtual Task<std::vector<Coin>> exchangeInfo() = 0;

    /// The tickers of these pairs, by symbol. The exchange refuses a list that is empty or names a
    /// pair it does not know.
    virtual Task<TickerMap> ticker24h(std::vector<std::string> symbols) = 0;

    /// The tickers of every pair of the exchange, by symbol.
    virtual Task<TickerMap> ticker24hAll() = 0;

protected:
    BinanceAPI() = default;
    BinanceAPI(const BinanceAPI&) = default;
    BinanceAPI& operator=(const BinanceAPI&) = default;
    BinanceAPI(BinanceAPI&&) = default;
    BinanceAPI& operator=(BinanceAPI&&) = default;
};

}  // namespace quillbar
