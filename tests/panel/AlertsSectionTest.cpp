// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/AlertsSection.h"
#include "Quillbar/widgets/CheckRow.h"
#include "QuillbarCore/alerts/AlertStore.h"
#include "tests/panel/PanelFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QLabel>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString kSound = QStringLiteral("提示音，价格提醒出现时响一声");
const QString kBTC = QStringLiteral("BTC 价格 ≥ 110.00，等待触发 · 仅一次");
const QString kETH =
    QStringLiteral("ETH 24 小时涨跌 ≤ -5.00%，等待触发 · 重复（回升 1.00% 后） · 买");
const QString kDeleteBTC = QStringLiteral("删除提醒，BTC 价格 ≥ 110.00 · 仅一次");
const QString kDeleteETH =
    QStringLiteral("删除提醒，ETH 24 小时涨跌 ≤ -5.00% · 重复（回升 1.00% 后） · 买");
const QString kUndoBTC = QStringLiteral("撤销，已删除 BTC 价格 ≥ 110.00");

/// The page of preferences over BTC and ETH, which both cost 100 after 100.
struct AlertsSectionTest : PanelFixture {
    void openPage(Qt::FocusReason reason = Qt::OtherFocusReason) {
        startConnected(listOf({"BTC", "ETH"}));
        price("BTC", 100);
        price("ETH", 100);
        alerts();
        showActive(show());
        panel->showPreferences(reason);
        panel->resize(panel->sizeHint());
        spinUntilIdle();
    }
    /// The page with an alert on each coin.
    void openPageWithTwo(Qt::FocusReason reason = Qt::OtherFocusReason) {
        openPage(reason);
        addBTC();
        alerts().add({.symbol = "ETHUSDT",
                      .baseAsset = "ETH",
                      .kind = AlertKind::changeAtMost,
                      .threshold = -5,
                      .margin = 1,
                      .note = "买"});
        panel->resize(panel->sizeHint());
        spinUntilIdle();
    }
    std::int64_t addBTC() {
        return alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110}).value();
    }
    /// The check boxes of the alerts, from above; "-" before one that is off.
    [[nodiscard]] std::vector<QString> rows() const {
        std::map<int, QString> names;
        for (const CheckRow* const row : widgetsOf<CheckRow>(*panel)) {
            if (row->isVisible() && row->accessibleName() != kSound) {
                names[row->mapTo(panel.get(), QPoint()).y()] =
                    (row->isChecked() ? QString() : QStringLiteral("-")) + row->accessibleName();
            }
        }
        std::vector<QString> fromAbove;
        for (const auto& [top, name] : names) {
            fromAbove.push_back(name);
        }
        return fromAbove;
    }
    [[nodiscard]] bool says(const char* text) const {
        for (const QLabel* const label : widgetsOf<QLabel>(*panel)) {
            if (label->isVisible() && label->text().contains(QString::fromUtf8(text))) {
                return true;
            }
        }
        return false;
    }
    void press(Qt::Key key) {
        QTest::keyClick(panel->focusWidget(), key);
        executor.run();
        spinUntilIdle();
    }
    /// Presses the Tab key until this has the focus.
    void tabTo(const QString& name) {
        for (int stop = 0; stop < 10 && focused() != name; ++stop) {
            press(Qt::Key_Tab);
        }
        ASSERT_EQ(focused(), name);
    }
};

TEST_F(AlertsSectionTest, saysInWordsThatThereIsNoneAndHowToAddOne) {
    openPage();
    EXPECT_TRUE(says("提醒"));
    EXPECT_TRUE(says("还没有价格提醒。在自选列表的一行上点右键，选“价格提醒…”。"));
    EXPECT_THAT(rows(), IsEmpty());
    addBTC();
    EXPECT_FALSE(says("还没有价格提醒"));
}

TEST_F(AlertsSectionTest, listsEveryAlertWithItsCoinConditionStateAndNote) {
    openPageWithTwo();
    EXPECT_THAT(rows(), ElementsAre(kBTC, kETH));
}

TEST_F(AlertsSectionTest, followsWhatBecomesOfAnAlert) {
    openPageWithTwo();
    price("BTC", 111);
    EXPECT_THAT(rows(), ElementsAre(kETH)) << "it fired, and fires once";
    price("ETH", 94);
    EXPECT_THAT(
        rows(),
        ElementsAre(QStringLiteral(
            "ETH 24 小时涨跌 ≤ -5.00%，回升到 -4.00% 后生效 · 重复（回升 1.00% 后） · 买")));
    price("ETH", 97);
    EXPECT_THAT(rows(), ElementsAre(kETH));
}

TEST_F(AlertsSectionTest, aClickSwitchesAnAlertOffAndOn) {
    openPageWithTwo();
    click(kBTC);
    const QString off = QStringLiteral("BTC 价格 ≥ 110.00，已关闭 · 仅一次");
    EXPECT_THAT(rows(), ElementsAre(QStringLiteral("-") + off, kETH));
    EXPECT_FALSE(AlertStore(folder.path()).load().alerts.at(0).isOn);
    click(off);
    EXPECT_THAT(rows(), ElementsAre(kBTC, kETH));
    EXPECT_TRUE(alerts().alerts()->at(0).isArmed);
}

