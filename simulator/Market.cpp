// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Market.h"

#include "simulator/AsciiText.h"
#include "simulator/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillbar::simulator {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kMillisecondsPerStep = 1000;
// The day's high and low are looked for at this many moments.
constexpr std::int64_t kDaySamples = 12;
constexpr std::int64_t kCandleSamples = 4;

// A walk as a sum of noises, each of twice the period and root-two times the swing of the one
// before, from two seconds to twelve days: over any span in between the usual change grows with the
// span's root, as a random walk's does, yet any moment can be asked for by itself.
double walk(std::uint64_t key, std::int64_t step) {
    constexpr int kOctaves = 20;
    double sum = 0;
    double swing = std::sqrt(2.0);
    std::int64_t period = 2;
    for (int octave = 0; octave < kOctaves; ++octave) {
        sum += swing * valueNoise(mixed(key + static_cast<std::uint64_t>(octave)), step, period);
        swing *= std::sqrt(2.0);
        period *= 2;
    }
    // The variance over a day of the sum above, per second of the day.
    constexpr double kVariancePerSecond = 1.55;
    return sum / std::sqrt(kVariancePerSecond * static_cast<double>(kSecondsPerDay));
}

double powerOfTen(int exponent) {
    constexpr std::array<double, 9> kPowers{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
    return kPowers.at(static_cast<std::size_t>(exponent));
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

double Market::priceAt(const Listing& listing, std::int64_t step) const {
    if (listing.status == ListingStatus::broken) {
        return 0;
    }
    if (listing.status == ListingStatus::halted) {
        step = 0;
    }
    const std::int64_t trade = floorDivided(step, listing.tradePeriod);
    const double drift =
        walk(listing.walkId, trade * listing.tradePeriod) - walk(listing.walkId, 0);
    const double exact = listing.startPrice * std::exp(listing.dailyVolatility * drift);
    // Ticks are even and odd in turn from trade to trade, so that a trade always changes the price.
    const std::int64_t pairs = std::llround(exact * powerOfTen(listing.priceDigits) / 2);
    const std::int64_t ticks = std::max<std::int64_t>(2 * pairs + (trade & 1), 1);
    return static_cast<double>(ticks) / powerOfTen(listing.priceDigits);
}

double Market::volumeAt(const Listing& listing, std::int64_t step) const {
    constexpr std::int64_t kSlow = kSecondsPerDay / 4;
    constexpr std::int64_t kFast = 60;
    const std::uint64_t key = mixed(listing.walkId + 4242);
    const double swing =
        0.3 * valueNoise(key, step, kSlow) + 0.002 * valueNoise(mixed(key), step, kFast);
    return listing.quoteVolume * std::exp(swing);
}

double Market::price(const Listing& listing) const {
    return priceAt(listing, m_steps);
}

bool Market::changed(const Listing& listing) const {
    return listing.status == ListingStatus::trading && m_steps > 0
           && m_steps % listing.tradePeriod == 0;
}

DayStatistics Market::day(const Listing& listing) const {
    if (listing.status == ListingStatus::broken) {
        return {};
    }
    DayStatistics day;
    day.open = priceAt(listing, m_steps - kSecondsPerDay);
    day.last = priceAt(listing, m_steps);
    day.high = std::max(day.open, day.last);
    day.low = std::min(day.open, day.last);
    constexpr std::int64_t kSpacing = kSecondsPerDay / kDaySamples;
    const std::int64_t latest = floorDivided(m_steps, kSpacing) * kSpacing;
    for (std::int64_t i = 0; i < kDaySamples; ++i) {
        const double sample = priceAt(listing, latest - i * kSpacing);
        day.high = std::max(day.high, sample);
        day.low = std::min(day.low, sample);
    }
    day.quoteVolume = volumeAt(listing, m_steps);
    day.volume = day.quoteVolume / ((day.high + day.low) / 2);
    day.trades = std::llround(std::sqrt(day.volume * day.last + 1) * 20);
    return day;
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
    const std::int64_t length = interval.count();
    for (const std::int64_t openTime : openTimes(length, limit, startTime)) {
        CandleRow row;
        row.openTime = openTime;
        row.closeTime = openTime + length - 1;
        const std::int64_t firstStep = stepAt(openTime);
        const std::int64_t lastStep = std::min(stepAt(openTime + length), m_steps);
        row.open = priceAt(listing, firstStep);
        row.close = priceAt(listing, lastStep);
        row.high = std::max(row.open, row.close);
        row.low = std::min(row.open, row.close);
        for (std::int64_t i = 1; i < kCandleSamples; ++i) {
            const double sample =
                priceAt(listing, firstStep + (lastStep - firstStep) * i / kCandleSamples);
            row.high = std::max(row.high, sample);
            row.low = std::min(row.low, sample);
        }
        const double dayShare = static_cast<double>(lastStep - firstStep) / kSecondsPerDay;
        row.quoteVolume = volumeAt(listing, lastStep) * dayShare;
        row.volume = row.quoteVolume / ((row.high + row.low) / 2);
        row.trades = std::llround(std::sqrt(row.volume * row.close + 1) * 2);
        rows.push_back(row);
    }
    return rows;
}

}  // namespace quillbar::simulator
