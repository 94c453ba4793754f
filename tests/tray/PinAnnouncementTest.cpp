// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/PinAnnouncement.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

using namespace std::chrono_literals;

const QString kBitcoin = QStringLiteral("BTC");
const QString kEther = QStringLiteral("ETH");

struct PinAnnouncementTest : ::testing::Test {
    ManualExecutor executor;
    ManualTime time{executor};
    int ends = 0;
    PinAnnouncement announcement{executor, time.sleeper(), [this] { ++ends; }};
};

TEST_F(PinAnnouncementTest, lastsThreeSecondsFromThePin) {
    announcement.pinnedIs(kBitcoin);
    announcement.pinnedIs(kEther);
    EXPECT_TRUE(announcement.isOn());
    time.advance(2.9s);
    EXPECT_TRUE(announcement.isOn());
    EXPECT_EQ(ends, 0);
    time.advance(0.1s);
    EXPECT_FALSE(announcement.isOn());
    EXPECT_EQ(ends, 1);
}

TEST_F(PinAnnouncementTest, isNoneOfWhatWasPinnedAtTheStart) {
    announcement.pinnedIs(kBitcoin);
    EXPECT_FALSE(announcement.isOn());
    announcement.pinnedIs(kBitcoin);
    EXPECT_FALSE(announcement.isOn());
}

TEST_F(PinAnnouncementTest, isOneOfTheFirstCoinThatIsPinned) {
    announcement.pinnedIs(QString());
    announcement.pinnedIs(kBitcoin);
    EXPECT_TRUE(announcement.isOn());
}

TEST_F(PinAnnouncementTest, beginsAnewWithTheNextPin) {
    announcement.pinnedIs(QString());
    announcement.pinnedIs(kBitcoin);
    time.advance(2s);
    announcement.pinnedIs(kEther);
    announcement.pinnedIs(kEther);
    time.advance(2s);
    EXPECT_TRUE(announcement.isOn());
    time.advance(1s);
    EXPECT_FALSE(announcement.isOn());
    EXPECT_EQ(ends, 1);
}

TEST_F(PinAnnouncementTest, endsWhenNothingIsPinnedAnyMore) {
    announcement.pinnedIs(QString());
    announcement.pinnedIs(kBitcoin);
    announcement.pinnedIs(QString());
    EXPECT_FALSE(announcement.isOn());
    time.advance(10s);
    EXPECT_EQ(ends, 0) << "whoever unpinned it knows";
}

}  // namespace
}  // namespace quillbar
