// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Listing.h"

#include "simulator/Coins.h"
#include "simulator/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

namespace quillbar::simulator {

namespace {

// The first pairs, which every test and demonstration uses, trade at every step.
constexpr std::size_t kBusyCoins = 12;
constexpr int kPairsPerBlock = 5;

struct Quote {
    std::string_view asset;
    double dollars;
    double volumeShare;
    std::uint64_t deadPercent;
};

// In the share each has of the pairs that are not USDT pairs in trading. The USDT ones are dead.
constexpr std::array<Quote, 16> kQuotes{{{"USDC", 1, 0.2, 10},
                                         {"BTC", 67234.5, 0.05, 45},
                                         {"TRY", 0.0291, 0.03, 10},
                                         {"USDT", 1, 0, 100},
                                         {"ETH", 3412.6, 0.02, 55},
                                         {"FDUSD", 1, 0.15, 40},
                                         {"BTC", 67234.5, 0.05, 45},
                                         {"BNB", 598.4, 0.01, 70},
                                         {"BUSD", 1, 0, 100},
                                         {"EUR", 1.0847, 0.02, 35},
                                         {"BTC", 67234.5, 0.05, 45},
                                         {"USDC", 1, 0.2, 10},
                                         {"TUSD", 1, 0.01, 90},
                                         {"BRL", 0.1764, 0.01, 40},
                                         {"ETH", 3412.6, 0.02, 55},
                                         {"JPY", 0.00662, 0.01, 20}}};

int digitsFor(double price) {
    if (price >= 50) {
        return 2;
    }
    // Four to five significant digits, as the exchange's ticks have them.
    const int magnitude = static_cast<int>(std::floor(std::log10(price)));
    return std::clamp(3 - magnitude, 2, 8);
}

int lotDigitsFor(double price) {
    if (price >= 1000) {
        return 5;
    }
    return price >= 10 ? 3 : (price >= 0.1 ? 1 : 0);
}

double volatilityOf(const CoinFigures& coin, std::size_t rank) {
    if (coin.peg == Peg::pegged) {
        return 0.0004;
    }
    const double spread = unitInterval(mixed(rank + 500));
    return rank < 5 ? 0.02 + 0.004 * static_cast<double>(rank) : 0.035 + 0.06 * spread;
}

// Liquid pairs trade at every step, the quietest ones every half minute.
int tradePeriodOf(std::size_t rank, double dollarVolume) {
    if (rank < kBusyCoins) {
        return 1;
    }
    return std::clamp(static_cast<int>(3e7 / (dollarVolume + 1)), 1, 30);
}

Listing makeListing(const CoinFigures& coin, std::size_t rank, const Quote& quote) {
    Listing listing;
    listing.symbol = coin.asset + std::string{quote.asset};
    listing.baseAsset = coin.asset;
    listing.quoteAsset = quote.asset;
    listing.startPrice = coin.price / quote.dollars;
    listing.priceDigits = digitsFor(listing.startPrice);
    // A pair too cheap for eight digits would have no price at all.
    listing.startPrice = std::max(listing.startPrice, 0.00000040);
    listing.lotDigits = lotDigitsFor(coin.price);
    listing.quoteVolume = coin.dayVolume / quote.dollars;
    listing.tradePeriod = tradePeriodOf(rank, coin.dayVolume);
    listing.dailyVolatility = volatilityOf(coin, rank);
    for (const char c : listing.symbol) {
        listing.walkId = mixed(listing.walkId ^ static_cast<unsigned char>(c));
    }
    return listing;
}

// Hands out the pairs that are not USDT pairs in trading.
class OtherPairs final {
public:
    OtherPairs(const std::vector<CoinFigures>& coins, std::size_t liveCoins)
        : m_coins(coins)
        , m_liveCoins(liveCoins) {}

    Listing next() {
        const Quote& quote = kQuotes.at(m_turn % kQuotes.size());
        ++m_turn;
        // Dead USDT pairs are of coins that have no live one.
        const auto [place, isFirst] =
            m_nextCoin.try_emplace(quote.asset, quote.asset == "USDT" ? m_liveCoins : 0);
        if (m_coins[place->second].asset == quote.asset) {
            ++place->second;
        }
        const std::size_t rank = place->second++;
        Listing listing = makeListing(m_coins[rank], rank, quote);
        listing.quoteVolume *= quote.volumeShare;
        listing.tradePeriod = std::min(listing.tradePeriod * 3, 30);
        const std::uint64_t draw = listing.walkId % 100;
        if (draw < quote.deadPercent) {
            listing.status = ListingStatus::broken;
        } else if (draw == 99) {
            listing.status = ListingStatus::halted;
        }
        return listing;
    }

private:
    const std::vector<CoinFigures>& m_coins;
    std::size_t m_liveCoins;
    std::uint64_t m_turn = 0;
    std::unordered_map<std::string_view, std::size_t> m_nextCoin;
};

}  // namespace

std::string_view statusText(ListingStatus status) {
    switch (status) {
    case ListingStatus::trading:
        return "TRADING";
    case ListingStatus::halted:
        return "HALT";
    case ListingStatus::broken:
        return "BREAK";
    }
    return {};
}

std::vector<Listing> makeListings(int count) {
    constexpr Quote kTether{"USDT", 1, 1, 0};
    const auto wanted = static_cast<std::size_t>(count);
    const std::size_t live = (wanted + kPairsPerBlock - 1) / kPairsPerBlock;
    // No quote asset has more than three in sixteen of the others; the dead USDT pairs add one.
    const std::vector<CoinFigures> coins = makeCoins(live + wanted / 4 + 8);
    OtherPairs others(coins, live);
    std::vector<Listing> listings;
    listings.reserve(wanted);
    for (std::size_t i = 0; i < wanted; ++i) {
        const std::size_t rank = i / kPairsPerBlock;
        listings.push_back(i % kPairsPerBlock == 0 ? makeListing(coins[rank], rank, kTether)
                                                   : others.next());
    }
    return listings;
}

}  // namespace quillbar::simulator
