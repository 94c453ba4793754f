// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PinnedQuote.h"
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillbar {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

PinnedQuote bitcoin() {
    return {.coin = coinOf("BTC"),
            .ticker = Ticker{67234.5, 66417.56},
            .changePercent = 1.23,
            .freshness = PriceFreshness::live,
            .connection = ConnectionState::connected};
}

TEST(PinnedQuoteTest, isTheProgramsNameWithoutACoin) {
    EXPECT_EQ(PinnedQuote{}.text(), "Quillbar");
    EXPECT_FALSE(PinnedQuote{}.showsPrice());
    EXPECT_TRUE(PinnedQuote{}.isStale());
    EXPECT_EQ(PinnedQuote{}.direction(), LabelDirection::stale);
}

TEST(PinnedQuoteTest, isCoinPriceAndChange) {
    EXPECT_EQ(bitcoin().text(), "BTC 67,234.50 ▲ 1.23%");
    EXPECT_TRUE(bitcoin().showsPrice());
    EXPECT_FALSE(bitcoin().isStale());
}

TEST(PinnedQuoteTest, showsThePriceOfAStreamThatIsDown) {
    PinnedQuote quote = bitcoin();
    quote.freshness = PriceFreshness::stale;
    EXPECT_EQ(quote.text(), "BTC 67,234.50 ▲ 1.23%");
    EXPECT_TRUE(quote.showsPrice());
    EXPECT_TRUE(quote.isStale());
    EXPECT_EQ(quote.direction(), LabelDirection::stale);
}

TEST(PinnedQuoteTest, isTheCoinAloneWhenThePriceIsTooOld) {
    PinnedQuote quote = bitcoin();
    quote.freshness = PriceFreshness::none;
    EXPECT_EQ(quote.text(), "BTC");
    EXPECT_FALSE(quote.showsPrice());
    EXPECT_TRUE(quote.isStale());
}

TEST(PinnedQuoteTest, showsNoUnknownPrice) {
    PinnedQuote quote = bitcoin();
    quote.ticker.reset();
    EXPECT_FALSE(quote.showsPrice());
    EXPECT_EQ(quote.text(), "BTC");
    quote = bitcoin();
    quote.coin.reset();
    EXPECT_FALSE(quote.showsPrice());
    EXPECT_EQ(quote.text(), "Quillbar");
}

TEST(PinnedQuoteTest, pointsWhereTheChangeGoes) {
    PinnedQuote quote = bitcoin();
    EXPECT_EQ(quote.direction(), LabelDirection::up);
    quote.changePercent = -0.01;
    EXPECT_EQ(quote.direction(), LabelDirection::down);
    quote.changePercent = 0;
    EXPECT_EQ(quote.direction(), LabelDirection::flat);
    quote.changePercent.reset();
    EXPECT_EQ(quote.direction(), LabelDirection::flat);
    EXPECT_EQ(quote.text(), "BTC 67,234.50 —");
}

struct AppStatePinnedQuoteTest : AppStateFixture {
    [[nodiscard]] const PinnedQuote& quote() const { return *state->pinnedQuote(); }
};

TEST_F(AppStatePinnedQuoteTest, isThereFromTheStart) {
    theBasisIsToday();
    theUserHas(listOf({"BTC", "ETH"}));
    build();
    EXPECT_EQ(quote(), (PinnedQuote{.coin = coinOf("BTC"), .basis = ChangeBasis::today}));
}

TEST_F(AppStatePinnedQuoteTest, hasEverythingOfALivePrice) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 101);
    EXPECT_EQ(quote(),
              (PinnedQuote{.coin = coinOf("BTC"),
                           .ticker = Ticker{101, 100},
                           .changePercent = 1,
                           .freshness = PriceFreshness::live,
                           .connection = ConnectionState::connected}));
}

TEST_F(AppStatePinnedQuoteTest, keepsThePriceThatTheTextDrops) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.advance(Seconds(90));
    EXPECT_EQ(label(), "BTC");
    EXPECT_EQ(quote().freshness, PriceFreshness::none);
    EXPECT_EQ(quote().ticker, (Ticker{101, 100}));
    EXPECT_EQ(quote().changePercent, 1);
}

