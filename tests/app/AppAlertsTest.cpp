// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PanelView.h"
#include "tests/app/QuillbarAppFixture.h"
#include "tests/qtsupport/FakeNotifications.h"
#include "tests/support/Files.h"

#include <QTest>

#include <filesystem>
#include <string>

namespace quillbar {
namespace {

/// The application with an alert that the first price fires.
struct AppAlertsTest : QuillbarAppFixture {
    AppAlertsTest() {
        writeContents(file(),
                      R"({"schemaVersion":1,"nextNumber":2,"alerts":[{"id":1,"symbol":"ETHUSDT",)"
                      R"("baseAsset":"ETH","kind":"priceAtLeast","threshold":0.000001,)"
                      R"("armed":true}],"fired":[]})");
    }
    [[nodiscard]] std::filesystem::path file() const { return folder.path() / "alerts.json"; }
    void startAndTick() {
        startInTray();
        ASSERT_TRUE(spinUntil([this] {
            exchange.tick();
            return contentsOf(file()).find(R"("alerts":[])") != std::string::npos;
        }));
    }
};

TEST_F(AppAlertsTest, anAlertBecomesANoticeWhichOpensTheChart) {
    FakeNotifications server(daemon.address());
    server.begin();
    startAndTick();
    ASSERT_TRUE(spinUntil([&server] { return !server.notices.empty(); }));
    EXPECT_TRUE(server.notices.front().title.startsWith(QStringLiteral("ETH 期间价格 ≥ ")));
    EXPECT_TRUE(spinUntil(
        [this] { return contentsOf(file()).find(R"("fired":[])") != std::string::npos; }));
    EXPECT_EQ(panel(), nullptr);
    server.choose(server.notices.front().number, QString());
    ASSERT_TRUE(spinUntil([] { return panel() != nullptr; }));
    EXPECT_EQ(*widgetsOf<PanelView>(*panel()).at(0)->expandedSymbol(), "ETHUSDT");
}

TEST_F(AppAlertsTest, withoutAServerThePanelListsWhatFired) {
    startAndTick();
    app->showPanel(QString());
    QWidget* seen = nullptr;
    ASSERT_TRUE(spinUntil([&seen] {
        for (QWidget* const each : panel()->findChildren<QWidget*>()) {
            if (each->isVisible()
                && each->accessibleName().startsWith(QStringLiteral("知道了，"))) {
                seen = each;
            }
        }
        return seen != nullptr;
    }));
    EXPECT_TRUE(seen->accessibleName().contains(QStringLiteral("ETH 期间价格 ≥ ")));
    QTest::mouseClick(seen, Qt::LeftButton);
    EXPECT_NE(contentsOf(file()).find(R"("fired":[])"), std::string::npos);
}

TEST_F(AppAlertsTest, withoutAServerTheItemIsMarkedUntilThePanelHasBeenOpened) {
    const auto tooltip = [this] { return host.tooltip().text; };
    const QString told = QStringLiteral("1 个价格提醒已触发\n");
    startAndTick();
    ASSERT_TRUE(spinUntil([&] { return tooltip().startsWith(told); }));
    app->showPanel(QString());
    ASSERT_TRUE(spinUntil([] { return panel() != nullptr; }));
    app->togglePanel(QString());
    ASSERT_TRUE(spinUntil([] { return panel() == nullptr; }));
    ASSERT_TRUE(spinUntil([&] {
        sleeper.wake([](double span) { return span == TooltipPause::kAfterClick.count(); });
        return !tooltip().isEmpty();
    }));
    EXPECT_FALSE(tooltip().contains(QStringLiteral("价格提醒"))) << tooltip().toStdString();
    EXPECT_NE(contentsOf(file()).find(R"("serial")"), std::string::npos)
        << "the panel still lists it";
}

TEST_F(AppAlertsTest, thePageOfPreferencesLeavesTheMark) {
    const auto tooltip = [this] { return host.tooltip().text; };
    const QString told = QStringLiteral("1 个价格提醒已触发\n");
    startAndTick();
    ASSERT_TRUE(spinUntil([&] { return tooltip().startsWith(told); }));
    app->showPreferences(QString());
    ASSERT_TRUE(spinUntil([] { return panel() != nullptr; }));
    app->togglePanel(QString());
    ASSERT_TRUE(spinUntil([] { return panel() == nullptr; }));
    ASSERT_TRUE(spinUntil([&] {
        sleeper.wake([](double span) { return span == TooltipPause::kAfterClick.count(); });
        return !tooltip().isEmpty();
    }));
    EXPECT_TRUE(tooltip().startsWith(told)) << tooltip().toStdString();
}

}  // namespace
}  // namespace quillbar
