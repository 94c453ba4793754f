// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// The user's coins in the user's own order, one of them pinned. A plain value: every edit leaves
/// the receiver untouched and returns another one; copy it freely between threads. Equality
/// compares all three fields.
///
/// Symbols are compared exactly and case-sensitively. Any string is accepted as a symbol: callers
/// offer only coins of the exchange's catalogue.
struct Watchlist final {
    /// The version of the stored document that this program writes and understands.
    static constexpr std::int64_t kCurrentSchemaVersion = 1;

    /// The most coins that get prices: the exchange streams no more on one connection.
    static constexpr std::size_t kMaximumFollowed = 1024;

    /// Version of the stored document; kept by every edit.
    std::int64_t schemaVersion = kCurrentSchemaVersion;
    /// The coins in the user's order. adding() and addingAll() keep their symbols unique.
    std::vector<Coin> coins;
    /// Symbol of the coin that the menu bar shows; absent when none is pinned. A stored document
    /// may name a coin that is not on the list.
    std::optional<std::string> pinnedSymbol = std::nullopt;

    /// The list of a first start: BTC, ETH, SOL and BNB in USDT, BTCUSDT pinned. Built once;
    /// the reference stays valid for the life of the process.
    [[nodiscard]] static const Watchlist& defaultWatchlist();

    /// The place of the first coin with exactly this symbol; absent if it is not on the list.
    [[nodiscard]] std::optional<std::size_t> indexOf(std::string_view symbol) const;
    /// Whether a coin with exactly this symbol is on the list.
    [[nodiscard]] bool contains(std::string_view symbol) const {
        return indexOf(symbol).has_value();
    }

    /// The symbols of the coins that get prices, in the list's order: the first `kMaximumFollowed`.
    /// If the pinned coin stands behind those, it takes the place of the last of them.
    [[nodiscard]] std::vector<std::string> followedSymbols() const;

    /// The list with the coin at its end. Unchanged when the symbol is already there: the stored
    /// coin keeps its base asset. Never pins.
    [[nodiscard]] Watchlist adding(const Coin& coin) const;
    /// The same for each of the coins in turn. Of several with one symbol only the first is added.
    [[nodiscard]] Watchlist addingAll(const std::vector<Coin>& added) const;

    /// The list without the coins of this symbol, the rest in their order. If it was pinned, the
    /// first remaining coin is pinned, or none if there is none. Unchanged for a symbol that is not
    /// on the list.
    [[nodiscard]] Watchlist removing(std::string_view symbol) const;

    /// The list after a drag and drop: the coins at the offsets are moved, in their order, in front
    /// of the coin at the destination, or to the end for coins.size(). The pin is kept. Unchanged
    /// without offsets.
    ///
    /// Aborts the process, after a line on stderr, for an offset that is not on the list or a
    /// destination past its end: that is a mistake of the caller.
    [[nodiscard]] Watchlist moving(const std::set<std::size_t>& fromOffsets,
                                   std::size_t toOffset) const;

    /// The list with this symbol pinned. Unchanged, an existing pin included, for a symbol that is
    /// not on the list.
    [[nodiscard]] Watchlist pinning(std::string_view symbol) const;

    [[nodiscard]] bool operator==(const Watchlist&) const = default;
};

}  // namespace quillbar