TEST_F(AppStatePinnedQuoteTest, isStaleWhileTheStreamIsDown) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    const Notes<PinnedQuote> quotes(state->pinnedQuote());
    tell(ConnectionState::waitingRetry);
    tell(ConnectionState::connected);
    ASSERT_THAT(quotes.values, SizeIs(2));
    EXPECT_EQ(quotes.values[0].connection, ConnectionState::waitingRetry);
    EXPECT_EQ(quotes.values[0].freshness, PriceFreshness::stale);
    EXPECT_EQ(quotes.values[1].connection, ConnectionState::connected);
    EXPECT_EQ(quotes.values[1].freshness, PriceFreshness::live);
}

TEST_F(AppStatePinnedQuoteTest, showsNoHeldBackPriceForAChangeOfTheConnection) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.advance(Seconds(0.5));
    price("BTC", 102);
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(label(), "BTC 101.00 ▲ 1.00%");
    EXPECT_EQ(quote().ticker, (Ticker{101, 100}));
    time.advance(Seconds(0.5));
    EXPECT_EQ(label(), "BTC 102.00 ▲ 2.00%");
    EXPECT_EQ(quote().freshness, PriceFreshness::stale);
}

TEST_F(AppStatePinnedQuoteTest, dropsNoPriceForAChangeOfTheConnection) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.advance(Seconds(75));
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(label(), "BTC 101.00 ▲ 1.00%");
    tell(ConnectionState::connected);
    EXPECT_EQ(quote().freshness, PriceFreshness::stale);
    time.advance(Seconds(15));
    EXPECT_EQ(label(), "BTC");
}

TEST_F(AppStatePinnedQuoteTest, tellsNobodyOfAConnectionThatStays) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    time.advance(Seconds(75));
    const Notes<PinnedQuote> quotes(state->pinnedQuote());
    tell(ConnectionState::connected);
    EXPECT_THAT(quotes.values, IsEmpty());
}

TEST_F(AppStatePinnedQuoteTest, staysTheSameWhenOtherCoinsChange) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 101);
    time.advance(Seconds(1));
    const Notes<PinnedQuote> quotes(state->pinnedQuote());
    price("ETH", 50);
    run(state->add(coinOf("SOL")));
    run(state->remove("ETHUSDT"));
    EXPECT_THAT(quotes.values, IsEmpty());
}

TEST_F(AppStatePinnedQuoteTest, followsThePinAndTheBasisAtOnce) {
    startConnected(listOf({"BTC", "ETH"}));
    price("BTC", 101);
    state->pin("ETHUSDT");
    EXPECT_EQ(quote(),
              (PinnedQuote{.coin = coinOf("ETH"), .connection = ConnectionState::connected}));
    state->pin("BTCUSDT");
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_EQ(quote().basis, ChangeBasis::today);
    EXPECT_EQ(quote().changePercent, std::nullopt);
    EXPECT_EQ(quote().direction(), LabelDirection::flat);
}

TEST_F(AppStatePinnedQuoteTest, existsForACoinThatIsNotPinned) {
    startConnected(listOf({"BTC", "ETH"}));
    price("ETH", 50);
    PinnedQuote ether{.coin = coinOf("ETH"),
                      .ticker = Ticker{50, 100},
                      .changePercent = -50,
                      .freshness = PriceFreshness::live,
                      .connection = ConnectionState::connected};
    EXPECT_EQ(state->quoteOf(coinOf("ETH")), ether);
    price("ETH", 60);
    EXPECT_EQ(state->quoteOf(coinOf("ETH")).ticker->lastPrice, 60);
    price("ETH", 50);
    time.advance(Seconds(60));
    EXPECT_EQ(state->quoteOf(coinOf("ETH")), ether);
    time.advance(Seconds(1));
    ether.freshness = PriceFreshness::none;
    EXPECT_EQ(state->quoteOf(coinOf("ETH")), ether);
    EXPECT_EQ(state->quoteOf(coinOf("SOL")),
              (PinnedQuote{.coin = coinOf("SOL"), .connection = ConnectionState::connected}));
}

TEST_F(AppStatePinnedQuoteTest, isWhatTheTextIsMadeFrom) {
    startConnected(listOf({"BTC"}));
    const Observation observation = state->menuBarText().observe(
        [&](const std::string& text) { EXPECT_EQ(text, quote().text()); });
    const Notes<std::string> labels(state->menuBarText());
    price("BTC", 101);
    time.advance(Seconds(90));
    price("BTC", 102);
    EXPECT_THAT(labels.values,
                testing::ElementsAre("BTC 101.00 ▲ 1.00%", "BTC", "BTC 102.00 ▲ 2.00%"));
}

}  // namespace
}  // namespace quillbar
