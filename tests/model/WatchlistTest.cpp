// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/Watchlist.h"
#include "tests/model/NaiveWatchlist.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Offsets = std::set<std::size_t>;

/// The list of these base assets in USDT, with that one pinned.
Watchlist listOf(const std::vector<std::string>& bases,
                 const std::optional<std::string>& pinnedBase = std::nullopt) {
    Watchlist list;
    for (const std::string& base : bases) {
        list.coins.push_back({base + "USDT", base});
    }
    if (pinnedBase) {
        list.pinnedSymbol = *pinnedBase + "USDT";
    }
    return list;
}

/// "C0", "C1" and so on.
std::vector<std::string> numbered(std::size_t count) {
    std::vector<std::string> bases;
    for (std::size_t index = 0; index < count; ++index) {
        bases.push_back("C" + std::to_string(index));
    }
    return bases;
}

std::vector<std::string> basesOf(const Watchlist& list) {
    std::vector<std::string> bases;
    for (const Coin& coin : list.coins) {
        bases.push_back(coin.baseAsset);
    }
    return bases;
}

TEST(Watchlist, startsWithFourCoinsAndBitcoinPinned) {
    EXPECT_EQ(Watchlist::defaultWatchlist(), listOf({"BTC", "ETH", "SOL", "BNB"}, "BTC"));
    EXPECT_EQ(Watchlist::defaultWatchlist().schemaVersion, 1);
    EXPECT_EQ(Watchlist::kCurrentSchemaVersion, 1);
    EXPECT_EQ(&Watchlist::defaultWatchlist(), &Watchlist::defaultWatchlist());
}

TEST(Watchlist, followsThePinnedCoinOfAListThatIsTooLong) {
    const std::vector<std::string> bases = numbered(Watchlist::kMaximumFollowed + 2);
    const std::vector<std::string> first = listOf(bases).followedSymbols();
    ASSERT_EQ(first.size(), Watchlist::kMaximumFollowed);
    EXPECT_EQ(first.front(), "C0USDT");
    EXPECT_EQ(first.back(), "C1023USDT");
    EXPECT_EQ(listOf(bases, "C5").followedSymbols(), first);
    EXPECT_EQ(listOf(bases, "GONE").followedSymbols(), first);
    const std::vector<std::string> withPinned = listOf(bases, "C1025").followedSymbols();
    ASSERT_EQ(withPinned.size(), Watchlist::kMaximumFollowed);
    EXPECT_EQ(withPinned[1022], "C1022USDT");
    EXPECT_EQ(withPinned.back(), "C1025USDT");
}

TEST(Watchlist, equalityComparesAllFields) {
    const Watchlist list = listOf({"BTC", "ETH"}, "BTC");
    EXPECT_EQ(list, listOf({"BTC", "ETH"}, "BTC"));
    EXPECT_NE(list, listOf({"ETH", "BTC"}, "BTC"));
    EXPECT_NE(list, listOf({"BTC", "ETH"}, "ETH"));
    EXPECT_NE(list, listOf({"BTC", "ETH"}));
    Watchlist later = list;
    later.schemaVersion = 2;
    EXPECT_NE(list, later);
}

TEST(Watchlist, addsACoinAtTheEndWithoutPinningIt) {
    EXPECT_EQ(listOf({"BTC"}, "BTC").adding({"ETHUSDT", "ETH"}), listOf({"BTC", "ETH"}, "BTC"));
    EXPECT_EQ(listOf({}).adding({"ETHUSDT", "ETH"}), listOf({"ETH"}));
}

TEST(Watchlist, addingASymbolOfTheListChangesNothingEvenWithAnotherBaseAsset) {
    const Watchlist list = listOf({"BTC", "ETH"}, "ETH");
    EXPECT_EQ(list.adding({"BTCUSDT", "XBT"}), list);
}

TEST(Watchlist, addsSeveralCoinsInTheirOrderAndEachOnce) {
    const Watchlist list = listOf({"BTC", "ETH"}, "BTC");
    EXPECT_EQ(list.addingAll({{"SOLUSDT", "SOL"},
                              {"ETHUSDT", "OTHER"},
                              {"ADAUSDT", "ADA"},
                              {"SOLUSDT", "AGAIN"},
                              {"BNBUSDT", "BNB"}}),
              listOf({"BTC", "ETH", "SOL", "ADA", "BNB"}, "BTC"));
    EXPECT_EQ(list.addingAll({}), list);
}

