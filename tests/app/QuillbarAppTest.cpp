// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/tray/StatusImage.h"
#include "Quillbar/widgets/ChangePalette.h"
#include "tests/app/QuillbarAppFixture.h"
#include "tests/support/Files.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QTest>
#include <QToolTip>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace quillbar {

namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

using QuillbarAppTest = QuillbarAppFixture;

/// Whether one of the pictures has an opaque pixel of that colour.
bool hasColor(const StatusImages& images, const QColor& color) {
    QImage pixel(1, 1, QImage::Format_ARGB32);
    pixel.fill(color);
    const QByteArray bytes = StatusImage::of(pixel).data;
    return std::any_of(images.begin(), images.end(), [&bytes](const StatusImage& image) {
        for (qsizetype place = 0; place < image.data.size(); place += bytes.size()) {
            if (QByteArrayView(image.data).sliced(place, bytes.size()) == bytes) {
                return true;
            }
        }
        return false;
    });
}

TEST_F(QuillbarAppTest, putsItsItemIntoTheTrayAndOpensNothing) {
    startInTray();
    EXPECT_THAT(host.registered, Contains(bus.baseService()));
    EXPECT_EQ(panel(), nullptr);
}

TEST_F(QuillbarAppTest, theItemFollowsThePrices) {
    startInTray();
    ASSERT_TRUE(spinUntil([this] { return exchange.openStreams() > 0; }));
    ASSERT_TRUE(spinUntil([this] { return !host.labels.isEmpty(); }));
    const QString before = host.labels.constLast();
    EXPECT_TRUE(spinUntil([&] {
        exchange.tick();
        endPatience();
        return host.labels.constLast() != before;
    })) << before.toStdString();
}

TEST_F(QuillbarAppTest, pricesWaitForTheItemButNotForABusThatDoesNotAnswer) {
    daemon.freeze();
    start(bus);
    spinUntilIdle();
    EXPECT_EQ(exchange.openStreams(), 0);
    EXPECT_EQ(sleeper.wake([](double span) { return span == QuillbarApp::kItemPatience.count(); }),
              1);
    EXPECT_TRUE(spinUntil([this] { return exchange.openStreams() > 0; }));
    daemon.thaw();
}

TEST_F(QuillbarAppTest, aClickOnTheItemOpensThePanel) {
    startInTray();
    host.callItem(QStringLiteral("Activate"), {300, 5});
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(panel()->width(), 400);
    EXPECT_FALSE(tells(Notice::noTray));
    EXPECT_FALSE(tells(Notice::noSessionBus));
    EXPECT_FALSE(tells(Notice::noChineseFont));
}

TEST_F(QuillbarAppTest, theItemHasNoTooltipWhileThePanelIsShown) {
    startInTray();
    ASSERT_NE(host.tooltip().title, QString());
    const auto endPause = [this] {
        return sleeper.wake([](double span) { return span == TooltipPause::kAfterClick.count(); });
    };
    app->togglePanel(QString());
    spinUntilIdle();
    endPause();
    spinUntilIdle();
    EXPECT_EQ(host.tooltip().title, QString());
    app->togglePanel(QString());
    ASSERT_TRUE(spinUntil([&] { return endPause() > 0; }));
    EXPECT_TRUE(spinUntil([this] { return host.tooltip().title != QString(); }));
}

TEST_F(QuillbarAppTest, hintsAreInTheFontsOfThePanel) {
    startInTray();
    app->showPanel(QString());
    EXPECT_EQ(QToolTip::font().families(), systemFont(10).families());
}

TEST_F(QuillbarAppTest, theMenuOpensThePanel) {
    startInTray();
    choose(StatusItem::kOpenPanel);
    EXPECT_NE(panel(), nullptr);
}

TEST_F(QuillbarAppTest, theMenuHasTheSettings) {
    startInTray();
    host.readMenu();
    for (const char* const label : {"涨跌幅基准", "外观", "跟随系统"}) {
        EXPECT_TRUE(shows(label)) << label;
    }
    EXPECT_TRUE(isOn("24 小时"));
    EXPECT_FALSE(isOn("今日"));
    EXPECT_TRUE(isOn("深色"));
    EXPECT_FALSE(isOn("浅色"));
    EXPECT_FALSE(isOn("开机自启"));
}

