// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Listing.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quillbar::simulator {

/// The one path of prices that a pair's ticks, candles and 24 hours are read from: the price of
/// every trade, numbered from the simulator's start (trade 0; the past has negative numbers).
///
/// The path is cut into blocks of 2^n trades. The prices at the ends of the blocks are drawn; in
/// between, the middle of a stretch is its ends' mean and a bend that is drawn, and so on by
/// halves. Thus a price costs one descent, and what is asked of a long stretch is answered without
/// a look at most of its trades. A pure function of the listing, its walk included; keeps nothing.
/// Made for one question or a few, where it is asked. For any thread.
class PricePath final {
public:
    /// For a listing that has prices: trading or halted.
    explicit PricePath(const Listing& listing);

    /// A part of the path.
    struct Window {
        double open = 0;
        double high = 0;
        double low = 0;
        double close = 0;
        double volume = 0;       ///< in the base asset
        double quoteVolume = 0;  ///< in the quote asset
        std::int64_t trades = 0;
    };

    /// The price from that trade to the next, on the pair's tick; never 0, and never the price of
    /// the trade before it.
    [[nodiscard]] double price(std::int64_t trade) const;

    /// The prices from the trade `first` to `last`, both included, and what changed hands after
    /// `first`, up to `last`, at prices of the window (but for their rounding to ticks). Windows
    /// that join add up; one of a single trade has no volume. `first` is at most `last`.
    [[nodiscard]] Window window(std::int64_t first, std::int64_t last) const;

private:
    // A stretch of the path: 2^level trades from the number `index` * 2^level on, and the prices at
    // its ends. Prices in here are in ticks and not rounded.
    struct Stretch {
        std::int64_t index = 0;
        double open = 0;
        double close = 0;
        /// What the bends in the block are fractions of.
        double scale = 0;
    };

    // No block is longer than half a million seconds or so: six days.
    static constexpr int kLevels = 20;

    using Bounds = std::array<std::int64_t, 2>;
    class Extremes;

    [[nodiscard]] double blockEnd(std::int64_t block) const;
    [[nodiscard]] Stretch block(std::int64_t index) const;
    [[nodiscard]] static Stretch firstHalf(const Stretch& whole, double middle);
    [[nodiscard]] static Stretch secondHalf(const Stretch& whole, double middle);
    [[nodiscard]] double middle(const Stretch& stretch, int level) const;
    [[nodiscard]] double exactPrice(Stretch stretch, int level, std::int64_t trade) const;
    void findExtremes(std::vector<Stretch> stretches, const Bounds& bounds, Extremes& found) const;
    void addStraight(const Stretch& stretch, const Bounds& bounds, Extremes& found) const;
    void addTurnover(const Stretch& stretch, int level, const Bounds& bounds, Window& sum) const;

    std::uint64_t m_key;
    double m_ticksPerUnit;
    double m_startTicks;
    double m_blockSwing = 0;
    // Base volume of a trade on average, and how many of the exchange's trades one of ours stands
    // for.
    double m_lot;
    std::int64_t m_tradesPerTrade;
    int m_blockLevel;
    // The volume is even within a stretch of this level.
    int m_volumeLevel;
    // Stretches of this level and below have no bends, which would be lost in the rounding.
    int m_straightLevel = 0;
    // By level: the largest bend of a stretch, as a fraction of its scale.
    std::array<double, kLevels> m_bend{};
};

}  // namespace quillbar::simulator
