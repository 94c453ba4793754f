// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/DocumentError.h"
#include "QuillbarCore/model/Watchlist.h"

#include <nlohmann/json_fwd.hpp>
#include <vector>

/// The JSON form of stored values, with the names and the order of their fields as keys. Keys are
/// matched exactly and unknown ones ignored. Every reader throws DocumentError for a value of
/// another shape. No writer throws; JSONDocument::compactText does, for a text that is not UTF-8.
///
/// - Coin: {"symbol":"BTCUSDT","baseAsset":"BTC"}, both required strings;
/// - Watchlist: {"schemaVersion":1,"coins":[…],"pinnedSymbol":"BTCUSDT"}; the pin is written only
///   when there is one, and absent or null on reading when there is none. The version is not
///   checked.
namespace quillbar::ModelJSON {

[[nodiscard]] nlohmann::ordered_json toJSON(const Coin& coin);
[[nodiscard]] nlohmann::ordered_json toJSON(const std::vector<Coin>& coins);
[[nodiscard]] nlohmann::ordered_json toJSON(const Watchlist& watchlist);

[[nodiscard]] Coin coinFromJSON(const nlohmann::ordered_json& value);
[[nodiscard]] std::vector<Coin> coinsFromJSON(const nlohmann::ordered_json& value);
[[nodiscard]] Watchlist watchlistFromJSON(const nlohmann::ordered_json& value);

}  // namespace quillbar::ModelJSON
