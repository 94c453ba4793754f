// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/state/AppStateFixture.h"
#include "tests/support/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

using Symbols = std::vector<std::string>;

constexpr const char* kNotSaved = "设置未能保存到磁盘";

struct AppStateWatchlistTest : AppStateFixture {
    /// Forgets what was asked and saved so far.
    void forget() {
        stream.symbolLists.clear();
        api.ticker24hRequests.clear();
        api.klinesRequests.clear();
        files.calls.clear();
    }

    [[nodiscard]] bool hasSaved() const { return !files.calls.empty(); }
    /// How often a file was put in its place.
    [[nodiscard]] std::ptrdiff_t saves() const {
        return std::count_if(files.calls.begin(), files.calls.end(), [](const std::string& call) {
            return call.starts_with("rename ");
        });
    }
};

TEST_F(AppStateWatchlistTest, addsACoinSavesSubscribesAndFetchesItsPriceAndOpen) {
    theBasisIsToday();
    theOpenIs(100);
    startConnected(listOf({"BTC"}));
    time.advance(Seconds(60));
    forget();
    theSnapshotIs({{"ETHUSDT", Ticker{50, 40}}});
    run(state->add(coinOf("ETH")));
    Watchlist expected = listOf({"BTC", "ETH"});
    EXPECT_EQ(*state->watchlist(), expected);
    EXPECT_EQ(storedList(), expected);
    EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{"BTCUSDT", "ETHUSDT"}));
    EXPECT_THAT(api.ticker24hRequests, ElementsAre(Symbols{"BTCUSDT", "ETHUSDT"}));
    EXPECT_EQ(opensAskedFor(), Symbols{"ETHUSDT"});
    EXPECT_EQ(ticker("ETH"), (Ticker{50, 40}));
    EXPECT_EQ(todayOpen("ETH"), 100);
}

TEST_F(AppStateWatchlistTest, followsAListOfItsOwnInPlaceOfTheStoredOne) {
    theUserHas(listOf({"BTC"}));
    ownList = listOf({"SOL", "ETH"});
    start();
    EXPECT_EQ(*state->watchlist(), listOf({"SOL", "ETH"}));
    EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{"SOLUSDT", "ETHUSDT"}));
    EXPECT_EQ(storedList(), listOf({"BTC"}));
}

TEST_F(AppStateWatchlistTest, savesAnAddedCoinBeforeAnythingIsFetched) {
    startConnected(listOf({"BTC"}));
    const auto snapshot = api.ticker24hAnswers.held();
    run(state->add(coinOf("ETH")));
    EXPECT_FALSE(snapshot.isSettled());
    EXPECT_EQ(storedList(), listOf({"BTC", "ETH"}));
}

TEST_F(AppStateWatchlistTest, addsSeveralCoinsWithOneSaveAndOneSubscription) {
    theBasisIsToday();
    theOpenIs(100);
    startConnected(listOf({"BTC"}));
    time.advance(Seconds(60));
    forget();
    const Notes<Watchlist> lists(state->watchlist());
    run(state->addAll({coinOf("ETH"), coinOf("BTC"), coinOf("SOL"), coinOf("ETH")}));
    const Watchlist expected = listOf({"BTC", "ETH", "SOL"});
    EXPECT_THAT(lists.values, ElementsAre(expected));
    EXPECT_EQ(storedList(), expected);
    EXPECT_EQ(saves(), 1);
    EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{"BTCUSDT", "ETHUSDT", "SOLUSDT"}));
    EXPECT_THAT(api.ticker24hRequests, ElementsAre(Symbols{"BTCUSDT", "ETHUSDT", "SOLUSDT"}));
    EXPECT_EQ(opensAskedFor(), (Symbols{"ETHUSDT", "SOLUSDT"}));
}

TEST_F(AppStateWatchlistTest, doesNothingAtAllForCoinsThatAreAllListed) {
    startConnected(listOf({"BTC", "ETH"}));
    forget();
    run(state->addAll({coinOf("ETH"), coinOf("BTC")}));
    run(state->addAll({}));
    EXPECT_FALSE(hasSaved());
    EXPECT_THAT(stream.symbolLists, IsEmpty());
    EXPECT_THAT(api.ticker24hRequests, IsEmpty());
}

