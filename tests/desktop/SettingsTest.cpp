// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/DesktopFixture.h"

namespace quillbar {

namespace {

/// The entries of the gear's menu that the keyboard stops at.
enum GearEntry : int { rolling = 1, today, dark, light, system, launch, preferences, copy, quit };

const QString kBasis = QStringLiteral("changeBasis");
const QString kAppearance = QStringLiteral("appearance");
const QString kLaunch = QStringLiteral("开机自启");
const QString kQuit = QStringLiteral("退出 Quillbar");

class SettingsTest : public DesktopFixture {
protected:
    [[nodiscard]] bool comesToBe(Desktop::Shade shade) const {
        return eventually([&] {
            const int lightness = screen().picture(panelGeometry()).pixelColor(200, 8).lightness();
            return shade == Desktop::Shade::dark ? lightness < 60 : lightness > 220;
        });
    }

    [[nodiscard]] bool comesToBeInMenu(const QString& entry) const {
        return eventually([&] { return itemMenu().isOn(entry); });
    }
};

TEST_F(SettingsTest, bothChangeBasesCanBeChosen) {
    startApplication();
    openPanel();
    chooseFromGear(today);
    EXPECT_TRUE(comesToKeep(kBasis, QStringLiteral("today")));
    EXPECT_TRUE(comesToBeInMenu(QStringLiteral("今日")));
    EXPECT_TRUE(eventually([this] { return hasRowsUpTo(3); }));
    itemMenu().choose(QStringLiteral("24 小时"));
    EXPECT_TRUE(comesToKeep(kBasis, QStringLiteral("rolling24h")));
    EXPECT_FALSE(itemMenu().isOn(QStringLiteral("今日")));
    chooseFromGear(today);
    EXPECT_TRUE(comesToKeep(kBasis, QStringLiteral("today")));
    chooseFromGear(rolling);
    EXPECT_TRUE(comesToKeep(kBasis, QStringLiteral("rolling24h")));
}

TEST_F(SettingsTest, everyAppearanceIsSeenAtOnce) {
    startApplication();
    openPanel();
    chooseFromGear(light);
    EXPECT_TRUE(comesToBe(Desktop::Shade::light));
    EXPECT_TRUE(comesToKeep(kAppearance, QStringLiteral("light")));
    chooseFromGear(dark);
    EXPECT_TRUE(comesToBe(Desktop::Shade::dark));
    EXPECT_TRUE(comesToKeep(kAppearance, QStringLiteral("dark")));
    itemMenu().choose(QStringLiteral("浅色"));
    EXPECT_TRUE(comesToBe(Desktop::Shade::light));
    chooseFromGear(system);
    EXPECT_TRUE(comesToKeep(kAppearance, QStringLiteral("system")));
    desktop().become(Desktop::Shade::dark);
    EXPECT_TRUE(comesToBe(Desktop::Shade::dark));
    desktop().become(Desktop::Shade::light);
    EXPECT_TRUE(comesToBe(Desktop::Shade::light));
}

TEST_F(SettingsTest, aLargerTextSizeIsSeenAtOnceAndStaysOnTheScreen) {
    startApplication();
    openPanel();
    const QRect before = panelGeometry();
    EXPECT_EQ(startAgain({QStringLiteral("--preferences")}), 0);
    settle();
    // From the colours to the sizes, and to the largest of them.
    screen().key(Screen::kTab);
    screen().key(Screen::kDown);
    screen().key(Screen::kDown);
    EXPECT_TRUE(eventually([&] { return panelGeometry().width() == before.width() * 13 / 10; }));
    EXPECT_TRUE(screen().workArea().contains(panelGeometry()));
    EXPECT_TRUE(eventually([this] {
        return kept(QStringLiteral("preferences.json"))[QStringLiteral("textSize")] == 130;
    }));
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([&] {
        return panelGeometry().size() == QSize(520, panelGeometry().height())
               && panelGeometry().height() > before.height() * 5 / 4;
    }));
    EXPECT_TRUE(screen().workArea().contains(panelGeometry()));
}

TEST_F(SettingsTest, launchAtLoginIsSwitchedByEitherMenu) {
    startApplication();
    openPanel();
    const auto isThere = [this] { return autostartEntry().has_value(); };
    ASSERT_FALSE(isThere());
    chooseFromGear(launch);
    ASSERT_TRUE(eventually(isThere));
    const QString exec = QStringLiteral("\nExec=\"%1\"").arg(QStringLiteral(QUILLBAR_PROGRAM));
    const QString entry = autostartEntry().value_or(QString());
    EXPECT_TRUE(entry.contains(exec)) << entry.toStdString();
    EXPECT_TRUE(comesToBeInMenu(kLaunch));
    itemMenu().choose(kLaunch);
    EXPECT_TRUE(eventually([&] { return !isThere(); }));
    EXPECT_FALSE(itemMenu().isOn(kLaunch));
    itemMenu().choose(kLaunch);
    EXPECT_TRUE(eventually(isThere));
    chooseFromGear(launch);
    EXPECT_TRUE(eventually([&] { return !isThere(); }));
}

TEST_F(SettingsTest, thePreferencesAreChosenByKeyboardAndLeftByEscape) {
    startApplication();
    openPanel();
    EXPECT_TRUE(isTabSelected(0));
    chooseFromGear(preferences);
    EXPECT_TRUE(eventually([this] { return !isTabSelected(0); }));
    screen().key(Screen::kDown);
    EXPECT_TRUE(eventually([this] {
        const QJsonObject document = kept(QStringLiteral("preferences.json"));
        return document.value(QStringLiteral("changeColors")).toString() == QStringLiteral("redUp");
    }));
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([this] { return isTabSelected(0); }));
    EXPECT_TRUE(isPanelOpen());
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([this] { return !isPanelOpen(); }));
}

TEST_F(SettingsTest, theItemsMenuAndACommandOpenThePreferences) {
    startApplication();
    itemMenu().choose(QStringLiteral("偏好设置…"));
    EXPECT_TRUE(eventually([this] { return isPanelOpen() && !isTabSelected(0); }));
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([this] { return isPanelOpen() && isTabSelected(0); }));
    screen().key(Screen::kEscape);
    ASSERT_TRUE(eventually([this] { return !isPanelOpen(); }));
    EXPECT_EQ(startAgain({QStringLiteral("--preferences")}), 0);
    EXPECT_TRUE(eventually([this] { return isPanelOpen() && !isTabSelected(0); }));
    EXPECT_EQ(startAgain({QStringLiteral("--toggle")}), 0);
    ASSERT_TRUE(eventually([this] { return !isPanelOpen(); }));
    clickItem();
    EXPECT_TRUE(eventually([this] { return isPanelOpen() && isTabSelected(0); }))
        << "it opens with the prices";
}

TEST_F(SettingsTest, theGearsMenuEndsTheApplication) {
    startApplication();
    openPanel();
    chooseFromGear(quit);
    EXPECT_EQ(endOfApplication(), 0);
}

TEST_F(SettingsTest, theItemsMenuEndsTheApplication) {
    startApplication();
    itemMenu().choose(kQuit);
    EXPECT_EQ(endOfApplication(), 0);
}

}  // namespace

}  // namespace quillbar