TEST_F(QuillbarAppTest, theMenuChangesTheSettings) {
    startInTray();
    choose("今日");
    EXPECT_TRUE(isOn("今日"));
    EXPECT_FALSE(isOn("24 小时"));
    choose("浅色");
    EXPECT_TRUE(isOn("浅色"));
    EXPECT_FALSE(isOn("深色"));
    EXPECT_TRUE(spinUntil([this] {
        const std::string settings = contentsOf(folder.path() / "settings.json");
        return settings.find(R"("changeBasis":"today")") != std::string::npos
               && settings.find(R"("appearance":"light")") != std::string::npos;
    })) << contentsOf(folder.path() / "settings.json");
}

TEST_F(QuillbarAppTest, theMenuSwitchesStartingAtLoginAndFollowsTheDesktop) {
    startInTray();
    choose("开机自启");
    EXPECT_TRUE(isOn("开机自启"));
    const std::string entry = contentsOf(autostartEntry());
    EXPECT_NE(entry, "");

    std::filesystem::remove(autostartEntry());
    openMenu();
    EXPECT_FALSE(isOn("开机自启"));
    writeContents(autostartEntry(), entry);
    openMenu();
    EXPECT_TRUE(isOn("开机自启"));

    choose("开机自启");
    EXPECT_FALSE(isOn("开机自启"));
    EXPECT_FALSE(std::filesystem::exists(autostartEntry()));
}

TEST_F(QuillbarAppTest, theMenuSaysWhyStartingAtLoginCouldNotBeSwitched) {
    constexpr const char* kNotOn = "开机自启注册失败,请检查系统设置中的登录项";
    constexpr const char* kNotOff = "取消开机自启失败,请稍后重试";
    // Not written by this program, which leaves it alone.
    const auto somebodyElsesEntry = [this](const std::string& program) {
        writeContents(autostartEntry(), "[Desktop Entry]\nType=Application\nExec=" + program);
    };
    somebodyElsesEntry("/nowhere/quillbar");
    startInTray();
    choose("开机自启");
    EXPECT_FALSE(isOn("开机自启"));
    EXPECT_TRUE(shows(kNotOn));

    somebodyElsesEntry("/bin/sh");
    openMenu();
    EXPECT_TRUE(isOn("开机自启"));
    choose("开机自启");
    EXPECT_TRUE(isOn("开机自启"));
    EXPECT_TRUE(shows(kNotOff));
    EXPECT_FALSE(shows(kNotOn));
}

TEST_F(QuillbarAppTest, theMenuOpensThePanelAtThePreferences) {
    startInTray();
    choose("偏好设置…");
    ASSERT_NE(panel(), nullptr);
    EXPECT_NE(named(*panel(), QStringLiteral("颜色")), nullptr);
}

TEST_F(QuillbarAppTest, aCommandOpensThePreferencesWhetherOrNotThePanelIsOpen) {
    startInTray();
    app->showPreferences(QString());
    ASSERT_NE(panel(), nullptr);
    EXPECT_NE(named(*panel(), QStringLiteral("颜色")), nullptr);
    app->togglePanel(QString());
    ASSERT_EQ(panel(), nullptr);
    app->showPanel(QString());
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(named(*panel(), QStringLiteral("颜色")), nullptr) << "it opens with the prices";
    app->showPreferences(QString());
    EXPECT_NE(named(*panel(), QStringLiteral("颜色")), nullptr);
}

TEST_F(QuillbarAppTest, theColorsOfChangesReachTheItemAndTheFileAtOnce) {
    startInTray();
    const auto hasColorsOf = [this](ChangeColors choice) {
        const auto palette = ChangePalette::of(choice, ChangePalette::Ground::statusArea);
        return hasColor(host.icon(), palette.up) || hasColor(host.icon(), palette.down);
    };
    ASSERT_TRUE(spinUntil([&] { return hasColorsOf(ChangeColors::greenUp); }));
    app->showPreferences(QString());
    QTest::mouseClick(named(*panel(), QStringLiteral("蓝涨橙跌")), Qt::LeftButton);
    EXPECT_TRUE(spinUntil([&] { return hasColorsOf(ChangeColors::blueUp); }));
    EXPECT_FALSE(hasColorsOf(ChangeColors::greenUp));
    EXPECT_EQ(contentsOf(folder.path() / "preferences.json"),
              R"({"schemaVersion":1,"changeColors":"blueUp"})");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "settings.json"));
}

