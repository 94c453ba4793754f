// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Listing.h"
#include "simulator/SimulatorOptions.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillbar::simulator {

/// The rolling 24 hours of a pair. Every number is 0 for a pair whose status is `broken`.
struct DayStatistics {
    double open = 0;
    double high = 0;
    double low = 0;
    double last = 0;
    double volume = 0;       ///< in the base asset
    double quoteVolume = 0;  ///< in the quote asset
    std::int64_t trades = 0;
};

/// One candle; times in milliseconds since the epoch.
struct CandleRow {
    std::int64_t openTime = 0;
    std::int64_t closeTime = 0;
    double open = 0;
    double high = 0;
    double low = 0;
    double close = 0;
    double volume = 0;
    double quoteVolume = 0;
    std::int64_t trades = 0;
};

/// The pairs and their prices. A price is a pure function of the seed and of the number of steps
/// since the start, so a run repeats. Candles of every interval and the 24 hours are read from the
/// one path that the prices follow, the past included, so they agree with each other and with what
/// was streamed. Knows nothing of sockets or timers. For one thread.
class Market final {
public:
    Market(std::uint64_t seed, int symbolCount, MarketTime startTime);

    [[nodiscard]] const std::vector<Listing>& listings() const { return m_listings; }
    /// The pair of that exact symbol; null when it is not listed.
    [[nodiscard]] const Listing* find(std::string_view symbol) const;
    /// The pair whose symbol, in ASCII lower case, is the one given; null when there is none.
    [[nodiscard]] const Listing* findLowerCase(std::string_view symbol) const;

    /// Moves the clock by one second and the prices with it.
    void step() { ++m_steps; }
    [[nodiscard]] std::int64_t steps() const { return m_steps; }
    [[nodiscard]] MarketTime now() const;

    /// The last price, rounded to the pair's tick; 0 for a pair whose status is `broken`.
    [[nodiscard]] double price(const Listing& listing) const;
    /// Whether the last step changed the price. False before the first step.
    [[nodiscard]] bool changed(const Listing& listing) const;
    [[nodiscard]] DayStatistics day(const Listing& listing) const;

    /// Candles on the interval's grid, oldest first: the last `limit` up to now, or the first
    /// `limit` whose open time is at or after `startTime` (milliseconds since the epoch). The one
    /// under way closes at the present price. Empty for a pair whose status is `broken`.
    [[nodiscard]] std::vector<CandleRow> candles(const Listing& listing,
                                                 std::chrono::milliseconds interval,
                                                 int limit,
                                                 std::optional<std::int64_t> startTime) const;

private:
    [[nodiscard]] std::int64_t stepAt(std::int64_t milliseconds) const;
    [[nodiscard]] std::vector<std::int64_t> openTimes(std::int64_t interval,
                                                      int limit,
                                                      std::optional<std::int64_t> startTime) const;

    MarketTime m_startTime;
    std::vector<Listing> m_listings;
    // Positions in m_listings, which a copy of the market shares.
    std::unordered_map<std::string, std::size_t> m_bySymbol;
    std::unordered_map<std::string, std::size_t> m_byLowerCase;
    std::int64_t m_steps = 0;
};

}  // namespace quillbar::simulator
