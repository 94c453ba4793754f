// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/PricePath.h"

#include "simulator/Noise.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillbar::simulator {

namespace {

constexpr double kSecondsPerDay = 86400;
// How far the volume of a stretch lies from the usual at most.
constexpr double kVolumeSwing = 0.6;
// The furthest that the prices of a stretch get from its ends, in its largest bends. The bends of
// all levels shrink by the root of two and add up to most at a third of the way, where each counts
// for two thirds: 2/3 * (1 + 1/sqrt(2) + 1/2 + ...).
constexpr double kReach = 2.2762;
// The smallest bend of a stretch as a fraction of the largest one. The more alike the bends are,
// the less do the largest ones stand out, and the less there is to look through for the extremes.
constexpr double kSmallestBend = 0.5;
// What the drawn numbers are for; the levels have the numbers below.
constexpr std::uint64_t kBlockEnds = 30;
constexpr std::uint64_t kVolumes = 31;

constexpr std::int64_t length(int level) {
    return std::int64_t{1} << level;
}

// Ticks are even and odd in turn from trade to trade, so that a trade always changes the price.
std::int64_t ticks(double exact, std::int64_t trade) {
    return std::max<std::int64_t>(2 * std::llround(exact / 2) + (trade & 1), 1);
}

// A number in [-1, 1), always the same for the same three. `purpose` is below 32.
double drawn(std::uint64_t key, std::int64_t index, std::uint64_t purpose) {
    return 2 * unitInterval(mixed(key + static_cast<std::uint64_t>(index) * 32 + purpose)) - 1;
}

}  // namespace

// The lowest and the highest seen, in ticks, and what a price must reach to count beside them.
class PricePath::Extremes final {
public:
    explicit Extremes(std::int64_t ticks)
        : m_low(ticks)
        , m_high(ticks) {
        update();
    }

    void add(std::int64_t ticks) {
        if (ticks < m_low || ticks > m_high) {
            m_low = std::min(m_low, ticks);
            m_high = std::max(m_high, ticks);
            update();
        }
    }

    // Whether a price between these, not rounded, may be a new extreme.
    [[nodiscard]] bool mayGrow(double least, double most) const {
        // Not ||: this is asked thousands of times and nobody can guess the answers.
        return static_cast<bool>(static_cast<int>(most >= m_above)
                                 | static_cast<int>(least <= m_below));
    }

    [[nodiscard]] std::int64_t low() const { return m_low; }
    [[nodiscard]] std::int64_t high() const { return m_high; }

private:
    // A price is rounded to an even tick, and an odd trade's is the tick above that.
    void update() {
        const std::int64_t above = (m_high + 1) / 2 * 2 - 1;
        const std::int64_t below = (m_low - 1) / 2 * 2 + 1;
        m_above = static_cast<double>(above);
        m_below = static_cast<double>(below);
    }

    std::int64_t m_low;
    std::int64_t m_high;
    double m_above = 0;
    double m_below = 0;
};

PricePath::PricePath(const Listing& listing)
    : m_key(listing.walkId)
    , m_ticksPerUnit(std::pow(10.0, listing.priceDigits))
    , m_startTicks(listing.startPrice * m_ticksPerUnit) {
    constexpr int kSecondsPerVolume = 11;  // as a power of two: half an hour
    const double period = listing.tradePeriod;
    const auto periodLevel = static_cast<int>(std::log2(period));
    m_blockLevel = kLevels - 1 - periodLevel;
    m_volumeLevel = kSecondsPerVolume - periodLevel;
    const double tradesPerDay = kSecondsPerDay / period;
    m_lot = listing.quoteVolume / listing.startPrice / tradesPerDay;
    m_tradesPerTrade = std::llround(std::sqrt(listing.quoteVolume + 1) * 20 / tradesPerDay) + 1;
    // The variance of the middle of a random walk between known ends is a quarter of its length;
    // that of a bend is 7/12 of the largest one's square. A block end's is a third of the square of
    // the swing, and a block has two ends.
    const double blockDays = static_cast<double>(length(m_blockLevel)) / tradesPerDay;
    m_blockSwing = listing.dailyVolatility * std::sqrt(1.5 * blockDays);
    double bend = listing.dailyVolatility * std::sqrt(3.0 / 7 * 2 / tradesPerDay);
    constexpr double kShortestBend = 0.5;  // in ticks
    for (int level = 1; level <= m_blockLevel; ++level) {
        if (bend * m_startTicks < kShortestBend) {
            m_straightLevel = level;
        } else {
            m_bend.at(static_cast<std::size_t>(level)) = bend;
        }
        bend *= std::sqrt(2.0);
    }
}

double PricePath::blockEnd(std::int64_t block) const {
    // Relative to the block at the start, where the price is the listing's.
    const double swing = drawn(m_key, block, kBlockEnds) - drawn(m_key, 0, kBlockEnds);
    return m_startTicks * std::exp(m_blockSwing * swing);
}

PricePath::Stretch PricePath::block(std::int64_t index) const {
    Stretch block{index, blockEnd(index), blockEnd(index + 1)};
    // The reach of a block is less than one, so no price falls to nothing.
    block.scale = std::min(block.open, block.close);
    return block;
}

PricePath::Stretch PricePath::firstHalf(const Stretch& whole, double middle) {
    return {2 * whole.index, whole.open, middle, whole.scale};
}

PricePath::Stretch PricePath::secondHalf(const Stretch& whole, double middle) {
    return {2 * whole.index + 1, middle, whole.close, whole.scale};
}

