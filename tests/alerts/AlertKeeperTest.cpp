// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/alerts/AlertKeeperFixture.h"
#include "tests/support/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using AlertKeeperTest = AlertKeeperFixture;

TEST_F(AlertKeeperTest, firesOnALivePrice) {
    begin();
    price("BTC", 100);
    const std::int64_t id = add(110);
    price("BTC", 109);
    EXPECT_THAT(fired(), IsEmpty());
    price("BTC", 111);
    ASSERT_THAT(fired(), ElementsAre("BTC 111"));
    const FiredAlert& first = keeper->fired()->front();
    EXPECT_EQ(first.alert.id, id);
    EXPECT_DOUBLE_EQ(first.changePercent, 11);
    EXPECT_EQ(first.time, 1794657600);
    EXPECT_THAT(*keeper->alerts(), IsEmpty());
}

TEST_F(AlertKeeperTest, anAlertIsArmedOnlyByAPriceOnTheNearSide) {
    begin();
    price("BTC", 100);
    add(90);
    EXPECT_FALSE(keeper->alerts()->front().isArmed);
    price("BTC", 101);
    EXPECT_THAT(fired(), IsEmpty());
    price("BTC", 89);
    price("BTC", 90);
    EXPECT_THAT(fired(), ElementsAre("BTC 90"));
}

TEST_F(AlertKeeperTest, theFirstPriceOfAPairFiresNothing) {
    begin();
    add(110);
    price("BTC", 120);
    EXPECT_THAT(fired(), IsEmpty());
}

TEST_F(AlertKeeperTest, aSnapshotFiresNothing) {
    begin();
    price("BTC", 100);
    add(110);
    theSnapshotIs({{"BTCUSDT", {120, 100}}});
    run(state->refreshSnapshot());
    ASSERT_EQ(ticker("BTC")->lastPrice, 120);
    EXPECT_THAT(fired(), IsEmpty());
    price("BTC", 120);
    EXPECT_THAT(fired(), ElementsAre("BTC 120")) << "also by a price that is stored already";
}

TEST_F(AlertKeeperTest, afterALostConnectionALineCrossedMeanwhileIsToldAsSuch) {
    begin();
    price("BTC", 100);
    add(110);
    tell(ConnectionState::waitingRetry);
    time.advance(Seconds(20));
    tell(ConnectionState::connected);
    price("BTC", 120);
    EXPECT_THAT(fired(), ElementsAre("BTC ~120"));
}

TEST_F(AlertKeeperTest, afterASleepWhatWasReceivedBeforeItFiresNothing) {
    begin();
    price("BTC", 100);
    add(110);
    time.jump(Seconds(7200));
    price("BTC", 120);
    EXPECT_THAT(fired(), IsEmpty()) << "it may have been waiting for two hours";
    time.advance(Seconds(4));
    price("BTC", 119);
    EXPECT_THAT(fired(), IsEmpty());
    time.advance(Seconds(1));
    price("BTC", 118);
    EXPECT_THAT(fired(), ElementsAre("BTC ~118"));
}

TEST_F(AlertKeeperTest, aPriceThatIsReadBeforeTheTimersAfterASleepFiresNothing) {
    begin();
    price("BTC", 100);
    add(110);
    asleep = Seconds(7200);
    price("BTC", 120);
    EXPECT_THAT(fired(), IsEmpty());
    time.advance(Seconds(5));
    price("BTC", 110);
    EXPECT_THAT(fired(), ElementsAre("BTC ~110"));
}

TEST_F(AlertKeeperTest, aPriceThatCrossedAndCameBackInASleepFiresNothing) {
    begin();
    price("BTC", 100);
    add(110);
    time.jump(Seconds(7200));
    time.advance(Seconds(5));
    price("BTC", 105);
    EXPECT_THAT(fired(), IsEmpty());
    price("BTC", 110);
    EXPECT_THAT(fired(), ElementsAre("BTC 110"));
}

TEST_F(AlertKeeperTest, aQuietMarketIsNoSleep) {
    begin();
    price("BTC", 100);
    add(110);
    time.advance(Seconds(600));
    price("BTC", 120);
    EXPECT_THAT(fired(), IsEmpty()) << "held back";
    time.advance(Seconds(5));
    EXPECT_THAT(fired(), ElementsAre("BTC 120"));
}

