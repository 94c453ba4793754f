// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Lists of coins as people write them: "BTC, eth; SOL/USDT". Pure; for any thread. Texts are UTF-8;
/// bytes that are not become U+FFFD.
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

/// What of some names a catalogue knows.
struct Found final {
    /// Each once, in the order of the names.
    std::vector<Coin> coins = {};
    /// The names of no coin, in their order.
    std::vector<std::string> unknown = {};

    [[nodiscard]] bool operator==(const Found&) const = default;
};

/// Reads a list. Names are separated as `SearchText::words` tells. Of a text longer than
/// `kMaximumBytes` only the beginning is read, and the name at its end, which may be a part of
/// another one, is left out.
[[nodiscard]] List parse(std::string_view text);

/// Looks up names in a catalogue. A coin's name is its base asset ("SOL"), its symbol ("SOLUSDT"), or
/// its pair with a stroke ("SOL/USDT", "SOL-USDT", "SOL_USDT"). A base asset goes before a symbol,
/// and of coins with one name the catalogue's first is found. Names are in upper case; for the
/// catalogue case does not matter.
[[nodiscard]] Found find(const std::vector<std::string>& names, const std::vector<Coin>& catalog);

/// Writes a list that `parse` and `find` understand: the base assets, "BTC, ETH, SOL". A coin whose
/// symbol does not begin with its base asset is named by its symbol. The text has one line and
/// nothing in it that commands a terminal.
[[nodiscard]] std::string textOf(const std::vector<Coin>& coins);

}  // namespace quillbar::CoinNames
