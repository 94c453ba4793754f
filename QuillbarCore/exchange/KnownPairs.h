// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/BinanceAPI.h"
#include "QuillbarCore/runtime/Logger.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillbar {

/// Asks the exchange for a list of pairs that may be long and may hold pairs that the exchange does
/// not know: a delisted coin, a mistyped symbol. The exchange refuses such a list as a whole, so
/// one bad coin would cost the prices of all.
///
/// Belongs to the executor's thread.
class KnownPairs final : public BinanceAPI {
public:
    /// The most pairs in one request.
    static constexpr std::size_t kMostPairs = 100;
    /// The most bytes that the pairs of one request take in its URL. Servers accept URLs of 8 KB;
    /// the rest is for the host and the path.
    static constexpr std::size_t kLongestList = 7000;

    /// The exchange outlives this object.
    explicit KnownPairs(BinanceAPI& exchange)
        : m_exchange(exchange) {}

    Task<std::vector<Candle>> klines(std::string symbol,
                                     std::string interval,
                                     int limit,
                                     std::optional<std::int64_t> startTime) override;
    Task<std::vector<Coin>> exchangeInfo() override;

    /// The tickers of the given pairs that the exchange knows. Sends one request for each hundred
    /// pairs. If one is refused with 400, a single request for the tickers of all pairs replaces
    /// the remaining ones; pairs that its answer lacks are logged once and left out of later
    /// requests, until `forget`. Throws `BinanceError` 400 when the exchange knows none of the
    /// pairs. One failed request fails the whole.
    Task<TickerMap> ticker24h(std::vector<std::string> symbols) override;
    Task<TickerMap> ticker24hAll() override;

    /// Whether the exchange was asked for the pair since the last `forget`, and does not know it.
    [[nodiscard]] bool isUnknown(const std::string& symbol) const {
        return m_unknown.contains(symbol);
    }

    /// Forgets which pairs are unknown, so that they are asked for again: the exchange may list
    /// them by now. A pair that has been logged is not logged again.
    void forget() { m_unknown.clear(); }

private:
    [[nodiscard]] std::vector<std::string> askable(std::vector<std::string> symbols);
    // Fetches the tickers of all pairs and picks these.
    Task<TickerMap> amongAll(std::vector<std::string> symbols);
    void noteUnknown(const std::string& symbol);

    BinanceAPI& m_exchange;
    // The pairs that are not asked for.
    std::set<std::string> m_unknown;
    // Every pair that was ever unknown.
    std::set<std::string> m_logged;
    Logger m_logger{"REST"};
};

}  // namespace quillbar