TEST(Watchlist, addsMoreCoinsThanGetPrices) {
    const std::vector<std::string> many = numbered(Watchlist::kMaximumFollowed + 2);
    const Watchlist list = listOf({"BTC"}, "BTC").addingAll(listOf(many).coins);
    EXPECT_EQ(list.coins.size(), Watchlist::kMaximumFollowed + 3);
    EXPECT_EQ(list.followedSymbols().size(), Watchlist::kMaximumFollowed);
}

TEST(Watchlist, tellsSymbolsApartByCaseAndSpaces) {
    const Watchlist list = listOf({"BTC"}, "BTC");
    EXPECT_EQ(list.adding({"btcusdt", "btc"}).coins.size(), 2U);
    EXPECT_EQ(list.removing("BTCUSDT "), list);
    EXPECT_EQ(list.pinning("btcusdt"), list);
}

TEST(Watchlist, findsTheFirstCoinOfASymbol) {
    const Watchlist list = listOf({"BTC", "ETH", "SOL", "ETH"});
    EXPECT_EQ(list.indexOf("BTCUSDT"), 0U);
    EXPECT_EQ(list.indexOf("ETHUSDT"), 1U);
    EXPECT_EQ(list.indexOf("BNBUSDT"), std::nullopt);
    EXPECT_EQ(listOf({}).indexOf(""), std::nullopt);
}

TEST(Watchlist, removingThePinnedCoinPinsTheFirstOneLeft) {
    const Watchlist list = listOf({"BTC", "ETH", "SOL"}, "BTC");
    EXPECT_EQ(list.removing("BTCUSDT"), listOf({"ETH", "SOL"}, "ETH"));
    EXPECT_EQ(listOf({"BTC", "ETH", "SOL"}, "SOL").removing("SOLUSDT"),
              listOf({"BTC", "ETH"}, "BTC"));
}

TEST(Watchlist, removingTheLastCoinLeavesNoPin) {
    const Watchlist left = listOf({"BTC"}, "BTC").removing("BTCUSDT");
    EXPECT_THAT(left.coins, IsEmpty());
    EXPECT_EQ(left.pinnedSymbol, std::nullopt);
}

TEST(Watchlist, removingAnotherCoinKeepsThePinOrItsAbsence) {
    EXPECT_EQ(listOf({"BTC", "ETH"}, "BTC").removing("ETHUSDT"), listOf({"BTC"}, "BTC"));
    EXPECT_EQ(listOf({"BTC", "ETH"}).removing("BTCUSDT"), listOf({"ETH"}));
}

TEST(Watchlist, removingAnUnknownSymbolChangesNothing) {
    const Watchlist list = listOf({"BTC", "ETH"}, "BTC");
    EXPECT_EQ(list.removing("SOLUSDT"), list);
    const Watchlist withStrayPin = listOf({"BTC", "ETH"}, "SOL");
    EXPECT_EQ(withStrayPin.removing("SOLUSDT"), withStrayPin);
}

TEST(Watchlist, removesEveryCoinOfTheSymbol) {
    Watchlist list = listOf({"BTC", "ETH", "BTC"}, "ETH");
    EXPECT_EQ(list.removing("BTCUSDT"), listOf({"ETH"}, "ETH"));
}

TEST(Watchlist, movesCoinsInFrontOfTheDestination) {
    const Watchlist list = listOf({"A", "B", "C", "D"}, "C");
    EXPECT_THAT(basesOf(list.moving({0}, 3)), ElementsAre("B", "C", "A", "D"));
    EXPECT_THAT(basesOf(list.moving({3}, 0)), ElementsAre("D", "A", "B", "C"));
    EXPECT_THAT(basesOf(list.moving({0, 2}, 4)), ElementsAre("B", "D", "A", "C"));
    EXPECT_THAT(basesOf(list.moving({1, 3}, 2)), ElementsAre("A", "B", "D", "C"));
    EXPECT_EQ(list.moving({0}, 3).pinnedSymbol, "CUSDT");
}

TEST(Watchlist, movingACoinToItsOwnPlaceChangesNothing) {
    const Watchlist list = listOf({"A", "B", "C", "D"}, "C");
    EXPECT_EQ(list.moving({1}, 1), list);
    EXPECT_EQ(list.moving({1}, 2), list);
    EXPECT_EQ(list.moving({0, 1, 2, 3}, 2), list);
}

