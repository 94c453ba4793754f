// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar::simulator {

/// TRADING: prices move. HALT: the price stands still. BREAK: a dead pair, listed with zeros.
enum class ListingStatus { trading, halted, broken };

/// The exchange's word for a status.
[[nodiscard]] std::string_view statusText(ListingStatus status);

/// A pair as the exchange lists it, with what its price walk starts from.
struct Listing {
    std::string symbol;
    std::string baseAsset;
    std::string quoteAsset;
    ListingStatus status = ListingStatus::trading;
    /// The price at step 0, in the quote asset, and the day's volume around it.
    double startPrice = 0;
    double quoteVolume = 0;
    /// Digits after the point of the tick and of the lot.
    int priceDigits = 8;
    int lotDigits = 8;
    /// The price changes every so many steps, at least 1.
    int tradePeriod = 1;
    /// The usual change over a day, as a fraction.
    double dailyVolatility = 0.04;
    /// Tells the walks of different pairs apart.
    std::uint64_t walkId = 0;
};

/// The first `count` pairs of the exchange, always the same ones in the same order. Symbols are
/// unique. Of every five, the first is a USDT pair in trading (by falling volume); the others have
/// other quote assets or are dead.
[[nodiscard]] std::vector<Listing> makeListings(int count);

}  // namespace quillbar::simulator