TEST_F(AlertsSectionTest, aDeletedAlertCanBeBroughtBackForAWhile) {
    openPageWithTwo();
    const Alert before = alerts().alerts()->front();
    click(kDeleteBTC);
    EXPECT_THAT(rows(), ElementsAre(kETH));
    EXPECT_TRUE(says("已删除 BTC 价格 ≥ 110.00"));
    time.advance(AlertsSection::kOffered - Seconds(1));
    click(kUndoBTC);
    EXPECT_THAT(rows(), ElementsAre(kBTC, kETH));
    EXPECT_EQ(alerts().alerts()->front(), before);
    EXPECT_FALSE(says("已删除"));
    click(kDeleteBTC);
    time.advance(AlertsSection::kOffered);
    EXPECT_FALSE(says("已删除"));
    EXPECT_EQ(named(*panel, kUndoBTC), nullptr);
}

TEST_F(AlertsSectionTest, onlyTheLastDeletionIsTakenBackAndOnlyWhileThePageIsOpen) {
    openPageWithTwo();
    click(kDeleteBTC);
    click(kDeleteETH);
    EXPECT_EQ(named(*panel, kUndoBTC), nullptr);
    EXPECT_TRUE(says("已删除 ETH 24 小时涨跌 ≤ -5.00%"));
    panel->closePreferences();
    panel->showPreferences();
    spinUntilIdle();
    EXPECT_FALSE(says("已删除"));
    EXPECT_THAT(*alerts().alerts(), IsEmpty());
}

TEST_F(AlertsSectionTest, theKeyboardSwitchesDeletesAndBringsBack) {
    openPageWithTwo(Qt::TabFocusReason);
    tabTo(kSound);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), kBTC);
    press(Qt::Key_Space);
    EXPECT_EQ(focused(), QStringLiteral("BTC 价格 ≥ 110.00，已关闭 · 仅一次"));
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), kDeleteBTC);
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), kDeleteETH) << "the neighbour, not the offer, which goes again";
    EXPECT_TRUE(hasRing(kDeleteETH));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), kUndoBTC);
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), kDeleteBTC);
    tabTo(kDeleteETH);
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), kDeleteBTC);
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), kSound);
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AlertsSectionTest, anOfferThatEndsLeavesTheFocusInTheSection) {
    openPageWithTwo(Qt::TabFocusReason);
    tabTo(kDeleteBTC);
    press(Qt::Key_Return);
    tabTo(kUndoBTC);
    time.advance(AlertsSection::kOffered);
    spinUntilIdle();
    EXPECT_EQ(focused(), kSound);
}

TEST_F(AlertsSectionTest, aPriceThatArmsAnAlertLeavesTheFocusWhereItIs) {
    openPageWithTwo(Qt::TabFocusReason);
    price("ETH", 94);
    tabTo(kDeleteETH);
    price("ETH", 100);
    spinUntilIdle();
    EXPECT_EQ(focused(), kDeleteETH);
}

TEST_F(AlertsSectionTest, screenReadersKnowSwitchesButtonsAndTheOffer) {
    openPageWithTwo();
    const auto roleOf = [this](const QString& name) {
        return QAccessible::queryAccessibleInterface(named(*panel, name))->role();
    };
    EXPECT_EQ(roleOf(kSound), QAccessible::CheckBox);
    EXPECT_EQ(roleOf(kBTC), QAccessible::CheckBox);
    EXPECT_EQ(roleOf(kDeleteBTC), QAccessible::Button);
    click(kDeleteBTC);
    EXPECT_EQ(roleOf(QStringLiteral("已删除 BTC 价格 ≥ 110.00")), QAccessible::Notification);
}

TEST_F(AlertsSectionTest, theSoundIsOffUntilItIsSwitchedOn) {
    openPage();
    const auto isOn = [this] {
        return dynamic_cast<QAbstractButton&>(*named(*panel, kSound)).isChecked();
    };
    EXPECT_FALSE(isOn());
    click(kSound);
    EXPECT_TRUE(isOn());
    EXPECT_TRUE(preferences.preferences()->alertSound);
    EXPECT_TRUE(PreferencesStore(folder.path()).load().alertSound);
    preferences.setAlertSound(false);
    EXPECT_FALSE(isOn()) << "whoever switches it";
}

TEST_F(AlertsSectionTest, saysWhatCouldNotBeSavedUntilItIs) {
    openPageWithTwo();
    EXPECT_FALSE(says("提醒未能保存到磁盘"));
    files.breakAll();
    click(kBTC);
    EXPECT_TRUE(says("提醒未能保存到磁盘，重启后会丢失"));
    files.repair();
    click(kDeleteETH);
    EXPECT_FALSE(says("提醒未能保存到磁盘"));
}

TEST_F(AlertsSectionTest, saysTooWhenThatAnAlertWasSeenCouldNotBeSaved) {
    openPageWithTwo();
    price("BTC", 111);
    ASSERT_EQ(alerts().fired()->size(), 1U);
    files.breakAll();
    alerts().markShown(alerts().fired()->front().serial);
    EXPECT_TRUE(says("提醒未能保存到磁盘，重启后会丢失"));
    files.repair();
    addBTC();
    EXPECT_FALSE(says("提醒未能保存到磁盘"));
}

TEST_F(AlertsSectionTest, aPanelWithoutAlertsHasNoSuchSection) {
    startConnected(listOf({"BTC"}));
    showActive(show());
    panel->showPreferences();
    spinUntilIdle();
    EXPECT_EQ(named(*panel, kSound), nullptr);
    EXPECT_TRUE(says("颜色"));
}

}  // namespace
}  // namespace quillbar
