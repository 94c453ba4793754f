// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/DocumentError.h"
#include "QuillbarCore/model/Watchlist.h"

#include <nlohmann/json_fwd.hpp>
#include <vector>

/// The JSON form of the values that are stored, in the keys and the order of their fields. Keys are
/// matched exactly and unknown ones ignored. Every reader throws DocumentError for a value of
/// another shape; no writer throws (JSONDocument::compactText does, for what is not UTF-8).
///
/// - Coin: {"symbol":"BTCUSDT","baseAsset":"BTC"}, both required strings;
/// - Watchlist: {"schemaVersion":1,"coins":[…],"pinnedSymbol":"BTCUSDT"}; the pin is written only
///   when there is one, and absent or null on reading when there is none. The version is not
///   judged.
namespace quillbar::ModelJSON {

[[nodiscard]] nlohmann::ordered_json toJSON(const Coin& coin);
[[nodiscard]] nlohmann::ordered_json toJSON(const std::vector<Coin>& coins);
[[nodiscard]] nlohmann::ordered_json toJSON(const Watchlist& watchlist);

[[nodiscard]] Coin coinFromJSON(const nlohmann::ordered_json& value);
[[nodiscard]] std::vector<Coin> coinsFromJSON(const nlohmann::ordered_json& value);
[[nodiscard]] Watchlist watchlistFromJSON(const nlohmann::ordered_json& value);

}  // namespace quillbar::ModelJSON
