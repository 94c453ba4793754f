// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillbar::simulator {

/// Whether a coin follows another value instead of a market of its own.
enum class Peg { none, pegged };

/// A coin: its ticker, name, and plausible figures in US dollars.
struct CoinFigures {
    std::string asset;
    std::string name;
    double price = 0;
    double dayVolume = 0;
    double marketCap = 0;
    Peg peg = Peg::none;
};

/// A coin that stands in the table of known coins, as the table spells it.
struct KnownCoin {
    const char* asset = "";
    const char* name = "";
    double price = 0;
    double dayVolumeMillions = 0;
    double marketCapMillions = 0;
    Peg peg = Peg::none;
};

/// The table: real coins in about the order of their volume, odd names among them (a digit first,
/// one letter, beyond ASCII).
[[nodiscard]] std::span<const KnownCoin> knownCoins();

/// The first `count` coins: the table, then as many made-up ones as it takes. Tickers are unique.
/// Always the same ones.
[[nodiscard]] std::vector<CoinFigures> makeCoins(std::size_t count);

}  // namespace quillbar::simulator
