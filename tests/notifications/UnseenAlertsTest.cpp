// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/notifications/UnseenAlerts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

struct UnseenAlertsTest : testing::Test {
    /// What could not be shown is, by serial.
    void unshownAre(std::initializer_list<std::int64_t> serials) {
        std::vector<FiredAlert> alerts;
        for (const std::int64_t serial : serials) {
            alerts.push_back({.serial = serial, .alert = {}});
        }
        unshown.set(std::move(alerts));
    }

    Observed<std::vector<FiredAlert>> unshown;
    UnseenAlerts unseen{unshown};
};

TEST_F(UnseenAlertsTest, countsWhatCouldNotBeShown) {
    EXPECT_EQ(*unseen.count(), 0);
    unshownAre({3});
    EXPECT_EQ(*unseen.count(), 1);
    unshownAre({3, 4});
    EXPECT_EQ(*unseen.count(), 2);
    unshownAre({4});
    EXPECT_EQ(*unseen.count(), 1) << "a server came and took one";
}

TEST_F(UnseenAlertsTest, countsWhatWasThereBeforeIt) {
    unshownAre({3, 4});
    const UnseenAlerts later(unshown);
    EXPECT_EQ(*later.count(), 2);
}

TEST_F(UnseenAlertsTest, whatThePanelHasListedIsSeen) {
    unshownAre({3, 4});
    unseen.setPanelOpen(true);
    EXPECT_EQ(*unseen.count(), 0);
    unshownAre({3, 4, 5});
    EXPECT_EQ(*unseen.count(), 0) << "it is open";
    unseen.setPanelOpen(false);
    EXPECT_EQ(*unseen.count(), 0);
    unshownAre({3, 5, 6});
    EXPECT_EQ(*unseen.count(), 1);
}

TEST_F(UnseenAlertsTest, anEarlierOneThatFailsLaterIsNotSeenYet) {
    unshownAre({5});
    unseen.setPanelOpen(true);
    unseen.setPanelOpen(false);
    unshownAre({4, 5});
    EXPECT_EQ(*unseen.count(), 1);
}

TEST_F(UnseenAlertsTest, thePageOfPreferencesListsNothing) {
    unshownAre({3});
    unseen.setPreferencesShown(true);
    unseen.setPanelOpen(true);
    unshownAre({3, 4});
    EXPECT_EQ(*unseen.count(), 2);
    unseen.setPreferencesShown(false);
    EXPECT_EQ(*unseen.count(), 0) << "now the panel lists them";
}

TEST_F(UnseenAlertsTest, thePageThatGoesWithThePanelLeavesThemUnseen) {
    unshownAre({3});
    unseen.setPreferencesShown(true);
    unseen.setPanelOpen(true);
    unseen.setPanelOpen(false);
    unseen.setPreferencesShown(false);
    EXPECT_EQ(*unseen.count(), 1);
}

TEST_F(UnseenAlertsTest, whatWasSeenStaysSeenWhenItsNoticeFailsOnceMore) {
    unshownAre({3});
    unseen.setPanelOpen(true);
    unseen.setPanelOpen(false);
    unshownAre({});
    unshownAre({3});
    EXPECT_EQ(*unseen.count(), 0);
}

TEST_F(UnseenAlertsTest, tellsOnlyOfAnotherCount) {
    std::vector<int> told;
    const Observation observation =
        unseen.count().observe([&told](int count) { told.push_back(count); });
    unshownAre({3});
    unshownAre({4});
    unseen.setPanelOpen(true);
    unseen.setPanelOpen(false);
    EXPECT_THAT(told, ElementsAre(1, 0));
}

}  // namespace
}  // namespace quillbar
