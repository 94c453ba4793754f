// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quillbar {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

/// A keeper of alerts on BTC, last known at 100: what it writes, and what it tells of that.
struct AlertKeeperFileTest : AppStateFixture {
    AlertKeeperFileTest() {
        startConnected(listOf({"BTC", "ETH"}));
        begin();
        price("BTC", 100);
    }
    /// Also after an end of the program, which comes at once and without a word.
    void begin() {
        keeper.reset();
        keeper = std::make_unique<AlertKeeper>(
            AlertKeeperDependencies{.executor = executor,
                                    .appState = *state,
                                    .store = AlertStore(folder.path(), files),
                                    .now = time.clock(),
                                    .monotonic = time.monotonicClock(),
                                    .sleeper = time.sleeper()});
    }
    std::int64_t add(double threshold, std::optional<double> margin = std::nullopt) {
        return keeper
            ->add(
                {.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = threshold, .margin = margin})
            .value();
    }
    [[nodiscard]] Alerts stored() { return AlertStore(folder.path()).load(); }

    std::unique_ptr<AlertKeeper> keeper;
};

TEST_F(AlertKeeperFileTest, aPriceThatArmsAnAlertIsStoredAndTold) {
    add(90);
    ASSERT_FALSE(stored().alerts.at(0).isArmed);
    const Notes told(keeper->alerts());
    price("BTC", 89);
    EXPECT_TRUE(stored().alerts.at(0).isArmed);
    ASSERT_EQ(told.values.size(), 1U);
    EXPECT_TRUE(told.values.front().at(0).isArmed);
}

TEST_F(AlertKeeperFileTest, anAlertIsArmedByThePriceAndNotByWhoAddsIt) {
    ASSERT_TRUE(keeper->add({.symbol = "SOLUSDT", .threshold = 90, .isArmed = true}));
    ASSERT_TRUE(keeper->add({.symbol = "BTCUSDT", .threshold = 90, .isArmed = true}));
    ASSERT_TRUE(keeper->add({.symbol = "BTCUSDT", .threshold = 110}));
    EXPECT_FALSE(keeper->alerts()->at(0).isArmed) << "no price of it is known";
    EXPECT_FALSE(keeper->alerts()->at(1).isArmed);
    EXPECT_TRUE(keeper->alerts()->at(2).isArmed);
}

TEST_F(AlertKeeperFileTest, anAlertIsArmedByTheValueThatWasSeenWhenItWasChosen) {
    ASSERT_TRUE(keeper->add({.symbol = "BTCUSDT", .threshold = 90}, 89));
    ASSERT_TRUE(keeper->add({.symbol = "BTCUSDT", .threshold = 90}, 90));
    EXPECT_TRUE(keeper->alerts()->at(0).isArmed);
    EXPECT_FALSE(keeper->alerts()->at(1).isArmed) << "it was there already";
}

TEST_F(AlertKeeperFileTest, aNumberIsGivenOnceThoughTheProgramBeginsAgain) {
    const std::int64_t first = add(110);
    const std::int64_t second = add(120);
    EXPECT_EQ(second, first + 1);
    begin();
    EXPECT_EQ(add(130), second + 1);
    keeper->remove(second + 1);
    begin();
    EXPECT_EQ(add(140), second + 2) << "not even one that is free again";
}

TEST_F(AlertKeeperFileTest, whatChangesNothingWritesNothing) {
    add(110, 5);
    price("BTC", 111);
    files.calls.clear();
    keeper->remove(77);
    keeper->markShown(77);
    keeper->restore("BTCUSDT");
    run(state->remove("ETHUSDT"));
    keeper->restore("ETHUSDT");
    EXPECT_EQ(keeper->add({.symbol = "BTCUSDT", .threshold = 0}), std::nullopt);
    price("BTC", 112);
    const std::string replaced = "rename " + (folder.path() / "alerts.json").string();
    EXPECT_THAT(files.calls, Not(Contains(replaced)));
    add(120);
    EXPECT_THAT(files.calls, Contains(replaced));
}

TEST_F(AlertKeeperFileTest, theLogTellsWhatFired) {
    const std::int64_t id = add(110);
    price("BTC", 111);
    EXPECT_THAT(
        log.lines("AlertKeeper"),
        ElementsAre("AlertKeeper|default|alert " + std::to_string(id) + " of BTCUSDT fired"));
}

}  // namespace
}  // namespace quillbar
