// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/TextLanguage.h"
#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/state/PreferencesStore.h"
#include "tests/qtsupport/UsedLanguage.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string_view>

namespace quillbar {
namespace {

using testing::IsEmpty;

struct TextLanguageTest : testing::Test {
    [[nodiscard]] Language storedAs(std::string_view text) const {
        writeContents(folder.path() / "preferences.json", text);
        return TextLanguages::storedIn(folder.path());
    }

    CapturedLog log;
    TemporaryFolder folder;
};

TEST_F(TextLanguageTest, isChineseAtFirst) {
    EXPECT_EQ(TextLanguages::inUse(), TextLanguage::chinese);
    EXPECT_EQ(TextLanguages::translation(), nullptr);
    EXPECT_EQ(translated("core", "今日"), QStringLiteral("今日"));
}

TEST_F(TextLanguageTest, changesAsOftenAsItIsChosen) {
    for (int round = 0; round < 2; ++round) {
        const UsedLanguage english(TextLanguage::english);
        TextLanguages::use(TextLanguage::english);
        EXPECT_EQ(TextLanguages::inUse(), TextLanguage::english);
        EXPECT_EQ(translated("core", "今日"), QStringLiteral("Today"));
        TextLanguages::use(TextLanguage::chinese);
        EXPECT_EQ(TextLanguages::inUse(), TextLanguage::chinese);
        EXPECT_EQ(translated("core", "今日"), QStringLiteral("今日"));
    }
}

TEST_F(TextLanguageTest, leavesWhatHasNoTranslationAsItIs) {
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(translated("core", "没有译文"), QStringLiteral("没有译文"));
    EXPECT_EQ(translated("another room", "今日"), QStringLiteral("今日"));
}

TEST_F(TextLanguageTest, writesTheNumberInTheTextsOfBothLanguages) {
    EXPECT_EQ(translated("platform", "数据为%n 小时前的", nullptr, 30),
              QStringLiteral("数据为30 小时前的"));
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(translated("platform", "数据为%n 小时前的", nullptr, 1),
              QStringLiteral("data from 1 hour ago"));
    EXPECT_EQ(translated("platform", "数据为%n 小时前的", nullptr, 30),
              QStringLiteral("data from 30 hours ago"));
}

TEST_F(TextLanguageTest, aChoiceOfTheUsersCountsOnEveryDesktop) {
    for (const QStringList& desktop : {QStringList(), QStringList(QStringLiteral("de-DE"))}) {
        EXPECT_EQ(TextLanguages::chosen(Language::chinese, desktop), TextLanguage::chinese);
        EXPECT_EQ(TextLanguages::chosen(Language::english, desktop), TextLanguage::english);
    }
    EXPECT_EQ(TextLanguages::chosen(Language::chinese), TextLanguage::chinese);
    EXPECT_EQ(TextLanguages::chosen(Language::english), TextLanguage::english);
}

TEST_F(TextLanguageTest, followsTheFirstLanguageOfTheDesktopThatItKnows) {
    const auto of = [](const QStringList& desktop) {
        return TextLanguages::chosen(Language::desktop, desktop);
    };
    for (const auto* const chinese : {"zh", "zh-Hans-CN", "zh_CN", "zh-TW"}) {
        EXPECT_EQ(of({QString::fromUtf8(chinese)}), TextLanguage::chinese) << chinese;
    }
    EXPECT_EQ(of({QStringLiteral("en-US"), QStringLiteral("zh-CN")}), TextLanguage::english);
    EXPECT_EQ(of({QStringLiteral("zh-CN"), QStringLiteral("en-US")}), TextLanguage::chinese);
    EXPECT_EQ(of({QStringLiteral("de-DE"), QStringLiteral("zh-CN")}), TextLanguage::chinese);
    EXPECT_EQ(of({QStringLiteral("de-DE")}), TextLanguage::english);
    EXPECT_EQ(of({QStringLiteral("C")}), TextLanguage::english);
    EXPECT_EQ(of({}), TextLanguage::english);
}

TEST_F(TextLanguageTest, ofTheUserIsUsedBeforeThereArePreferences) {
    const TemporaryEnvironment data("XDG_DATA_HOME", folder.path().string());
    const UsedLanguage used(TextLanguage::chinese);
    TextLanguages::useStored();
    EXPECT_EQ(TextLanguages::inUse(), TextLanguage::chinese);
    PreferencesStore(folder.path() / "Quillbar")
        .save(Preferences{}.settingLanguage(Language::english));
    TextLanguages::useStored();
    EXPECT_EQ(TextLanguages::inUse(), TextLanguage::english);
}

TEST_F(TextLanguageTest, isReadFromThePreferencesWithoutALine) {
    EXPECT_EQ(TextLanguages::storedIn(folder.path() / "nowhere"), Language::chinese);
    EXPECT_EQ(storedAs(R"({"schemaVersion":1})"), Language::chinese);
    EXPECT_EQ(storedAs(R"({"schemaVersion":1,"language":"en"})"), Language::english);
    EXPECT_EQ(storedAs(R"({"schemaVersion":1,"language":"desktop"})"), Language::desktop);
    EXPECT_EQ(storedAs(R"({"schemaVersion":1,"language":"fr"})"), Language::chinese);
    EXPECT_EQ(storedAs(R"({"schemaVersion":2,"language":"en"})"), Language::chinese);
    EXPECT_EQ(storedAs("language: en"), Language::chinese);
    EXPECT_THAT(log.lines(), IsEmpty());
}

}  // namespace
}  // namespace quillbar