TEST_F(AppStateWatchlistTest, doesNothingAtAllForACoinThatIsListed) {
    startConnected(listOf({"BTC"}));
    forget();
    Notes<Watchlist> lists(state->watchlist());
    run(state->add(Coin{"BTCUSDT", "OTHER"}));
    EXPECT_EQ(*state->watchlist(), listOf({"BTC"}));
    EXPECT_THAT(lists.values, IsEmpty());
    EXPECT_FALSE(hasSaved());
    EXPECT_THAT(stream.symbolLists, IsEmpty());
    EXPECT_THAT(api.ticker24hRequests, IsEmpty());
}

TEST_F(AppStateWatchlistTest, removesACoinWithItsPricesAndSubscribesTheRest) {
    theBasisIsToday();
    theOpenIs(100);
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 110);
    price("ETH", 110);
    forget();
    run(state->remove("BTCUSDT"));
    EXPECT_EQ(*state->watchlist(), listOf({"ETH"}));
    EXPECT_EQ(storedList(), listOf({"ETH"}));
    EXPECT_EQ(ticker("BTC"), std::nullopt);
    EXPECT_EQ(todayOpen("BTC"), std::nullopt);
    EXPECT_EQ(ticker("ETH"), (Ticker{110, 100}));
    EXPECT_EQ(todayOpen("ETH"), 100);
    EXPECT_EQ(label(), "ETH 110.00 ▲10.00%");
    EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{"ETHUSDT"}));
    EXPECT_THAT(api.ticker24hRequests, IsEmpty());
}

TEST_F(AppStateWatchlistTest, removesTheLastCoin) {
    startConnected(listOf({"BTC"}));
    forget();
    run(state->remove("BTCUSDT"));
    EXPECT_EQ(*state->watchlist(), listOf({}));
    EXPECT_EQ(label(), "Quillbar");
    EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{}));
}

TEST_F(AppStateWatchlistTest, doesNothingAtAllForASymbolThatIsNotListed) {
    startConnected(listOf({"BTC"}));
    price("OLD", 7);
    forget();
    run(state->remove("OLDUSDT"));
    EXPECT_FALSE(hasSaved());
    EXPECT_THAT(stream.symbolLists, IsEmpty());
    EXPECT_EQ(ticker("OLD"), (Ticker{7, 100}));
}

TEST_F(AppStateWatchlistTest, movesCoinsAndLeavesTheSubscription) {
    startConnected(listOf({"BTC", "ETH", "SOL"}));
    forget();
    run(state->move({0}, 3));
    Watchlist expected = listOf({"ETH", "SOL", "BTC"});
    expected.pinnedSymbol = "BTCUSDT";
    EXPECT_EQ(*state->watchlist(), expected);
    EXPECT_EQ(storedList(), expected);
    EXPECT_THAT(stream.symbolLists, IsEmpty());
    EXPECT_THAT(api.ticker24hRequests, IsEmpty());
}

TEST_F(AppStateWatchlistTest, doesNothingAtAllWhenTheOrderStays) {
    startConnected(listOf({"BTC", "ETH"}));
    forget();
    Notes<Watchlist> lists(state->watchlist());
    run(state->move({0}, 0));
    run(state->move({0}, 1));
    run(state->move({}, 2));
    EXPECT_THAT(lists.values, IsEmpty());
    EXPECT_FALSE(hasSaved());
}

TEST_F(AppStateWatchlistTest, pinsAndSaves) {
    startConnected(listOf({"BTC", "ETH"}));
    state->pin("ETHUSDT");
    EXPECT_EQ(state->watchlist()->pinnedSymbol, "ETHUSDT");
    EXPECT_EQ(storedList().pinnedSymbol, "ETHUSDT");
    EXPECT_EQ(label(), "ETH");
}

