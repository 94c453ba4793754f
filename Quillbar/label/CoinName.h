// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"

#include <optional>
#include <string_view>

namespace quillbar {

/// The coin that the user names: "ETH", "ETH/USDT" or "ETHUSDT", in upper or lower case. Absent for
/// a pair of another quote asset, and for a text that cannot be the name of a coin: it is empty, or
/// has spaces or punctuation in it. Whether the exchange has the coin is another matter. Pure.
[[nodiscard]] std::optional<Coin> coinNamed(std::string_view name);

}  // namespace quillbar
