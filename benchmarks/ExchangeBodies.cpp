// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/ExchangeBodies.h"

#include "simulator/Market.h"

#include <chrono>
#include <cstddef>

namespace quillbar::benchmarks::ExchangeBodies {

namespace {

constexpr std::uint64_t kSeed = 1;
constexpr int kListed = 2000;
constexpr int kTickers = 2500;
constexpr int kCoinMarkets = 250;

simulator::Market market(int listed) {
    return {kSeed, listed, simulator::MarketTime(std::chrono::milliseconds(1'794'657'600'000))};
}

}  // namespace

std::string exchangeInfo() {
    return simulator::Bodies::exchangeInfo(market(kListed));
}

std::string tickers(simulator::Bodies::TickerForm form) {
    const simulator::Market all = market(kTickers);
    std::vector<const simulator::Listing*> listings;
    for (const simulator::Listing& listing : all.listings()) {
        listings.push_back(&listing);
    }
    return simulator::Bodies::tickers(all, listings, form);
}

std::vector<std::string> frames(int count) {
    simulator::Market all = market(kListed);
    std::vector<std::string> frames;
    while (true) {
        all.step();
        for (const simulator::Listing& listing : all.listings()) {
            if (static_cast<int>(frames.size()) == count) {
                return frames;
            }
            if (listing.quoteAsset == "USDT"
                && listing.status == simulator::ListingStatus::trading) {
                frames.push_back(simulator::Bodies::miniTickerFrame(all, listing));
            }
        }
    }
}

std::string coinMarkets() {
    return simulator::Bodies::coinMarkets(market(kListed), kCoinMarkets, 1);
}

}  // namespace quillbar::benchmarks::ExchangeBodies
