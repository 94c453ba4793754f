// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/AlertLines.h"
#include "Quillbar/panel/UnderlineTabs.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <QAccessible>
#include <QLocale>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace quillbar {
namespace {

struct AlertLinesTest : PanelFixture {
    /// The panel over BTC and ETH, with an alert on each.
    void showTwo() {
        startConnected(listOf({"BTC", "ETH"}));
        price("BTC", 100);
        price("ETH", 100);
        alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110, .note = "卖"});
        alerts().add({.symbol = "ETHUSDT", .baseAsset = "ETH", .threshold = 110});
        showActive(show());
    }
    /// Both alerts fire, and nobody can show them.
    void fireBoth() {
        price("BTC", 111);
        price("ETH", 112);
        unshownAlerts.set(*alerts().fired());
        spinUntilIdle();
        panel->resize(panel->sizeHint());
        spinUntilIdle();
    }
    [[nodiscard]] AlertLines& lines() const { return *widgetsOf<AlertLines>(*panel).front(); }
    /// What the lines say, as screen readers read it.
    [[nodiscard]] std::vector<std::string> told() const {
        std::vector<std::string> texts;
        for (QObject* const child : lines().children()) {
            auto* const line = qobject_cast<QWidget*>(child);
            if (line != nullptr && line->isVisible()) {
                const auto* const spoken = QAccessible::queryAccessibleInterface(line);
                EXPECT_EQ(spoken->role(), QAccessible::Notification);
                texts.push_back(line->accessibleName().toStdString());
            }
        }
        return texts;
    }
};

TEST_F(AlertLinesTest, isHiddenWhileThereIsNothing) {
    showTwo();
    EXPECT_FALSE(lines().isVisible());
}

TEST_F(AlertLinesTest, listsWhatFiredWithTimeValueAndNote) {
    showTwo();
    fireBoth();
    EXPECT_TRUE(lines().isVisible());
    EXPECT_THAT(told(),
                ::testing::ElementsAre(
                    ::testing::EndsWith("BTC 价格 ≥ 110.00\n当时 111.00，24 小时 +11.00%\n卖"),
                    ::testing::EndsWith("ETH 价格 ≥ 110.00\n当时 112.00，24 小时 +12.00%")));
}

TEST_F(AlertLinesTest, writesTimesAsChineseDoWhereverTheDesktopIs) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    showTwo();
    fireBoth();
    const std::vector<std::string> lines = told();
    QLocale::setDefault(before);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines, ::testing::Each(::testing::Not(::testing::ContainsRegex("[AP]M"))));
}

TEST_F(AlertLinesTest, namesTheMonthInEnglishWhereANumberCouldBeEither) {
    const UsedLanguage english(TextLanguage::english);
    showTwo();
    fireBoth();
    EXPECT_THAT(told(),
                ::testing::Each(::testing::ContainsRegex("^[0-9]+ [A-Z][a-z]+ [0-9]+:[0-9]+  ")));
}

TEST_F(AlertLinesTest, theButtonSaysThatItWasSeen) {
    showTwo();
    fireBoth();
    for (QWidget* const each : lines().findChildren<QWidget*>()) {
        if (each->accessibleName().startsWith(QStringLiteral("知道了，"))
            && each->accessibleName().contains(QStringLiteral("BTC"))) {
            QTest::mouseClick(each, Qt::LeftButton);
            break;
        }
    }
    ASSERT_EQ(alerts().fired()->size(), 1U);
    EXPECT_EQ(alerts().fired()->front().alert.symbol, "ETHUSDT");
    unshownAlerts.set(*alerts().fired());
    spinUntilIdle();
    EXPECT_EQ(told().size(), 1U);
}

TEST_F(AlertLinesTest, takingARemovalBackBringsTheAlertsBack) {
    showTwo();
    run(state->remove("ETHUSDT"));
    spinUntilIdle();
    EXPECT_FALSE(alerts().has("ETHUSDT"));
    QTest::mouseClick(named(*panel, QStringLiteral("撤销删除 ETH")), Qt::LeftButton);
    executor.run();
    spinUntilIdle();
    EXPECT_TRUE(state->watchlist()->contains("ETHUSDT"));
    EXPECT_TRUE(alerts().has("ETHUSDT"));
}

TEST_F(AlertLinesTest, aChosenNoticeLeavesThePreferences) {
    showTwo();
    panel->showPreferences();
    panel->showChart("ETHUSDT");
    EXPECT_TRUE(widgetsOf<UnderlineTabs>(*panel).front()->isVisible());
    EXPECT_EQ(*panel->expandedSymbol(), "ETHUSDT");
}

TEST_F(AlertLinesTest, aChosenNoticeShowsTheChartOnTheWatchlist) {
    showTwo();
    click(QStringLiteral("涨幅"));
    ASSERT_TRUE(panel->tab().board());
    panel->showChart("ETHUSDT");
    EXPECT_FALSE(panel->tab().board());
    EXPECT_EQ(*panel->expandedSymbol(), "ETHUSDT");
    panel->showChart("XUSDT");
    EXPECT_EQ(*panel->expandedSymbol(), "ETHUSDT");
}

}  // namespace
}  // namespace quillbar
