// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/CoinGeckoDecoder.h"

#include "QuillbarCore/catalog/SearchText.h"
#include "QuillbarCore/exchange/NetworkJSON.h"

#include <cmath>
#include <cstdint>
#include <optional>

namespace quillbar {

namespace {

using NetworkJSON::Element;
using NetworkJSON::Fields;

constexpr Fields<4>::Keys kKeys{"symbol", "current_price", "market_cap", "market_cap_rank"};
// A double holds every integer up to this one exactly.
constexpr double kLargestInteger = 9007199254740992.0;

std::optional<std::int64_t> optionalRank(const Fields<4>& fields) {
    const std::optional<double> rank = fields.optionalNumber(3);
    if (!rank) {
        return std::nullopt;
    }
    if (std::trunc(*rank) != *rank || std::abs(*rank) > kLargestInteger) {
        NetworkJSON::throwWrongType(kKeys[3], "an integer");
    }
    return static_cast<std::int64_t>(*rank);
}

std::optional<MarketCapEntry> entryOf(Element row) {
    const Fields<4> fields(row, "a coin", kKeys);
    const auto symbol = fields.optionalString(0);
    const auto price = fields.optionalNumber(1);
    const auto marketCap = fields.optionalNumber(2);
    const auto rank = optionalRank(fields);
    if (!symbol || !rank || !(marketCap > 0.0) || !(price > 0.0)) {
        return std::nullopt;
    }
    MarketCapEntry entry{.symbol = SearchText::upperCased(*symbol),
                         .rank = *rank,
                         .marketCap = *marketCap,
                         .referencePrice = *price};
    if (entry.symbol.empty()) {
        return std::nullopt;
    }
    return entry;
}

}  // namespace

std::vector<MarketCapEntry> CoinGeckoDecoder::decodeMarkets(std::string_view bytes) {
    return NetworkJSON::decode(bytes, [](Element root) {
        std::vector<MarketCapEntry> entries;
        for (const Element row : NetworkJSON::array(root, "the answer")) {
            if (auto entry = entryOf(row)) {
                entries.push_back(std::move(*entry));
            }
        }
        return entries;
    });
}

}  // namespace quillbar
