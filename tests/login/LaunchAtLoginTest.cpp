// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/LaunchAtLogin.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeLoginItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct LaunchAtLoginTest : ::testing::Test {
    CapturedLog log;
    FakeLoginItem item;
    LaunchAtLogin launch{item};
};

TEST_F(LaunchAtLoginTest, registersTheItem) {
    EXPECT_TRUE(launch.set(true));
    EXPECT_TRUE(launch.isEnabled());
    EXPECT_THAT(item.calls, ElementsAre("register"));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(LaunchAtLoginTest, unregistersTheItem) {
    item.current = LoginItemStatus::enabled;
    EXPECT_TRUE(launch.set(false));
    EXPECT_FALSE(launch.isEnabled());
    EXPECT_THAT(item.calls, ElementsAre("unregister"));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(LaunchAtLoginTest, onlyAnEnabledItemCountsAsOn) {
    for (const LoginItemStatus status : {LoginItemStatus::notRegistered,
                                         LoginItemStatus::requiresApproval,
                                         LoginItemStatus::notFound}) {
        item.current = status;
        EXPECT_FALSE(launch.isEnabled()) << description(status);
    }
    item.current = LoginItemStatus::enabled;
    EXPECT_TRUE(launch.isEnabled());
}

TEST_F(LaunchAtLoginTest, anItemThatNeedsApprovalIsNoSuccess) {
    item.afterRegister = LoginItemStatus::requiresApproval;
    EXPECT_FALSE(launch.set(true));
    EXPECT_THAT(log.lines(),
                ElementsAre("LaunchAtLogin|error|launch at login register did not throw, but "
                            "resulting status (requires approval) does not match requested "
                            "enabled=true"));
}

TEST_F(LaunchAtLoginTest, anItemThatStaysEnabledIsNotOff) {
    item.afterUnregister = LoginItemStatus::enabled;
    EXPECT_FALSE(launch.set(false));
    EXPECT_THAT(log.lines(),
                ElementsAre("LaunchAtLogin|error|launch at login unregister did not throw, but "
                            "resulting status (enabled) does not match requested enabled=false"));
}

TEST_F(LaunchAtLoginTest, namesEveryStatusInTheLog) {
    item.afterRegister = LoginItemStatus::notFound;
    EXPECT_FALSE(launch.set(true));
    item.afterRegister = LoginItemStatus::notRegistered;
    EXPECT_FALSE(launch.set(true));
    EXPECT_THAT(log.lines(),
                ElementsAre("LaunchAtLogin|error|launch at login register did not throw, but "
                            "resulting status (not found) does not match requested enabled=true",
                            "LaunchAtLogin|error|launch at login register did not throw, but "
                            "resulting status (not registered) does not match requested "
                            "enabled=true"));
}

TEST_F(LaunchAtLoginTest, aFailedRegistrationIsLogged) {
    item.failure = "the disk is full";
    item.afterRegister = LoginItemStatus::notRegistered;
    EXPECT_FALSE(launch.set(true));
    EXPECT_THAT(
        log.lines(),
        ElementsAre("LaunchAtLogin|error|failed to register launch at login: the disk is full"));
}

TEST_F(LaunchAtLoginTest, aFailedRegistrationThatTookEffectIsASuccess) {
    item.failure = "late";
    EXPECT_TRUE(launch.set(true));
    EXPECT_THAT(log.lines(),
                ElementsAre("LaunchAtLogin|error|failed to register launch at login: late"));
}

TEST_F(LaunchAtLoginTest, anItemThatCannotBeTakenOutBecauseItIsGoneIsOff) {
    item.failure = "no such item";
    EXPECT_TRUE(launch.set(false));
    EXPECT_THAT(
        log.lines(),
        ElementsAre("LaunchAtLogin|error|failed to unregister launch at login: no such item"));
}

TEST_F(LaunchAtLoginTest, anItemThatCannotBeTakenOutAndStaysIsAFailure) {
    item.current = LoginItemStatus::enabled;
    item.afterUnregister = LoginItemStatus::enabled;
    item.failure = "it is read-only";
    EXPECT_FALSE(launch.set(false));
    EXPECT_THAT(
        log.lines(),
        ElementsAre("LaunchAtLogin|error|failed to unregister launch at login: it is read-only"));
}

}  // namespace
}  // namespace quillbar
