// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

namespace quillbar {

/// The latest price record of one pair. A plain value: treat it as immutable, copy it freely
/// between threads. Equality compares all three fields as IEEE doubles do (a NaN equals nothing).
struct Ticker final {
    /// Last traded price, in the quote asset.
    double lastPrice = 0;
    /// The price 24 hours before: the rolling window's open, as the exchange reports it.
    double openPrice24h = 0;
    /// Volume traded in the last 24 hours, in the quote asset; absent when the source gave none.
    std::optional<double> quoteVolume24h = std::nullopt;

    /// The rolling window's change in percent (2.5 means +2.5 %); 0 when the open is exactly 0.
    /// What the user sees goes through ChangeCalculator, which also knows the local day's open.
    [[nodiscard]] double changePercent24h() const {
        if (openPrice24h == 0) {
            return 0;
        }
        return (lastPrice - openPrice24h) / openPrice24h * 100;
    }

    [[nodiscard]] bool operator==(const Ticker&) const = default;
};

/// Tickers by their pair's symbol.
using TickerMap = std::unordered_map<std::string, Ticker>;

}  // namespace quillbar
