// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Watchlist.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

/// The watchlist's edits, each written step by step as its contract tells it and with no thought of
/// speed: the judge of the real ones.
namespace quillbar::NaiveWatchlist {

[[nodiscard]] Watchlist adding(Watchlist list, const Coin& coin);
[[nodiscard]] Watchlist addingAll(Watchlist list, const std::vector<Coin>& coins);
[[nodiscard]] Watchlist removing(Watchlist list, const std::string& symbol);
[[nodiscard]] Watchlist moving(Watchlist list,
                               const std::set<std::size_t>& fromOffsets,
                               std::size_t toOffset);
[[nodiscard]] Watchlist pinning(Watchlist list, const std::string& symbol);

/// The first rule that the list breaks, of those that every edit must keep on a list that began
/// empty; "consistent" when it breaks none.
[[nodiscard]] std::string isConsistent(const Watchlist& list);

}  // namespace quillbar::NaiveWatchlist
