// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/FakeBinanceAPI.h"

#include <utility>

namespace quillbar {

Task<std::vector<Candle>> FakeBinanceAPI::klines(std::string symbol,
                                                 std::string interval,
                                                 int limit,
                                                 std::optional<std::int64_t> startTime) {
    KlinesRequest request;
    request.symbol = std::move(symbol);
    request.interval = std::move(interval);
    request.limit = limit;
    request.startTime = startTime;
    klinesRequests.push_back(std::move(request));
    std::vector<Candle> candles = co_await klinesAnswers.next();
    co_return candles;
}

Task<std::vector<Coin>> FakeBinanceAPI::exchangeInfo() {
    ++exchangeInfoRequests;
    std::vector<Coin> coins = co_await exchangeInfoAnswers.next();
    co_return coins;
}

Task<TickerMap> FakeBinanceAPI::ticker24h(std::vector<std::string> symbols) {
    ticker24hRequests.push_back(std::move(symbols));
    TickerMap tickers = co_await ticker24hAnswers.next();
    co_return tickers;
}

Task<TickerMap> FakeBinanceAPI::ticker24hAll() {
    ++ticker24hAllRequests;
    TickerMap tickers = co_await ticker24hAllAnswers.next();
    co_return tickers;
}

}  // namespace quillbar
