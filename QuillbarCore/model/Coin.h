// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quillbar {

/// One tradable pair of the exchange, such as BTC quoted in USDT. A plain value: treat it as
/// immutable, copy it freely between threads. Equality compares both fields, exactly and
/// case-sensitively.
struct Coin final {
    /// The exchange's pair symbol in upper case, base asset then quote asset: "BTCUSDT".
    std::string symbol;
    /// The base asset's code, "BTC": what the user reads, and the key of the coin's icon.
    std::string baseAsset;

    /// The coin's identity in lists: its symbol. The reference lives as long as the coin.
    [[nodiscard]] const std::string& id() const { return symbol; }

    [[nodiscard]] bool operator==(const Coin&) const = default;
};

}  // namespace quillbar
