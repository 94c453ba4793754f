// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/AsciiText.h"
#include "simulator/Bodies.h"
#include "simulator/Coins.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace quillbar::simulator::Bodies {

namespace {

// As many coins as the service is known to rank here; more than one page of the largest size.
constexpr std::size_t kRankedCoins = 600;

struct Row {
    std::string id;
    std::string symbol;
    std::string name;
    std::optional<double> price;
    std::optional<double> marketCap;
    double dayVolume = 0;
};

std::string numberOrNull(std::optional<double> value) {
    return value ? fmt::format("{}", *value) : "null";
}

// The service's row for a coin, at the price of its USDT pair when the exchange lists one.
Row rowOf(const Market& market, const CoinFigures& coin) {
    Row row;
    row.symbol = lowerCased(coin.asset);
    row.name = coin.name;
    for (const char c : lowerCased(coin.name)) {
        row.id += c == ' ' ? '-' : c;
    }
    row.dayVolume = coin.dayVolume;
    double price = coin.price;
    const Listing* listing = market.find(coin.asset + "USDT");
    if (listing != nullptr && listing->status == ListingStatus::trading) {
        price = market.price(*listing);
    }
    row.price = price;
    row.marketCap = coin.marketCap / coin.price * price;
    return row;
}

// Falling market capitalisation, then the rows that make a reader careful: a bridged coin with a
// symbol that stands already, and coins without a price or a capitalisation.
std::vector<Row> rows(const Market& market) {
    static const std::vector<CoinFigures> kCoins = makeCoins(kRankedCoins);
    std::vector<Row> rows;
    rows.push_back({"tether", "usdt", "Tether", 1.0, 119'700e6, 48'000e6});
    rows.push_back({"staked-ether", "steth", "Lido Staked Ether", 3410.2, 33'400e6, 61e6});
    rows.push_back({"leo-token", "leo", "LEO Token", 6.02, 5'570e6, 1.9e6});
    rows.push_back({"bridged-usdc", "usdc", "Bridged USDC", 0.9996, 1'340e6, 210e6});
    rows.push_back({"pepe-of-wall-street", "pepe", "Pepe of Wall Street", 0.00412, 162e6, 0.4e6});
    for (const CoinFigures& coin : kCoins) {
        rows.push_back(rowOf(market, coin));
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
        return a.marketCap > b.marketCap;
    });
    rows.insert(rows.begin() + 40, {"unlaunched", "unl", "Unlaunched", 0.5, std::nullopt, 0});
    rows.insert(rows.begin() + 90, {"unpriced", "unp", "Unpriced", std::nullopt, std::nullopt, 0});
    return rows;
}

std::string jsonOf(const Row& row, int rank) {
    std::optional<double> supply;
    if (row.marketCap && row.price) {
        supply = *row.marketCap / *row.price;
    }
    return fmt::format(
        R"({{"id":"{0}","symbol":"{1}","name":"{2}","image":null,"current_price":{3},)"
        R"("market_cap":{4},"market_cap_rank":{5},"fully_diluted_valuation":{4},)"
        R"("total_volume":{6},"high_24h":null,"low_24h":null,"price_change_24h":null,)"
        R"("price_change_percentage_24h":null,"market_cap_change_24h":null,)"
        R"("market_cap_change_percentage_24h":null,"circulating_supply":{7},"total_supply":{7},)"
        R"("max_supply":null,"ath":null,"ath_change_percentage":null,"ath_date":null,"atl":null,)"
        R"("atl_change_percentage":null,"atl_date":null,"roi":null,"last_updated":null}})",
        row.id,
        row.symbol,
        row.name,
        numberOrNull(row.price),
        numberOrNull(row.marketCap),
        row.marketCap ? fmt::format("{}", rank) : "null",
        row.dayVolume,
        numberOrNull(supply));
}

}  // namespace

std::string coinMarkets(const Market& market, int perPage, int page) {
    std::string body = "[";
    std::string_view separator;
    int rank = 0;
    int position = 0;
    for (const Row& row : rows(market)) {
        rank += row.marketCap ? 1 : 0;
        if (position / perPage == page - 1) {
            body += separator;
            body += jsonOf(row, rank);
            separator = ",";
        }
        ++position;
    }
    return body + "]";
}

}  // namespace quillbar::simulator::Bodies