TEST_F(AlertKeeperTest, ofPricesThatWereHeldUpOnTheWayTheLatestCounts) {
    begin();
    price("BTC", 100);
    add(110);
    add(90, AlertKind::priceAtMost);
    time.advance(Seconds(75));
    price("BTC", 120);
    price("BTC", 85);
    time.advance(Seconds(4));
    price("BTC", 105);
    time.advance(Seconds(1));
    EXPECT_THAT(fired(), IsEmpty());
    price("BTC", 111);
    EXPECT_THAT(fired(), ElementsAre("BTC 111"));
}

TEST_F(AlertKeeperTest, aClockThatIsSetChangesNothing) {
    begin();
    price("BTC", 100);
    add(110);
    add(120);
    time.setClock(time.now() - Seconds(86400));
    price("BTC", 110);
    EXPECT_THAT(fired(), ElementsAre("BTC 110"));
    time.setClock(time.now() + Seconds(2 * 86400));
    price("BTC", 120);
    EXPECT_THAT(fired(), ElementsAre("BTC 110", "BTC 120"));
}

TEST_F(AlertKeeperTest, afterARestartALineCrossedMeanwhileIsToldAsSuch) {
    begin();
    price("BTC", 100);
    add(110);
    add(130);
    restart();
    ASSERT_EQ(keeper->alerts()->size(), 2U);
    price("BTC", 120);
    EXPECT_THAT(fired(), ElementsAre("BTC ~120"));
    price("BTC", 130);
    EXPECT_THAT(fired(), ElementsAre("BTC ~120", "BTC 130"));
}

TEST_F(AlertKeeperTest, anAlertThatFiredDoesNotFireAgainAfterARestart) {
    begin();
    price("BTC", 100);
    add(110, AlertKind::priceAtLeast, 5);
    price("BTC", 111);
    keeper->markShown(keeper->fired()->front().serial);
    restart();
    price("BTC", 112);
    EXPECT_THAT(fired(), IsEmpty());
    price("BTC", 105);
    price("BTC", 110);
    EXPECT_THAT(fired(), ElementsAre("BTC 110"));
}

TEST_F(AlertKeeperTest, whatFiredIsInTheFileBeforeAnybodyIsTold) {
    begin();
    price("BTC", 100);
    add(110);
    std::vector<std::size_t> inTheFile;
    const Observation told = keeper->fired().observe([&](const std::vector<FiredAlert>& /*fired*/) {
        inTheFile.push_back(stored().fired.size());
    });
    price("BTC", 111);
    EXPECT_THAT(inTheFile, ElementsAre(1U));
}

TEST_F(AlertKeeperTest, killedBeforeItWasShownItIsToldOnceMore) {
    begin();
    price("BTC", 100);
    add(110);
    price("BTC", 111);
    restart();
    ASSERT_THAT(fired(), ElementsAre("BTC 111"));
    keeper->markShown(keeper->fired()->front().serial);
    restart();
    EXPECT_THAT(fired(), IsEmpty());
    EXPECT_THAT(*keeper->alerts(), IsEmpty());
}

TEST_F(AlertKeeperTest, killedAtEachStepOfTheSavingItIsToldOnceAfterTheNextStart) {
    begin();
    price("BTC", 100);
    add(110);
    const std::string before = contentsOf(folder.path() / "alerts.json");
    const std::size_t callsBefore = files.calls.size();
    price("BTC", 111);
    const std::size_t steps = files.calls.size() - callsBefore;
    ASSERT_GT(steps, 3U);
    for (std::size_t step = 0; step < steps; ++step) {
        SCOPED_TRACE(step);
        writeContents(folder.path() / "alerts.json", before);
        restart();
        files.breakCall(step);
        price("BTC", 111);
        files.repair();
        restart();
        // From the file, or by the first price: the alert is still armed in the old file.
        price("BTC", 112);
        EXPECT_EQ(keeper->fired()->size(), 1U);
    }
}

TEST_F(AlertKeeperTest, aFileThatCannotBeWrittenLosesNothing) {
    begin();
    price("BTC", 100);
    add(110);
    EXPECT_TRUE(*keeper->isSaved());
    files.breakAll();
    price("BTC", 111);
    EXPECT_THAT(fired(), ElementsAre("BTC 111"));
    EXPECT_FALSE(*keeper->isSaved());
    EXPECT_THAT(log.lines(), ::testing::Contains(HasSubstr("failed to persist alerts")));
    files.repair();
    add(120);
    EXPECT_TRUE(*keeper->isSaved());
    EXPECT_EQ(stored().fired.size(), 1U);
}