TEST_F(AppStateWatchlistTest, savesAPinThatChangesNothingWithoutTellingObservers) {
    startConnected(listOf({"BTC"}));
    Notes<Watchlist> lists(state->watchlist());
    for (const char* const symbol : {"BTCUSDT", "UNKNOWNUSDT"}) {
        forget();
        state->pin(symbol);
        EXPECT_TRUE(hasSaved()) << symbol;
        EXPECT_EQ(state->watchlist()->pinnedSymbol, "BTCUSDT");
    }
    EXPECT_THAT(lists.values, IsEmpty());
}

TEST_F(AppStateWatchlistTest, keepsEveryEditInMemoryWhenTheSaveFails) {
    startConnected(listOf({"BTC", "ETH"}));
    const auto expectFailure = [&](const Watchlist& expected) {
        EXPECT_EQ(*state->watchlist(), expected);
        EXPECT_EQ(*state->lastError(), kNotSaved);
        EXPECT_THAT(log.lines("AppState"),
                    ElementsAre(StartsWith("AppState|error|failed to persist watchlist: cannot ")));
        EXPECT_EQ(storedList(), listOf({"BTC", "ETH"}));
        log.clear();
    };
    files.breakAll();
    run(state->add(coinOf("SOL")));
    expectFailure(listOf({"BTC", "ETH", "SOL"}));
    run(state->remove("BTCUSDT"));
    expectFailure(listOf({"ETH", "SOL"}));
    run(state->move({0}, 2));
    Watchlist moved = listOf({"SOL", "ETH"});
    moved.pinnedSymbol = "ETHUSDT";
    expectFailure(moved);
    state->pin("SOLUSDT");
    expectFailure(listOf({"SOL", "ETH"}));
}

TEST_F(AppStateWatchlistTest, clearsTheErrorAtTheNextSaveThatSucceeds) {
    startConnected(listOf({"BTC"}));
    Notes<std::optional<std::string>> errors(state->lastError());
    files.breakAll();
    state->pin("BTCUSDT");
    state->pin("BTCUSDT");
    files.repair();
    state->pin("BTCUSDT");
    state->pin("BTCUSDT");
    EXPECT_THAT(errors.values, ElementsAre(kNotSaved, std::nullopt));
}

TEST_F(AppStateWatchlistTest, subscribesAndFetchesTheCoinThatCouldNotBeSaved) {
    startConnected(listOf({"BTC"}));
    forget();
    files.breakAll();
    run(state->add(coinOf("ETH")));
    EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{"BTCUSDT", "ETHUSDT"}));
    EXPECT_THAT(api.ticker24hRequests, ElementsAre(Symbols{"BTCUSDT", "ETHUSDT"}));
}

TEST_F(AppStateWatchlistTest, showsTheFailureOfEverySystemCallAndKeepsTheOldFileWhole) {
    const std::string file = folder.path() / "watchlist.json";
    for (std::size_t broken = 0;; ++broken) {
        SCOPED_TRACE(broken);
        theUserHas(listOf({"BTC", "ETH"}));
        build();
        files.calls.clear();
        files.breakCall(broken);
        state->pin("ETHUSDT");
        const bool isReplaced = files.succeeded("rename " + file);
        EXPECT_EQ(storedList().pinnedSymbol, isReplaced ? "ETHUSDT" : "BTCUSDT");
        EXPECT_EQ(state->watchlist()->pinnedSymbol, "ETHUSDT");
        if (!isReplaced) {
            EXPECT_EQ(*state->lastError(), kNotSaved);
        }
        if (files.calls.size() <= broken) {
            EXPECT_EQ(*state->lastError(), std::nullopt);
            EXPECT_GE(broken, 7U);
            break;
        }
        files.repair();
    }
}

TEST_F(AppStateWatchlistTest, keepsADamagedListBesideTheFirstSave) {
    writeContents(folder.path() / "watchlist.json", "my list");
    build();
    EXPECT_EQ(*state->watchlist(), Watchlist::defaultWatchlist());
    state->pin("ETHUSDT");
    EXPECT_EQ(storedList().pinnedSymbol, "ETHUSDT");
    EXPECT_EQ(contentsOf(folder.path() / "watchlist.json.bak"), "my list");
}

}  // namespace
}  // namespace quillbar
