// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quillbar {

/// What the market-cap service says of one coin. A plain value.
struct MarketCapEntry final {
    /// The coin's ticker symbol in upper case, "BTC"; not a pair of the exchange.
    std::string symbol;
    /// The service's own rank, 1 for the largest.
    std::int64_t rank = 0;
    /// In US dollars, above 0.
    double marketCap = 0;
    /// The service's price in US dollars, above 0.
    double referencePrice = 0;

    [[nodiscard]] bool operator==(const MarketCapEntry&) const = default;
};

}  // namespace quillbar
