// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/StatusItemFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

/// What the item says of price alerts that only the panel can show.
struct StatusItemAlertsTest : StatusItemFixture {
    [[nodiscard]] QString description() {
        return host->property(QStringLiteral("IconAccessibleDesc")).toString();
    }
    [[nodiscard]] QString iconName() {
        return host->property(QStringLiteral("IconName")).toString();
    }
};

TEST_F(StatusItemAlertsTest, marksThePictureAndSaysHowManyFired) {
    startAt("some-panel");
    const StatusImages before = host->icon();
    host->signalled.clear();
    item->setFiredAlerts(2);
    settle();
    EXPECT_THAT(host->signalled, Contains(QStringLiteral("NewIcon")));
    EXPECT_THAT(host->signalled, Contains(QStringLiteral("NewToolTip")));
    EXPECT_NE(host->icon(), before);
    EXPECT_EQ(host->tooltip().title, face().text);
    EXPECT_EQ(host->tooltip().text, QStringLiteral("2 个价格提醒已触发\n刚刚更新\n已连接"));
    EXPECT_EQ(description(), face().text + QStringLiteral("，2 个价格提醒已触发"));
    item->setFiredAlerts(0);
    settle();
    EXPECT_EQ(host->icon(), before);
    EXPECT_EQ(host->tooltip().text, QStringLiteral("刚刚更新\n已连接"));
    EXPECT_EQ(description(), face().text);
}

TEST_F(StatusItemAlertsTest, leavesTheTextThatAHostDrawsAsItIs) {
    startAt("gnome-shell");
    const StatusImages before = host->icon();
    host->labels.clear();
    item->setFiredAlerts(1);
    settle();
    EXPECT_THAT(host->labels, IsEmpty());
    EXPECT_EQ(host->property(QStringLiteral("XAyatanaLabel")).toString(), face().text);
    EXPECT_NE(host->icon(), before) << "the mark beside the text";
}

TEST_F(StatusItemAlertsTest, aHostOfThemeIconsShowsAnotherOne) {
    startAt("ayatana-indicat");
    const QString before = iconName();
    item->setFiredAlerts(1);
    settle();
    EXPECT_EQ(iconName(), QStringLiteral("dialog-information"));
    item->setFiredAlerts(0);
    settle();
    EXPECT_EQ(iconName(), before);
}

TEST_F(StatusItemAlertsTest, aThemeWithoutThatIconKeepsTheUsualOne) {
    hasThemeIcon = false;
    startAt("ayatana-indicat");
    const QString before = iconName();
    item->setFiredAlerts(1);
    settle();
    EXPECT_EQ(iconName(), before);
}

TEST_F(StatusItemAlertsTest, theSameNumberCostsNoSignal) {
    startAt("some-panel");
    item->setFiredAlerts(1);
    settle();
    host->signalled.clear();
    item->setFiredAlerts(1);
    settle();
    EXPECT_THAT(host->signalled, IsEmpty());
}

TEST_F(StatusItemAlertsTest, aHostThatShowsTheTitleAloneHasItThereToo) {
    startAt("lxqt-panel");
    item->setFiredAlerts(1);
    settle();
    EXPECT_EQ(host->tooltip().title,
              face().text + QStringLiteral("\n1 个价格提醒已触发\n刚刚更新\n已连接"));
}

}  // namespace
}  // namespace quillbar