TEST(Watchlist, movingNothingChangesNothing) {
    const Watchlist list = listOf({"A", "B"}, "A");
    EXPECT_EQ(list.moving({}, 0), list);
    EXPECT_EQ(list.moving({}, 2), list);
    EXPECT_EQ(listOf({}).moving({}, 0), listOf({}));
}

TEST(WatchlistDeathTest, abortsOnAMoveThatLeavesTheList) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const Watchlist list = listOf({"A", "B"});
    EXPECT_DEATH(static_cast<void>(list.moving({2}, 0)), "an offset that is not on the list");
    EXPECT_DEATH(static_cast<void>(list.moving({0, 7}, 0)), "an offset that is not on the list");
    EXPECT_DEATH(static_cast<void>(list.moving({0}, 3)), "a destination past the list's end");
}

TEST(Watchlist, pinsACoinOfTheList) {
    const Watchlist list = listOf({"BTC", "ETH"}, "BTC");
    EXPECT_EQ(list.pinning("ETHUSDT"), listOf({"BTC", "ETH"}, "ETH"));
    EXPECT_EQ(listOf({"BTC"}).pinning("BTCUSDT"), listOf({"BTC"}, "BTC"));
}

TEST(Watchlist, pinningAnUnknownSymbolLeavesTheOldPin) {
    const Watchlist list = listOf({"BTC", "ETH"}, "BTC");
    EXPECT_EQ(list.pinning("SOLUSDT"), list);
}

TEST(Watchlist, everyEditKeepsTheSchemaVersionAndLeavesTheReceiver) {
    Watchlist list = listOf({"BTC", "ETH", "SOL"}, "BTC");
    list.schemaVersion = 7;
    const Watchlist before = list;
    EXPECT_EQ(list.adding({"BNBUSDT", "BNB"}).schemaVersion, 7);
    EXPECT_EQ(list.addingAll({{"BNBUSDT", "BNB"}}).schemaVersion, 7);
    EXPECT_EQ(list.removing("BTCUSDT").schemaVersion, 7);
    EXPECT_EQ(list.moving({0}, 2).schemaVersion, 7);
    EXPECT_EQ(list.pinning("ETHUSDT").schemaVersion, 7);
    EXPECT_EQ(list, before);
}

/// Random edits on a short list, each made by the real operation and by the naive one.
class RandomEdits {
public:
    /// The list after one more edit, as both make it.
    std::pair<Watchlist, Watchlist> edit(const Watchlist& list) {
        const std::string base(1, static_cast<char>('A' + below(8)));
        const std::string symbol = base + "USDT";
        switch (below(5)) {
        case 0:
            return {list.adding({symbol, base}), NaiveWatchlist::adding(list, {symbol, base})};
        case 3: {
            const std::vector<Coin> coins = {{symbol, base}, {"ZUSDT", "Z"}, {symbol, "AGAIN"}};
            return {list.addingAll(coins), NaiveWatchlist::addingAll(list, coins)};
        }
        case 1:
            return {list.removing(symbol), NaiveWatchlist::removing(list, symbol)};
        case 2:
            return {list.pinning(symbol), NaiveWatchlist::pinning(list, symbol)};
        default:
            const Offsets offsets = someOffsets(list.coins.size());
            const std::size_t destination = below(list.coins.size() + 1);
            return {list.moving(offsets, destination),
                    NaiveWatchlist::moving(list, offsets, destination)};
        }
    }

private:
    std::size_t below(std::size_t bound) { return m_engine() % bound; }

    Offsets someOffsets(std::size_t count) {
        Offsets offsets;
        for (std::size_t offset = 0; offset < count; ++offset) {
            if (below(3) == 0) {
                offsets.insert(offset);
            }
        }
        return offsets;
    }

    std::mt19937_64 m_engine{20261115};
};

TEST(Watchlist, randomEditsAgreeWithTheNaiveOnesAndKeepTheListConsistent) {
    RandomEdits edits;
    Watchlist list;
    for (int count = 0; count < 20'000; ++count) {
        const auto [real, naive] = edits.edit(list);
        ASSERT_EQ(real, naive) << "edit " << count;
        ASSERT_EQ(NaiveWatchlist::isConsistent(real), "consistent") << "edit " << count;
        list = real;
    }
}

}  // namespace
}  // namespace quillbar
