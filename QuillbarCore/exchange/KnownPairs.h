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

/// The exchange, asked for the pairs of a list that may be long and may hold pairs that the
/// exchange does not know: a coin that was delisted, a symbol that was mistyped. The exchange
/// refuses such a list as a whole, and one bad coin would cost the prices of all.
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

    /// The tickers of those of the pairs that the exchange knows, and of no others. One request for
    /// each hundred pairs. When one is refused with 400, one request for the tickers of all pairs
    /// takes the place of the rest; the pairs that are not in its answer are logged once and left
    /// out of every later request, until `forget`. Throws `BinanceError` 400 when the exchange
    /// knows none of the pairs. Any request that fails fails the whole.
    Task<TickerMap> ticker24h(std::vector<std::string> symbols) override;
    Task<TickerMap> ticker24hAll() override;

    /// Whether the exchange was asked for the pair and does not know it, as far as not forgotten.
    [[nodiscard]] bool isUnknown(const std::string& symbol) const {
        return m_unknown.contains(symbol);
    }

    /// Asks again for the pairs that the exchange did not know: it may list them by now. A pair that
    /// has been logged is not logged again.
    void forget() { m_unknown.clear(); }

private:
    [[nodiscard]] std::vector<std::string> askable(std::vector<std::string> symbols);
    // The tickers of these pairs, out of those of all pairs.
    Task<TickerMap> amongAll(std::vector<std::string> symbols);
    void noteUnknown(const std::string& symbol);

    BinanceAPI& m_exchange;
    // The pairs that are not asked for.
    std::set<std::string> m_unknown;
    // Every pair that has ever been among those.
    std::set<std::string> m_logged;
    Logger m_logger{"REST"};
};

}  // namespace quillbar