TEST_F(AlertKeeperTest, anAlertThatFiresAgainReplacesWhatItTold) {
    begin();
    price("BTC", 100);
    add(110, AlertKind::priceAtLeast, 5);
    add(200, AlertKind::priceAtLeast);
    price("BTC", 111);
    const std::int64_t serial = keeper->fired()->front().serial;
    price("BTC", 105);
    price("BTC", 112);
    EXPECT_THAT(fired(), ElementsAre("BTC 112"));
    keeper->markShown(serial);
    EXPECT_THAT(fired(), ElementsAre("BTC 112")) << "the later one has not been shown";
}

TEST_F(AlertKeeperTest, theAlertsGoWithTheirCoinAndComeBackWithIt) {
    begin();
    price("BTC", 100);
    price("ETH", 100);
    add(110);
    add(110, AlertKind::priceAtLeast, std::nullopt, "ETH");
    run(state->remove("BTCUSDT"));
    EXPECT_FALSE(keeper->has("BTCUSDT"));
    EXPECT_TRUE(keeper->has("ETHUSDT"));
    EXPECT_EQ(stored().alerts.size(), 1U);
    keeper->restore("BTCUSDT");
    run(state->add(coinOf("BTC")));
    ASSERT_EQ(keeper->alertsOf("BTCUSDT").size(), 1U);
    EXPECT_EQ(stored().alerts.size(), 2U);
    price("BTC", 111);
    EXPECT_THAT(fired(), ElementsAre("BTC ~111"));
}

TEST_F(AlertKeeperTest, anEarlierRemovalIsNotTakenBack) {
    begin();
    price("BTC", 100);
    add(110);
    run(state->remove("BTCUSDT"));
    run(state->remove("ETHUSDT"));
    run(state->add(coinOf("BTC")));
    keeper->restore("BTCUSDT");
    EXPECT_FALSE(keeper->has("BTCUSDT"));
}

TEST_F(AlertKeeperTest, withoutAlertsNothingIsWatchedAndNoTimerRuns) {
    begin();
    price("BTC", 100);
    const std::size_t before = time.sleepingCount();
    const std::int64_t id = add(110);
    executor.run();
    EXPECT_EQ(time.sleepingCount(), before + 1);
    keeper->switchOff(id);
    executor.run();
    EXPECT_EQ(time.sleepingCount(), before);
    keeper->switchOn(id);
    executor.run();
    EXPECT_EQ(time.sleepingCount(), before + 1);
    keeper->remove(id);
    executor.run();
    EXPECT_EQ(time.sleepingCount(), before);
}

TEST_F(AlertKeeperTest, aStartWithoutAlertsMakesNoFileAndNoLineInTheLog) {
    begin();
    price("BTC", 100);
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "alerts.json"));
}

TEST_F(AlertKeeperTest, aFileThatCannotBeUnderstoodIsToldAndKept) {
    writeContents(folder.path() / "alerts.json", "my alerts");
    begin();
    EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("load alerts failed (")));
    price("BTC", 100);
    add(110);
    EXPECT_EQ(contentsOf(folder.path() / "alerts.json.bak"), "my alerts");
}

TEST_F(AlertKeeperTest, refusesWhatIsNotSound) {
    begin();
    price("BTC", 100);
    for (const Alert& wrong : {Alert{.symbol = "BTCUSDT", .threshold = 0},
                               Alert{.symbol = "BTCUSDT", .threshold = -5},
                               Alert{.symbol = "BTCUSDT", .threshold = 100, .margin = 0},
                               Alert{.symbol = "BTCUSDT", .threshold = 100, .margin = -1},
                               Alert{.symbol = "BTCUSDT", .threshold = 100, .margin = 1e-20},
                               Alert{.symbol = "BTCUSDT", .threshold = 100, .margin = 100}}) {
        EXPECT_EQ(keeper->add(wrong), std::nullopt) << wrong.threshold;
    }
    EXPECT_THAT(*keeper->alerts(), IsEmpty());
}

TEST_F(AlertKeeperTest, keepsTheAlertsOfCoinsThatAreNotOnTheList) {
    begin();
    add(110, AlertKind::priceAtLeast, std::nullopt, "SOL");
    run(state->remove("BTCUSDT"));
    restart();
    EXPECT_TRUE(keeper->has("SOLUSDT"));
}

}  // namespace
}  // namespace quillbar
