// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/ModelJSON.h"

#include "QuillbarCore/model/JSONDocument.h"

#include <nlohmann/json.hpp>

namespace quillbar::ModelJSON {

using nlohmann::ordered_json;

namespace {

constexpr const char* kSymbol = "symbol";
constexpr const char* kBaseAsset = "baseAsset";
constexpr const char* kSchemaVersion = "schemaVersion";
constexpr const char* kCoins = "coins";
constexpr const char* kPinnedSymbol = "pinnedSymbol";

}  // namespace

ordered_json toJSON(const Coin& coin) {
    ordered_json value;
    value[kSymbol] = coin.symbol;
    value[kBaseAsset] = coin.baseAsset;
    return value;
}

ordered_json toJSON(const std::vector<Coin>& coins) {
    ordered_json value = ordered_json::array();
    for (const Coin& coin : coins) {
        value.push_back(toJSON(coin));
    }
    return value;
}

ordered_json toJSON(const Watchlist& watchlist) {
    ordered_json value;
    value[kSchemaVersion] = watchlist.schemaVersion;
    value[kCoins] = toJSON(watchlist.coins);
    if (watchlist.pinnedSymbol) {
        value[kPinnedSymbol] = *watchlist.pinnedSymbol;
    }
    return value;
}

Coin coinFromJSON(const ordered_json& value) {
    return {JSONDocument::requiredString(value, kSymbol),
            JSONDocument::requiredString(value, kBaseAsset)};
}

std::vector<Coin> coinsFromJSON(const ordered_json& value) {
    if (!value.is_array()) {
        throw DocumentError("the coins are not an array");
    }
    std::vector<Coin> coins;
    coins.reserve(value.size());
    for (const ordered_json& element : value) {
        coins.push_back(coinFromJSON(element));
    }
    return coins;
}

Watchlist watchlistFromJSON(const ordered_json& value) {
    Watchlist watchlist{JSONDocument::requiredInteger(value, kSchemaVersion),
                        coinsFromJSON(JSONDocument::requiredMember(value, kCoins))};
    if (JSONDocument::optionalMember(value, kPinnedSymbol) != nullptr) {
        watchlist.pinnedSymbol = JSONDocument::requiredString(value, kPinnedSymbol);
    }
    return watchlist;
}

}  // namespace quillbar::ModelJSON