double PricePath::middle(const Stretch& stretch, int level) const {
    // Two halves bend by as much, one up and one down. So the mean of a stretch is known from its
    // ends and its middle alone, whatever its halves do.
    const double draw = drawn(m_key, stretch.index >> 1, static_cast<std::uint64_t>(level));
    const double part = std::copysign(kSmallestBend, draw) + (1 - kSmallestBend) * draw;
    const double bend = m_bend[static_cast<std::size_t>(level)] * stretch.scale * part;
    return (stretch.open + stretch.close) / 2
           + static_cast<double>(1 - 2 * (stretch.index & 1)) * bend;
}

double PricePath::exactPrice(Stretch stretch, int level, std::int64_t trade) const {
    if (trade == (stretch.index + 1) * length(level)) {
        return stretch.close;
    }
    while (stretch.index * length(level) != trade) {
        const double mid = middle(stretch, level);
        --level;
        const bool isFirstHalf = trade < (2 * stretch.index + 1) * length(level);
        stretch = isFirstHalf ? firstHalf(stretch, mid) : secondHalf(stretch, mid);
    }
    return stretch.open;
}

double PricePath::price(std::int64_t trade) const {
    const double exact = exactPrice(block(trade >> m_blockLevel), m_blockLevel, trade);
    return static_cast<double>(ticks(exact, trade)) / m_ticksPerUnit;
}

PricePath::Window PricePath::window(std::int64_t first, std::int64_t last) const {
    std::vector<Stretch> blocks;
    for (std::int64_t index = first >> m_blockLevel; index <= last >> m_blockLevel; ++index) {
        blocks.push_back(block(index));
    }
    const std::int64_t open = ticks(exactPrice(blocks.front(), m_blockLevel, first), first);
    const std::int64_t close = ticks(exactPrice(blocks.back(), m_blockLevel, last), last);
    Window window;
    window.trades = (last - first) * m_tradesPerTrade;
    Extremes found(open);
    found.add(close);
    for (const Stretch& each : blocks) {
        const std::int64_t trade = each.index * length(m_blockLevel);
        if (trade > first) {
            found.add(ticks(each.open, trade));
        }
        addTurnover(each, m_blockLevel, {first, last}, window);
    }
    findExtremes(std::move(blocks), {first, last}, found);
    window.open = static_cast<double>(open) / m_ticksPerUnit;
    window.high = static_cast<double>(found.high()) / m_ticksPerUnit;
    window.low = static_cast<double>(found.low()) / m_ticksPerUnit;
    window.close = static_cast<double>(close) / m_ticksPerUnit;
    return window;
}

void PricePath::findExtremes(std::vector<Stretch> stretches,
                             const Bounds& bounds,
                             Extremes& found) const {
    std::vector<Stretch> halves;
    // From the long stretches to the short ones: what the long ones found tells which of the short
    // ones cannot matter.
    for (int level = m_blockLevel; level > m_straightLevel && !stretches.empty(); --level) {
        const double reach = kReach * m_bend[static_cast<std::size_t>(level - 1)];
        std::size_t kept = 0;
        const auto keep = [&](const Stretch& half) {
            const double furthest = reach * half.scale;
            halves[kept] = half;
            const bool mayMatter = found.mayGrow(std::min(half.open, half.close) - furthest,
                                                 std::max(half.open, half.close) + furthest);
            kept += static_cast<std::size_t>(mayMatter);
        };
        halves.resize(2 * stretches.size());
        for (const Stretch& each : stretches) {
            const double mid = middle(each, level);
            const std::int64_t trade = (2 * each.index + 1) * length(level - 1);
            if (trade > bounds[0] && trade < bounds[1] && found.mayGrow(mid, mid)) {
                found.add(ticks(mid, trade));
            }
            if (trade > bounds[0]) {
                keep(firstHalf(each, mid));
            }
            if (trade < bounds[1]) {
                keep(secondHalf(each, mid));
            }
        }
        halves.resize(kept);
        std::swap(stretches, halves);
    }
    // At level 0 every price has been looked at.
    if (m_straightLevel > 0) {
        for (const Stretch& each : stretches) {
            addStraight(each, bounds, found);
        }
    }
}

void PricePath::addStraight(const Stretch& stretch, const Bounds& bounds, Extremes& found) const {
    const int level = m_straightLevel;
    const std::int64_t begin = std::max(stretch.index * length(level), bounds[0]);
    const std::int64_t end = std::min((stretch.index + 1) * length(level), bounds[1]);
    // The price falls or rises throughout, so the extremes of the even trades and of the odd ones
    // are at the ends.
    for (const std::int64_t trade : {begin, begin + 1, end - 1, end}) {
        if (begin <= trade && trade <= end) {
            found.add(ticks(exactPrice(stretch, level, trade), trade));
        }
    }
}

void PricePath::addTurnover(const Stretch& stretch,
                            int level,
                            const Bounds& bounds,
                            Window& sum) const {
    const std::int64_t begin = stretch.index * length(level);
    const std::int64_t end = begin + length(level);
    if (end <= bounds[0] || begin >= bounds[1]) {
        return;
    }
    const double mid = middle(stretch, level);
    if (level <= m_volumeLevel && bounds[0] <= begin && end <= bounds[1]) {
        const std::int64_t even = begin >> m_volumeLevel;
        const double volume = m_lot * (1 + kVolumeSwing * drawn(m_key, even, kVolumes))
                              * static_cast<double>(length(level));
        sum.volume += volume;
        sum.quoteVolume += volume * (stretch.open + 2 * mid + stretch.close) / 4 / m_ticksPerUnit;
        return;
    }
    addTurnover(firstHalf(stretch, mid), level - 1, bounds, sum);
    addTurnover(secondHalf(stretch, mid), level - 1, bounds, sum);
}

}  // namespace quillbar::simulator