TEST_F(QuillbarAppTest, theMenuQuits) {
    startInTray();
    EXPECT_EQ(statusAfter([this] { choose(StatusItem::kQuit); }), kQuit);
}

TEST_F(QuillbarAppTest, theKeyForQuittingQuitsFromThePanel) {
    startInTray();
    app->showPanel(QString());
    ASSERT_TRUE(spinUntil([] { return panel()->isActiveWindow(); }));
    EXPECT_EQ(statusAfter([] { QTest::keyClick(panel(), Qt::Key_Q, Qt::ControlModifier); }), kQuit);
}

TEST_F(QuillbarAppTest, commandsToggleThePanel) {
    startInTray();
    app->togglePanel(QString());
    EXPECT_NE(panel(), nullptr);
    app->togglePanel(QString());
    EXPECT_EQ(panel(), nullptr);
}

TEST_F(QuillbarAppTest, withoutATrayThePanelOpensAndSaysWhy) {
    startWithoutTray(bus);
    EXPECT_TRUE(tells(Notice::noTray));
    EXPECT_FALSE(tells(Notice::noSessionBus));
    EXPECT_THAT(log.lines("QuillbarApp"), IsEmpty());
    QWidget* const mark = named(*panel(), QStringLiteral("关闭面板"));
    ASSERT_NE(mark, nullptr) << "there is no item to click a second time";
    QTest::mouseClick(mark, Qt::LeftButton);
    spinUntilIdle();
    app->togglePanel(QString());
    ASSERT_NE(panel(), nullptr) << "closing does not quit where a command opens it again";
    host.beWatcher();
    EXPECT_TRUE(spinUntil([] { return !tells(Notice::noTray); }));
    EXPECT_EQ(named(*panel(), QStringLiteral("关闭面板")), nullptr);
}

TEST_F(QuillbarAppTest, inTheBackgroundNothingOpensWithoutATrayUntilACommandDoes) {
    start(bus, QuillbarApp::WithoutTray::waits);
    ASSERT_TRUE(spinUntil([this] { return endPatience(); }));
    spinUntilIdle();
    EXPECT_EQ(panel(), nullptr);
    app->togglePanel(QString());
    ASSERT_NE(panel(), nullptr);
    EXPECT_TRUE(tells(Notice::noTray));
    EXPECT_NE(named(*panel(), QStringLiteral("关闭面板")), nullptr);
    QTest::keyClick(panel(), Qt::Key_Escape);
    spinUntilIdle();
    EXPECT_EQ(panel(), nullptr);
    app->showPanel(QString());
    EXPECT_NE(panel(), nullptr) << "closing it did not quit";
}

TEST_F(QuillbarAppTest, inTheBackgroundATrayThatComesLateTakesTheItem) {
    start(bus, QuillbarApp::WithoutTray::waits);
    ASSERT_TRUE(spinUntil([this] { return endPatience(); }));
    host.beWatcher();
    ASSERT_TRUE(spinUntil([this] { return !host.registered.isEmpty(); }));
    spinUntilIdle();
    EXPECT_EQ(panel(), nullptr);
    host.callItem(QStringLiteral("Activate"), {300, 5});
    ASSERT_NE(panel(), nullptr);
    EXPECT_FALSE(tells(Notice::noTray));
}

TEST_F(QuillbarAppTest, withoutASessionBusThePanelOpensAndSaysWhy) {
    startWithoutTray(std::nullopt);
    EXPECT_TRUE(tells(Notice::noSessionBus));
    EXPECT_FALSE(tells(Notice::noTray)) << "the bus is the reason";
    EXPECT_THAT(log.lines("QuillbarApp"),
                Contains("QuillbarApp|error|no session bus: no item in the status area"));
}

TEST_F(QuillbarAppTest, withoutASessionBusAClosedPanelIsTheEnd) {
    startWithoutTray(std::nullopt);
    EXPECT_EQ(statusAfter([] { QTest::keyClick(panel(), Qt::Key_Escape); }), kQuit)
        << "nothing could ever open it again";
}

}  // namespace

}  // namespace quillbar
