// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A keeper whose coins BTC and ETH were last known at 100: what it keeps, and for how long.
struct AlertKeeperPausesTest : AppStateFixture {
    AlertKeeperPausesTest() {
        startConnected(listOf({"BTC", "ETH"}));
        begin();
        price("BTC", 100);
        price("ETH", 100);
    }
    /// Also after an end of the program, which comes at once and without a word.
    void begin() {
        keeper.reset();
        keeper = std::make_unique<AlertKeeper>(AlertKeeperDependencies{
            .executor = executor,
            .appState = *state,
            .store = AlertStore(folder.path(), files),
            .now = time.clock(),
            .monotonic = [this] { return time.monotonicClock()() + asleep; },
            .sleeper = time.sleeper()});
    }
    std::int64_t add(const std::string& baseAsset, double threshold) {
        return keeper
            ->add({.symbol = symbolOf(baseAsset), .baseAsset = baseAsset, .threshold = threshold})
            .value();
    }
    /// The coins of what fired and was not shown.
    [[nodiscard]] std::vector<std::string> fired() const {
        std::vector<std::string> coins;
        for (const FiredAlert& each : *keeper->fired()) {
            coins.push_back(each.alert.baseAsset);
        }
        return coins;
    }

    // For how long the machine has slept without a timer that noticed it.
    Seconds asleep{};
    std::unique_ptr<AlertKeeper> keeper;
};

TEST_F(AlertKeeperPausesTest, aPauseOfExactlyAMinuteIsNone) {
    add("BTC", 110);
    asleep = AlertKeeper::kMaximumAge;
    price("BTC", 110);
    EXPECT_THAT(fired(), ElementsAre("BTC"));
}

TEST_F(AlertKeeperPausesTest, theTimeBeforeTheFirstAlertIsNoPause) {
    time.advance(Seconds(7200));
    add("BTC", 110);
    price("BTC", 110);
    EXPECT_THAT(fired(), ElementsAre("BTC"));
}

TEST_F(AlertKeeperPausesTest, theTimeBetweenTwoAlertsIsNoPause) {
    keeper->remove(add("BTC", 110));
    time.advance(Seconds(7200));
    add("BTC", 110);
    price("BTC", 110);
    EXPECT_THAT(fired(), ElementsAre("BTC"));
}

TEST_F(AlertKeeperPausesTest, whatIsHeldBackWhenTheMachineSleepsNeverFires) {
    add("ETH", 110);
    add("BTC", 200);
    time.advance(Seconds(61));
    price("ETH", 120);
    asleep = Seconds(7200);
    price("BTC", 100);
    time.advance(Seconds(75));
    // Prices that come after a silence are held back; that of ETH is not among them.
    price("BTC", 101);
    time.advance(Seconds(5));
    EXPECT_THAT(fired(), IsEmpty());
    EXPECT_TRUE(keeper->has("ETHUSDT"));
}

TEST_F(AlertKeeperPausesTest, whatIsHeldBackGoesWithTheLastAlert) {
    const std::int64_t id = add("ETH", 110);
    time.advance(Seconds(61));
    price("ETH", 120);
    keeper->remove(id);
    price("ETH", 100);
    add("ETH", 110);
    time.advance(Seconds(61));
    price("BTC", 100);
    time.advance(Seconds(5));
    EXPECT_THAT(fired(), IsEmpty()) << "120 was the price before the alert";
}

TEST_F(AlertKeeperPausesTest, theNextAlertDoesNotWaitForWhatWasHeldBackBeforeIt) {
    const std::int64_t id = add("ETH", 110);
    time.advance(Seconds(61));
    price("ETH", 105);
    keeper->remove(id);
    add("ETH", 110);
    price("ETH", 111);
    EXPECT_THAT(fired(), ElementsAre("ETH"));
}

TEST_F(AlertKeeperPausesTest, watchingBeginsAgainAfterItHasEnded) {
    const std::size_t before = time.sleepingCount();
    keeper->remove(add("BTC", 110));
    add("BTC", 120);
    executor.run();
    EXPECT_EQ(time.sleepingCount(), before + 1);
}

}  // namespace
}  // namespace quillbar
