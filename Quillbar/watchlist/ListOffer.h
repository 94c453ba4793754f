// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/catalog/CoinNames.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quillbar {

/// What the search offers for a list of names: to add all coins that are not watched yet. A plain
/// value.
struct ListOffer final {
    /// How many names a text tells one by one. Of more it tells the number.
    static constexpr std::size_t kNamed = 8;
    /// Where a name is cut in a text, in bytes of UTF-8. It may be anything that was pasted.
    static constexpr std::size_t kLongestName = 16;

    /// What was read, and what of it the catalogue knows.
    CoinNames::List list = {};
    CoinNames::Found found = {};
    /// The coins to add, in the order of the names.
    std::vector<Coin> fresh = {};
    /// Those that are on the watchlist.
    std::vector<Coin> watched = {};

    /// The offer to who has this watchlist. Pure.
    [[nodiscard]] static ListOffer of(CoinNames::List list,
                                      CoinNames::Found found,
                                      const Watchlist& watchlist);

    /// "添加 3 个币种".
    [[nodiscard]] QString title() const;
    /// The coins to add, such as "SOL、ADA、BNB".
    [[nodiscard]] QString names() const;
    /// What cannot be added, a line each: the names of no coin, the coins that are watched, and
    /// that the text was too long.
    [[nodiscard]] QStringList notes() const;
    /// All of it for a screen reader.
    [[nodiscard]] QString spoken() const;
};

}  // namespace quillbar
