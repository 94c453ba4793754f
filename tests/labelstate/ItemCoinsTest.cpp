// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ItemCoins.h"
#include "Quillbar/labelstate/StateLabelSource.h"
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The item over a list of three coins, of which BTC is pinned; each has a price.
class ItemCoinsTest : public AppStateFixture {
protected:
    void begin(const LabelPreferences& label = {},
               const Watchlist& list = listOf({"BTC", "ETH", "SOL"})) {
        // Both look at the state of an earlier beginning.
        m_source.reset();
        m_coins.reset();
        startConnected(list);
        for (const Coin& coin : list.coins) {
            price(coin.baseAsset, 101);
        }
        // The label's second.
        time.advance(1s);
        set(label);
        m_coins = std::make_unique<ItemCoins>(ItemCoins::Dependencies{.state = *state,
                                                                      .preferences = m_preferences,
                                                                      .executor = executor,
                                                                      .sleeper = time.sleeper()});
        m_source =
            std::make_unique<StateLabelSource>(*state, m_isStarted, &m_preferences, m_coins.get());
        m_source->observe([this] { m_told.push_back(m_source->snapshot().text); });
        executor.run();
    }
    void beginRotating(int seconds = 5) {
        begin({.coins = LabelCoins::rotating, .rotationSeconds = seconds});
    }
    void set(const LabelPreferences& label) {
        m_preferences.set(Preferences{}.settingLabel(label));
        executor.run();
    }
    void turn(int places) {
        m_coins->turn(places);
        executor.run();
    }
    /// What the item names: the coin, or "Quillbar".
    [[nodiscard]] std::string shown() const {
        const LabelSnapshot snapshot = m_source->snapshot();
        return snapshot.quote.coin ? snapshot.quote.coin->baseAsset : snapshot.text;
    }
    [[nodiscard]] std::vector<std::string> beside() const {
        std::vector<std::string> names;
        for (const PinnedQuote& quote : m_source->snapshot().beside) {
            names.push_back(quote.text());
        }
        return names;
    }
    /// What is shown at the beginning of each of so many spans.
    std::vector<std::string> shownEach(Seconds span, int count) {
        std::vector<std::string> names;
        for (int i = 0; i < count; ++i) {
            names.push_back(shown());
            time.advance(span);
        }
        return names;
    }

    Observed<bool> m_isStarted{true};
    Observed<Preferences> m_preferences;
    std::unique_ptr<ItemCoins> m_coins;
    std::unique_ptr<StateLabelSource> m_source;
    std::vector<std::string> m_told;
};

TEST_F(ItemCoinsTest, areThePinnedOneAloneUnlessToldOtherwise) {
    begin();
    EXPECT_THAT(shownEach(15s, 3), ElementsAre("BTC", "BTC", "BTC"));
    EXPECT_THAT(beside(), IsEmpty());
    m_told.clear();
    price("ETH", 102);
    EXPECT_THAT(m_told, IsEmpty());
}

TEST_F(ItemCoinsTest, takeTurnsInTheListsOrderBeginningWithThePinnedOne) {
    for (const int seconds : kAllRotationSeconds) {
        beginRotating(seconds);
        EXPECT_THAT(shownEach(Seconds(seconds), 5), ElementsAre("BTC", "ETH", "SOL", "BTC", "ETH"));
    }
}

TEST_F(ItemCoinsTest, takeTurnsAtTheEndOfEachSpan) {
    beginRotating();
    time.advance(4.9s);
    EXPECT_EQ(shown(), "BTC");
    time.advance(0.1s);
    EXPECT_EQ(shown(), "ETH");
    EXPECT_EQ(*state->menuBarText(), "BTC 101.00 ▲ 1.00%") << "the pin stays";
}

TEST_F(ItemCoinsTest, areToldAtEachTurnAndForEachPriceAtMostOnceASecond) {
    beginRotating();
    m_told.clear();
    time.advance(5s);
    EXPECT_THAT(m_told, ElementsAre("ETH 101.00 ▲ 1.00%"));
    price("ETH", 102);
    time.advance(0.5s);
    price("ETH", 103);
    EXPECT_EQ(m_told.back(), "ETH 102.00 ▲ 2.00%");
    EXPECT_EQ(m_told.size(), 2U);
    time.advance(0.5s);
    EXPECT_EQ(m_told.back(), "ETH 103.00 ▲ 3.00%");
    EXPECT_EQ(m_coins->shown()->instead, state->quoteOf(coinOf("ETH")));
}

TEST_F(ItemCoinsTest, beginWithThePinnedOneWhenTheRotationIsSwitchedOffAndOn) {
    beginRotating();
    time.advance(5s);
    set({.coins = LabelCoins::pinned});
    EXPECT_THAT(shownEach(60s, 3), ElementsAre("BTC", "BTC", "BTC"));
    set({.coins = LabelCoins::rotating, .rotationSeconds = 5});
    EXPECT_THAT(shownEach(5s, 2), ElementsAre("BTC", "ETH"));
}

TEST_F(ItemCoinsTest, restWhileTheNumbersAreHidden) {
    beginRotating();
    time.advance(5s);
    set({.isDiscreet = true, .coins = LabelCoins::rotating, .rotationSeconds = 5});
    EXPECT_THAT(shownEach(5s, 3), ElementsAre("Quillbar", "Quillbar", "Quillbar"));
    turn(1);
    EXPECT_EQ(shown(), "Quillbar");
    EXPECT_EQ(*m_coins->shown(), ItemCoins::Shown{});
    set({.coins = LabelCoins::rotating, .rotationSeconds = 5});
    EXPECT_THAT(shownEach(5s, 2), ElementsAre("BTC", "ETH"));
}

