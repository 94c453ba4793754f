// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Lists of coins as people write them: "BTC, eth; SOL/USDT". Pure; for any thread. Texts are
/// UTF-8; bytes that are not become U+FFFD.
namespace quillbar::CoinNames {

/// How many bytes of a text are read. Enough for two thousand coins.
inline constexpr std::size_t kMaximumBytes = 16'384;

/// The names that a text holds.
struct List final {
    /// In upper case, each once, in the order of the text.
    std::vector<std::string> names = {};
    /// Whether the text was too long, so that its end was not read.
    bool isCut = false;

    [[nodiscard]] bool operator==(const List&) const = default;
};

/// The result of looking names up in a catalogue.
struct Found final {
    /// Each once, in the order of the names.
    std::vector<Coin> coins = {};
    /// The names that belong to no coin, in their order.
    std::vector<std::string> unknown = {};

    [[nodiscard]] bool operator==(const Found&) const = default;
};

/// Reads a list. Names are separated as in `SearchText::words`. Of a longer text only the first
/// `kMaximumBytes` are read, without the last name in them, which may be cut off.
[[nodiscard]] List parse(std::string_view text);

/// Looks up names in a catalogue. A coin's name is its base asset ("SOL"), its symbol ("SOLUSDT"),
/// or its pair with a stroke ("SOL/USDT", "SOL-USDT", "SOL_USDT"). Base assets are tried before
/// symbols, and of coins with the same name the catalogue's first is found. `names` are in upper
/// case; the catalogue may be in any case.
[[nodiscard]] Found find(const std::vector<std::string>& names, const std::vector<Coin>& catalog);

/// Writes a list that `parse` and `find` understand: the base assets, "BTC, ETH, SOL". A coin whose
/// symbol does not begin with its base asset is named by its symbol. The text is one line, without
/// control sequences for a terminal.
[[nodiscard]] std::string textOf(const std::vector<Coin>& coins);

}  // namespace quillbar::CoinNames
