// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Market.h"

#include "simulator/AsciiText.h"
#include "simulator/Noise.h"
#include "simulator/PricePath.h"

#include <algorithm>

namespace quillbar::simulator {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kMillisecondsPerStep = 1000;

// The last trade at or before the step. A halted pair has had none since the one at the start, and
// none in the past either.
std::int64_t tradeAt(const Listing& listing, std::int64_t step) {
    return listing.status == ListingStatus::halted ? 0 : floorDivided(step, listing.tradePeriod);
}

}  // namespace

Market::Market(std::uint64_t seed, int symbolCount, MarketTime startTime)
    : m_startTime(startTime)
    , m_listings(makeListings(symbolCount)) {
    for (std::size_t i = 0; i < m_listings.size(); ++i) {
        Listing& listing = m_listings[i];
        listing.walkId = mixed(listing.walkId ^ mixed(seed));
        m_bySymbol.emplace(listing.symbol, i);
        m_byLowerCase.emplace(lowerCased(listing.symbol), i);
    }
}

const Listing* Market::find(std::string_view symbol) const {
    const auto found = m_bySymbol.find(std::string{symbol});
    return found == m_bySymbol.end() ? nullptr : &m_listings[found->second];
}

const Listing* Market::findLowerCase(std::string_view symbol) const {
    const auto found = m_byLowerCase.find(std::string{symbol});
    return found == m_byLowerCase.end() ? nullptr : &m_listings[found->second];
}

MarketTime Market::now() const {
    return m_startTime + std::chrono::milliseconds{m_steps * kMillisecondsPerStep};
}

double Market::price(const Listing& listing) const {
    if (listing.status == ListingStatus::broken) {
        return 0;
    }
    return PricePath(listing).price(tradeAt(listing, m_steps));
}

bool Market::changed(const Listing& listing) const {
    return listing.status == ListingStatus::trading && m_steps > 0
           && m_steps % listing.tradePeriod == 0;
}

DayStatistics Market::day(const Listing& listing) const {
    if (listing.status == ListingStatus::broken) {
        return {};
    }
    const PricePath::Window day = PricePath(listing).window(
        tradeAt(listing, m_steps - kSecondsPerDay), tradeAt(listing, m_steps));
    return {day.open, day.high, day.low, day.close, day.volume, day.quoteVolume, day.trades};
}

std::int64_t Market::stepAt(std::int64_t milliseconds) const {
    const std::int64_t sinceStart = milliseconds - m_startTime.time_since_epoch().count();
    return floorDivided(sinceStart, kMillisecondsPerStep);
}

std::vector<std::int64_t> Market::openTimes(std::int64_t interval,
                                            int limit,
                                            std::optional<std::int64_t> startTime) const {
    const std::int64_t underWay = floorDivided(now().time_since_epoch().count(), interval);
    std::int64_t first = underWay - limit + 1;
    if (startTime) {
        first = floorDivided(*startTime - 1, interval) + 1;
    }
    // The exchange did not trade before the epoch.
    first = std::max<std::int64_t>(first, 0);
    std::vector<std::int64_t> times;
    for (std::int64_t cell = first; cell <= underWay && std::ssize(times) < limit; ++cell) {
        times.push_back(cell * interval);
    }
    return times;
}

std::vector<CandleRow> Market::candles(const Listing& listing,
                                       std::chrono::milliseconds interval,
                                       int limit,
                                       std::optional<std::int64_t> startTime) const {
    std::vector<CandleRow> rows;
    if (listing.status == ListingStatus::broken) {
        return rows;
    }
    const PricePath path(listing);
    const std::int64_t length = interval.count();
    for (const std::int64_t openTime : openTimes(length, limit, startTime)) {
        const std::int64_t lastStep = std::min(stepAt(openTime + length), m_steps);
        const PricePath::Window part =
            path.window(tradeAt(listing, stepAt(openTime)), tradeAt(listing, lastStep));
        rows.push_back({openTime,
                        openTime + length - 1,
                        part.open,
                        part.high,
                        part.low,
                        part.close,
                        part.volume,
                        part.quoteVolume,
                        part.trades});
    }
    return rows;
}

}  // namespace quillbar::simulator
