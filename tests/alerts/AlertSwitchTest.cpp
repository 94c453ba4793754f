// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/alerts/AlertKeeperFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using AlertSwitchTest = AlertKeeperFixture;

TEST_F(AlertSwitchTest, anAlertThatIsOffIsKeptAndFiresNothing) {
    begin();
    price("BTC", 100);
    const std::int64_t id = add(110, AlertKind::priceAtLeast, 5);
    EXPECT_TRUE(keeper->has("BTCUSDT"));
    keeper->switchOff(id);
    EXPECT_FALSE(keeper->has("BTCUSDT")) << "there is nothing to wait for";
    EXPECT_EQ(keeper->alertsOf("BTCUSDT").size(), 1U);
    // Prices are watched for this one.
    add(500);
    restart();
    EXPECT_FALSE(keeper->alerts()->at(0).isOn);
    price("BTC", 120);
    price("BTC", 100);
    price("BTC", 120);
    EXPECT_THAT(fired(), IsEmpty());
    EXPECT_FALSE(stored().alerts.at(0).isArmed);
}

TEST_F(AlertSwitchTest, anAlertThatIsSwitchedOnBeginsLikeANewOne) {
    begin();
    price("BTC", 100);
    const std::int64_t id = add(110);
    keeper->switchOff(id);
    price("BTC", 120);
    keeper->switchOn(id);
    EXPECT_FALSE(keeper->alerts()->at(0).isArmed) << "it begins beyond its line";
    price("BTC", 121);
    EXPECT_THAT(fired(), IsEmpty());
    price("BTC", 109);
    price("BTC", 111);
    EXPECT_THAT(fired(), ElementsAre("BTC 111"));
}

TEST_F(AlertSwitchTest, whatWasMissedWhileAnAlertWasOffIsNoGap) {
    begin();
    price("BTC", 100);
    const std::int64_t id = add(110);
    keeper->switchOff(id);
    tell(ConnectionState::waitingRetry);
    tell(ConnectionState::connected);
    price("BTC", 105);
    keeper->switchOn(id);
    EXPECT_TRUE(stored().alerts.at(0).isArmed);
    price("BTC", 110);
    EXPECT_THAT(fired(), ElementsAre("BTC 110"));
}

TEST_F(AlertSwitchTest, switchingAnAlertToWhatItIsChangesAndSavesNothing) {
    begin();
    price("BTC", 100);
    const std::int64_t id = add(110);
    const std::size_t calls = files.calls.size();
    keeper->switchOn(id);
    keeper->switchOn(id + 1);
    keeper->switchOff(id + 1);
    EXPECT_EQ(files.calls.size(), calls);
    keeper->switchOff(id);
    const std::size_t callsThen = files.calls.size();
    EXPECT_GT(callsThen, calls);
    keeper->switchOff(id);
    EXPECT_EQ(files.calls.size(), callsThen);
}

TEST_F(AlertSwitchTest, aRemovedAlertIsPutBackAsItWas) {
    begin();
    price("BTC", 100);
    const std::int64_t id = add(110);
    const Alert alert = keeper->alerts()->at(0);
    keeper->putBack(alert);
    EXPECT_EQ(keeper->alerts()->size(), 1U) << "it is there";
    keeper->remove(id);
    keeper->putBack(alert);
    EXPECT_THAT(*keeper->alerts(), ElementsAre(alert));
    EXPECT_THAT(stored().alerts, ElementsAre(alert));
    price("BTC", 111);
    EXPECT_THAT(fired(), ElementsAre("BTC ~111")) << "prices were not watched in between";
    Alert unknown = alert;
    unknown.id = 77;
    keeper->putBack(unknown);
    EXPECT_THAT(*keeper->alerts(), IsEmpty());
}

TEST_F(AlertSwitchTest, aLineThatWasCrossedWhileItsAlertWasRemovedIsToldSo) {
    begin();
    price("BTC", 100);
    const std::int64_t id = add(110);
    const Alert alert = keeper->alerts()->at(0);
    // The prices of the pair are watched for this one.
    add(120);
    keeper->remove(id);
    price("BTC", 111);
    keeper->putBack(alert);
    price("BTC", 121);
    EXPECT_THAT(fired(), ElementsAre("BTC ~121", "BTC 121"));
}

TEST_F(AlertSwitchTest, anAlertThatIsPutBackFiresAsUsualAfterThePriceBeforeItsLine) {
    begin();
    price("BTC", 100);
    const std::int64_t id = add(110);
    const Alert alert = keeper->alerts()->at(0);
    add(120);
    keeper->remove(id);
    keeper->putBack(alert);
    price("BTC", 105);
    price("BTC", 111);
    EXPECT_THAT(fired(), ElementsAre("BTC 111"));
}

}  // namespace
}  // namespace quillbar
