// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/SettingsMenu.h"
#include "tests/panel/SettingsFixture.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <gmock/gmock.h>

#include <set>

namespace quillbar {
namespace {

using std::nullopt;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

const QString kCannotRegister = QStringLiteral("开机自启注册失败,请检查系统设置中的登录项");
const QString kCannotUnregister = QStringLiteral("取消开机自启失败,请稍后重试");

using SettingsMenuTest = SettingsFixture;

TEST_F(SettingsMenuTest, showsEverySettingOfAFirstStart) {
    makeSettings();
    EXPECT_THAT(entries(),
                ElementsAre("[涨跌幅基准]",
                            "24 小时*",
                            "今日",
                            "[外观]",
                            "深色*",
                            "浅色",
                            "跟随系统",
                            "-",
                            "开机自启",
                            "偏好设置…"));
}

TEST_F(SettingsMenuTest, marksWhatIsStored) {
    theUserHas(AppSettings::defaultSettings()
                   .settingBasis(ChangeBasis::today)
                   .settingAppearance(AppearanceMode::system));
    item.current = LoginItemStatus::enabled;
    makeSettings();
    EXPECT_THAT(entries(),
                ElementsAre("[涨跌幅基准]",
                            "24 小时",
                            "今日*",
                            "[外观]",
                            "深色",
                            "浅色",
                            "跟随系统*",
                            "-",
                            "开机自启*",
                            "偏好设置…"));
}

TEST_F(SettingsMenuTest, headersAndNoticesCannotBeChosenAndAllElseCan) {
    item.afterRegister = LoginItemStatus::notFound;
    makeSettings().setLaunchAtLogin(true);
    for (const MenuEntry& entry : *settings->entries()) {
        EXPECT_EQ(entry.isUsable(), entry.kind == MenuEntry::Kind::action)
            << entry.label.toStdString();
    }
}

TEST_F(SettingsMenuTest, pickersAreMarkedAsRadiosAndTheSwitchAsACheck) {
    makeSettings();
    const auto& all = *settings->entries();
    EXPECT_EQ(all.at(1).mark, MenuEntry::Mark::radio);
    EXPECT_EQ(all.at(6).mark, MenuEntry::Mark::radio);
    EXPECT_EQ(all.at(8).mark, MenuEntry::Mark::check);
    EXPECT_EQ(all.at(0).mark, MenuEntry::Mark::none);
}

TEST_F(SettingsMenuTest, itsIdsAreUniqueAndApartFromTheItemsOwn) {
    item.afterRegister = LoginItemStatus::notFound;
    makeSettings().setLaunchAtLogin(true);
    std::set<int> ids;
    for (const MenuEntry& entry : *settings->entries()) {
        EXPECT_GE(entry.id, SettingsMenu::kFirstId);
        EXPECT_LE(entry.id, SettingsMenu::kLastId);
        EXPECT_TRUE(ids.insert(entry.id).second) << entry.id;
    }
    EXPECT_EQ(ids.size(), 11U);
}

TEST_F(SettingsMenuTest, choosesTheBasis) {
    makeSettings();
    choose("今日");
    EXPECT_EQ(state->settings()->changeBasis, ChangeBasis::today);
    EXPECT_EQ(storedSettings().changeBasis, ChangeBasis::today);
    EXPECT_THAT(entries(), Contains("今日*"));
    EXPECT_THAT(entries(), Not(Contains("24 小时*")));
    choose("24 小时");
    EXPECT_EQ(storedSettings().changeBasis, ChangeBasis::rolling24h);
}

TEST_F(SettingsMenuTest, choosesTheAppearance) {
    makeSettings();
    for (const auto& [label, mode] :
         std::vector<std::pair<std::string, AppearanceMode>>{{"跟随系统", AppearanceMode::system},
                                                             {"浅色", AppearanceMode::light},
                                                             {"深色", AppearanceMode::dark}}) {
        choose(label);
        EXPECT_EQ(state->settings()->appearance, mode);
        EXPECT_EQ(storedSettings().appearance, mode);
        EXPECT_THAT(entries(), Contains(label + "*"));
    }
}

TEST_F(SettingsMenuTest, leavesThePageOfPreferencesToWhoShowsTheMenu) {
    makeSettings();
    const AppSettings before = *state->settings();
    EXPECT_EQ(settings->choose(settings->entries()->back().id),
              SettingsMenu::Choice::wantsPreferences);
    EXPECT_EQ(*state->settings(), before);
    EXPECT_THAT(item.calls, IsEmpty());
}

TEST_F(SettingsMenuTest, followsSettingsThatAreChangedElsewhere) {
    makeSettings();
    state->setAppearance(AppearanceMode::light);
    EXPECT_THAT(entries(), Contains("浅色*"));
}

TEST_F(SettingsMenuTest, idsOfNoEntryDoNothing) {
    makeSettings();
    const auto before = *state->settings();
    for (const int id : {-1, 0, 2, 9, 10, 20, 30, 99, 1000}) {
        settings->choose(id);
    }
    EXPECT_EQ(*state->settings(), before);
    EXPECT_THAT(item.calls, IsEmpty());
}

TEST_F(SettingsMenuTest, switchesLaunchAtLoginOnAndOff) {
    makeSettings();
    choose("开机自启");
    EXPECT_THAT(item.calls, ElementsAre("register"));
    EXPECT_TRUE(*settings->launchAtLogin());
    EXPECT_THAT(entries(), Contains("开机自启*"));
    choose("开机自启");
    EXPECT_THAT(item.calls, ElementsAre("register", "unregister"));
    EXPECT_FALSE(*settings->launchAtLogin());
    EXPECT_EQ(*settings->launchAtLoginError(), nullopt);
}

TEST_F(SettingsMenuTest, movesTheSwitchBeforeTheSystemAnswers) {
    makeSettings();
    item.afterRegister = LoginItemStatus::notRegistered;
    std::vector<bool> seen;
    item.duringRegister = [this, &seen] { seen.push_back(*settings->launchAtLogin()); };
    const Notes notes(settings->launchAtLogin());
    settings->setLaunchAtLogin(true);
    EXPECT_THAT(seen, ElementsAre(true));
    EXPECT_THAT(notes.values, ElementsAre(true, false));
}

TEST_F(SettingsMenuTest, theSwitchReturnsWhenTheSystemRefuses) {
    makeSettings();
    item.failure = "refused";
    item.afterRegister = LoginItemStatus::notRegistered;
    choose("开机自启");
    EXPECT_FALSE(*settings->launchAtLogin());
    EXPECT_EQ(*settings->launchAtLoginError(), kCannotRegister);
    const auto all = entries();
    EXPECT_EQ(all.at(8), "开机自启");
    EXPECT_EQ(all.at(9), "<" + kCannotRegister.toStdString() + ">");
    EXPECT_EQ(all.at(10), "偏好设置…");
    EXPECT_EQ(all.size(), 11U);
}

TEST_F(SettingsMenuTest, theSwitchReturnsWhenTheSystemWantsApproval) {
    makeSettings();
    item.afterRegister = LoginItemStatus::requiresApproval;
    choose("开机自启");
    EXPECT_FALSE(*settings->launchAtLogin());
    EXPECT_EQ(*settings->launchAtLoginError(), kCannotRegister);
}

TEST_F(SettingsMenuTest, theSwitchStaysOnWhenItCannotBeSwitchedOff) {
    item.current = LoginItemStatus::enabled;
    item.afterUnregister = LoginItemStatus::enabled;
    makeSettings();
    choose("开机自启");
    EXPECT_TRUE(*settings->launchAtLogin());
    EXPECT_EQ(*settings->launchAtLoginError(), kCannotUnregister);
}

TEST_F(SettingsMenuTest, anItemThatIsGoneAlreadyIsSwitchedOffWithoutAnError) {
    item.current = LoginItemStatus::enabled;
    makeSettings();
    item.current = LoginItemStatus::notRegistered;
    item.failure = "no such item";
    choose("开机自启");
    EXPECT_FALSE(*settings->launchAtLogin());
    EXPECT_EQ(*settings->launchAtLoginError(), nullopt);
}

TEST_F(SettingsMenuTest, theErrorStaysUntilASwitchThatSucceeds) {
    makeSettings();
    item.afterRegister = LoginItemStatus::requiresApproval;
    choose("开机自启");
    settings->refresh();
    choose("浅色");
    EXPECT_EQ(*settings->launchAtLoginError(), kCannotRegister);
    item.afterRegister = LoginItemStatus::enabled;
    choose("开机自启");
    EXPECT_EQ(*settings->launchAtLoginError(), nullopt);
    EXPECT_EQ(entries().size(), 10U);
}

TEST_F(SettingsMenuTest, theErrorStaysInAnotherLanguage) {
    makeSettings();
    item.afterRegister = LoginItemStatus::requiresApproval;
    choose("开机自启");
    {
        const UsedLanguage english(TextLanguage::english);
        settings->renewTexts();
        EXPECT_TRUE(
            (*settings->launchAtLoginError())->startsWith(QStringLiteral("Start at login ")));
        EXPECT_EQ(entries().size(), 11U);
    }
    settings->renewTexts();
    EXPECT_EQ(*settings->launchAtLoginError(), kCannotRegister);
}

TEST_F(SettingsMenuTest, settingsMadeAnewHaveNoError) {
    makeSettings();
    item.afterRegister = LoginItemStatus::requiresApproval;
    choose("开机自启");
    const SettingsMenu another(*state, launch);
    EXPECT_EQ(*another.launchAtLoginError(), nullopt);
    EXPECT_FALSE(*another.launchAtLogin());
}

TEST_F(SettingsMenuTest, asksAgainWhenAMenuOpens) {
    makeSettings();
    item.current = LoginItemStatus::enabled;
    EXPECT_FALSE(*settings->launchAtLogin());
    settings->refresh();
    EXPECT_TRUE(*settings->launchAtLogin());
    EXPECT_THAT(entries(), Contains("开机自启*"));
    item.current = LoginItemStatus::requiresApproval;
    settings->refresh();
    EXPECT_FALSE(*settings->launchAtLogin());
    EXPECT_THAT(item.calls, IsEmpty());
}

}  // namespace
}  // namespace quillbar
