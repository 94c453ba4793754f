// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Coins.h"

#include "simulator/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <unordered_set>

namespace quillbar::simulator {

namespace {

constexpr double kMillion = 1e6;

// Two or three syllables, told by the index, make a ticker of four to six letters.
std::string madeUpTicker(std::uint64_t index, std::uint64_t attempt) {
    constexpr std::array<std::string_view, 40> kSyllables{
        "BA", "CO", "DE", "FI", "GA", "HU", "JO", "KE", "LA", "MO", "NU", "PA", "RI", "SO",
        "TA", "VE", "WA", "XO", "YA", "ZE", "BI", "CU", "DO", "FE", "GO", "HA", "KI", "LU",
        "ME", "NO", "PI", "RA", "SE", "TU", "VI", "WE", "XI", "ZO", "AR", "OX"};
    const std::uint64_t bits = mixed(index * 31 + attempt + 77);
    std::string ticker;
    const int syllables = bits % 3 == 0 ? 3 : 2;
    for (int i = 0; i < syllables; ++i) {
        ticker += kSyllables.at((bits >> (8 + 8 * i)) % kSyllables.size());
    }
    return ticker;
}

CoinFigures madeUpCoin(std::uint64_t index, std::string ticker) {
    CoinFigures coin;
    coin.name = ticker.substr(0, 1);
    for (const char letter : std::string_view{ticker}.substr(1)) {
        coin.name += static_cast<char>(letter - 'A' + 'a');
    }
    coin.asset = std::move(ticker);
    // From a hundred-thousandth of a dollar to ten dollars, evenly over the magnitudes.
    coin.price = std::pow(10.0, -5.0 + 6.0 * unitInterval(mixed(index + 1000003)));
    const auto rank = static_cast<double>(index);
    coin.dayVolume = 2.5 * kMillion * std::pow(0.985, std::min(rank, 400.0));
    coin.marketCap = coin.dayVolume * (5 + 20 * unitInterval(mixed(index + 2000003)));
    return coin;
}

}  // namespace

std::vector<CoinFigures> makeCoins(std::size_t count) {
    std::vector<CoinFigures> coins;
    coins.reserve(count);
    std::unordered_set<std::string> taken;
    for (const KnownCoin& known : knownCoins()) {
        taken.insert(known.asset);
        if (coins.size() < count) {
            coins.push_back({known.asset,
                             known.name,
                             known.price,
                             known.dayVolumeMillions * kMillion,
                             known.marketCapMillions * kMillion,
                             known.peg});
        }
    }
    for (std::uint64_t index = 0; coins.size() < count; ++index) {
        std::uint64_t attempt = 0;
        std::string ticker = madeUpTicker(index, attempt);
        while (!taken.insert(ticker).second) {
            // Rather a numbered name than a search without end once the short ones are used up.
            ++attempt;
            ticker = madeUpTicker(index, attempt) + (attempt > 8 ? std::to_string(index) : "");
        }
        coins.push_back(madeUpCoin(index, std::move(ticker)));
    }
    return coins;
}

}  // namespace quillbar::simulator
