// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Symbols = std::vector<std::string>;

struct AppStateStartTest : AppStateFixture {};

TEST_F(AppStateStartTest, loadsTheDefaultsAtAFirstStart) {
    build();
    EXPECT_EQ(*state->watchlist(), Watchlist::defaultWatchlist());
    EXPECT_EQ(*state->settings(), AppSettings::defaultSettings());
    EXPECT_EQ(label(), "BTC");
    EXPECT_EQ(*state->connectionState(), ConnectionState::disconnected);
    EXPECT_EQ(*state->lastUpdate(), std::nullopt);
    EXPECT_EQ(*state->lastError(), std::nullopt);
    EXPECT_THAT(*state->tickers(), IsEmpty());
    EXPECT_THAT(*state->todayOpens(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "watchlist.json"));
}

TEST_F(AppStateStartTest, loadsWhatTheUserHas) {
    theUserHas(listOf({"SOL"}));
    theUserHas(AppSettings::defaultSettings().settingLastBoard(RankingBoard::volume));
    build();
    EXPECT_EQ(*state->watchlist(), listOf({"SOL"}));
    EXPECT_EQ(state->settings()->lastBoard, RankingBoard::volume);
}

TEST_F(AppStateStartTest, connectsToNothingBeforeItIsTold) {
    build();
    executor.run();
    EXPECT_THAT(stream.symbolLists, IsEmpty());
    EXPECT_THAT(api.ticker24hRequests, IsEmpty());
    EXPECT_EQ(time.sleepingCount(), 0U);
}

TEST_F(AppStateStartTest, offersTheCatalogItWasGiven) {
    EXPECT_EQ(&build().catalog(), &catalog);
}

TEST_F(AppStateStartTest, subscribesThenFetchesTheSnapshotThenTodaysOpens) {
    theUserHas(listOf({"BTC", "ETH"}));
    theBasisIsToday();
    const auto snapshot = api.ticker24hAnswers.held();
    start();
    EXPECT_EQ(time.requested, (std::vector<double>{30}));
    EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{"BTCUSDT", "ETHUSDT"}));
    EXPECT_THAT(api.ticker24hRequests, ElementsAre(Symbols{"BTCUSDT", "ETHUSDT"}));
    EXPECT_THAT(api.klinesRequests, IsEmpty());
    snapshot.setValue({});
    executor.run();
    EXPECT_EQ(opensAskedFor(), (Symbols{"BTCUSDT", "ETHUSDT"}));
}

TEST_F(AppStateStartTest, listensWhileTheSnapshotIsOnItsWay) {
    theUserHas(listOf({"BTC"}));
    const auto snapshot = api.ticker24hAnswers.held();
    start();
    price("BTC", 110);
    EXPECT_EQ(label(), "BTC 110.00 ▲10.00%");
    EXPECT_FALSE(snapshot.isSettled());
}

TEST_F(AppStateStartTest, subscribesAnEmptyListAndFetchesNothing) {
    theUserHas(listOf({}));
    theBasisIsToday();
    start();
    EXPECT_THAT(stream.symbolLists, ElementsAre(Symbols{}));
    EXPECT_THAT(api.ticker24hRequests, IsEmpty());
    EXPECT_THAT(api.klinesRequests, IsEmpty());
    EXPECT_EQ(*state->lastUpdate(), std::nullopt);
}

TEST_F(AppStateStartTest, followsNoMoreCoinsThanOneConnectionTakesButAlwaysThePinnedOne) {
    std::vector<std::string> baseAssets;
    for (int index = 0; index < 1030; ++index) {
        baseAssets.push_back("C" + std::to_string(index));
    }
    Watchlist list = listOf(baseAssets);
    theUserHas(list.pinning(symbolOf("C1029")));
    start();
    const auto& followed = stream.symbolLists.back();
    ASSERT_EQ(followed.size(), 1024U);
    EXPECT_EQ(followed.front(), symbolOf("C0"));
    EXPECT_EQ(followed[1022], symbolOf("C1022"));
    EXPECT_EQ(followed.back(), symbolOf("C1029"));
    EXPECT_EQ(api.ticker24hRequests.back(), followed);
}

struct AppStateLifetimeTest : AppStateFixture {};

TEST_F(AppStateLifetimeTest, stopsListeningAndWatchingWhenItIsDestroyed) {
    startConnected(listOf({"BTC"}));
    EXPECT_EQ(time.sleepingCount(), 1U);
    state.reset();
    EXPECT_EQ(time.sleepingCount(), 0U);
    stream.ticker("BTCUSDT", Ticker{1, 1});
    executor.run();
    time.advance(Seconds(600));
    EXPECT_THAT(stream.symbolLists, SizeIs(1));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(AppStateLifetimeTest, endsABackgroundRefreshWhenItIsDestroyed) {
    startConnected(listOf({"BTC"}));
    const auto open = api.klinesAnswers.held();
    state->setChangeBasis(ChangeBasis::today);
    executor.run();
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 1U);
    state.reset();
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 0U);
    open.setValue(candlesFrom(1));
    executor.run();
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(AppStateLifetimeTest, mayBeDestroyedOnceTheStartIsCancelled) {
    theUserHas(listOf({"BTC"}));
    const auto snapshot = api.ticker24hAnswers.held();
    start();
    EXPECT_EQ(api.ticker24hAnswers.waitingCount(), 1U);
    scope.cancelAll();
    executor.run();
    state.reset();
    snapshot.setValue({{"BTCUSDT", Ticker{1, 1}}});
    executor.run();
    EXPECT_THAT(log.lines(), IsEmpty());
}

}  // namespace
}  // namespace quillbar