TEST_F(ItemCoinsTest, goOnWhenSomethingElseIsChosen) {
    beginRotating();
    time.advance(5s);
    set({.wording = LabelWording::price, .coins = LabelCoins::rotating, .rotationSeconds = 5});
    EXPECT_EQ(shown(), "ETH");
    time.advance(5s);
    EXPECT_EQ(shown(), "SOL");
}

TEST_F(ItemCoinsTest, followTheListAndBeginAnewWithAnotherPin) {
    beginRotating();
    time.advance(5s);
    run(state->add(coinOf("BNB")));
    EXPECT_EQ(shown(), "ETH");
    run(state->remove("ETHUSDT"));
    EXPECT_EQ(shown(), "BTC");
    state->pin("SOLUSDT");
    EXPECT_THAT(shownEach(5s, 4), ElementsAre("SOL", "BNB", "BTC", "SOL"));
}

TEST_F(ItemCoinsTest, takeTurnsAlsoWhereNoneIsPinned) {
    Watchlist list = listOf({"BTC", "ETH"});
    list.pinnedSymbol.reset();
    begin({.coins = LabelCoins::rotating, .rotationSeconds = 5}, list);
    EXPECT_THAT(shownEach(5s, 4), ElementsAre("Quillbar", "BTC", "ETH", "BTC"));
}

TEST_F(ItemCoinsTest, ofAnEmptyListAreNone) {
    begin({.coins = LabelCoins::rotating, .rotationSeconds = 5}, Watchlist{});
    EXPECT_THAT(shownEach(5s, 2), ElementsAre("Quillbar", "Quillbar"));
    turn(1);
    EXPECT_EQ(shown(), "Quillbar");
}

TEST_F(ItemCoinsTest, giveWayToAPinAtOnce) {
    beginRotating();
    time.advance(5s);
    EXPECT_EQ(shown(), "ETH");
    state->pin("SOLUSDT");
    EXPECT_THAT(shownEach(5s, 2), ElementsAre("SOL", "BTC"));
}

// The wheel.

TEST_F(ItemCoinsTest, followTheWheelForTenSeconds) {
    begin();
    turn(1);
    EXPECT_EQ(shown(), "ETH");
    time.advance(9.9s);
    EXPECT_EQ(shown(), "ETH");
    time.advance(0.1s);
    EXPECT_EQ(shown(), "BTC");
    EXPECT_EQ(state->watchlist()->pinnedSymbol, "BTCUSDT");
    turn(-1);
    EXPECT_EQ(shown(), "SOL");
}

TEST_F(ItemCoinsTest, turnOnRoundAndRoundWithTheTimeOfTheLastTurn) {
    begin();
    for (const char* const name : {"ETH", "SOL", "BTC", "ETH"}) {
        turn(1);
        EXPECT_EQ(shown(), name);
        time.advance(6s);
        EXPECT_EQ(shown(), name);
    }
}

TEST_F(ItemCoinsTest, turnOnceForTheManyStepsOfATouchpad) {
    begin();
    for (int i = 0; i < 20; ++i) {
        turn(1);
    }
    EXPECT_EQ(shown(), "ETH");
    time.advance(ItemCoins::kTurnPause);
    turn(1);
    EXPECT_EQ(shown(), "SOL");
}

TEST_F(ItemCoinsTest, takeTurnsAgainAfterTheWheel) {
    beginRotating();
    turn(-1);
    EXPECT_EQ(shown(), "SOL");
    time.advance(10s);
    EXPECT_THAT(shownEach(5s, 3), ElementsAre("BTC", "ETH", "SOL"));
}

// Side by side.

TEST_F(ItemCoinsTest, standBesideThePinnedOneAsFarAsThereIsRoom) {
    Watchlist list = listOf({"BTC", "ETH", "SOL", "BNB"});
    list.pinnedSymbol = "ETHUSDT";
    begin({.coins = LabelCoins::sideBySide}, list);
    EXPECT_EQ(shown(), "ETH");
    EXPECT_THAT(beside(), ElementsAre("BTC 101.00 ▲ 1.00%", "SOL 101.00 ▲ 1.00%"));
    m_told.clear();
    price("SOL", 102);
    EXPECT_EQ(m_told.size(), 1U);
    EXPECT_THAT(beside(), ElementsAre("BTC 101.00 ▲ 1.00%", "SOL 102.00 ▲ 2.00%"));
    price("BNB", 102);
    EXPECT_EQ(m_told.size(), 1U);
    run(state->remove("BTCUSDT"));
    EXPECT_THAT(beside(), ElementsAre("SOL 102.00 ▲ 2.00%", "BNB 102.00 ▲ 2.00%"));
}

TEST_F(ItemCoinsTest, standBesideNothing) {
    Watchlist list = listOf({"BTC", "ETH"});
    list.pinnedSymbol.reset();
    begin({.coins = LabelCoins::sideBySide}, list);
    EXPECT_THAT(beside(), IsEmpty());
}

TEST_F(ItemCoinsTest, standAsideForTheWheel) {
    begin({.coins = LabelCoins::sideBySide});
    turn(1);
    EXPECT_EQ(shown(), "ETH");
    EXPECT_THAT(beside(), IsEmpty());
    time.advance(10s);
    EXPECT_EQ(shown(), "BTC");
    EXPECT_EQ(beside().size(), 2U);
}

TEST_F(ItemCoinsTest, showNoPriceBesideThatIsTooOld) {
    begin({.coins = LabelCoins::sideBySide});
    time.advance(AppState::kStaleDataThreshold + 1s);
    EXPECT_THAT(beside(), ElementsAre("ETH", "SOL"));
}

}  // namespace

}  // namespace quillbar
