// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PreferencesStore.h"
#include "tests/app/QuillbarAppFixture.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <QTest>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

struct AppLanguageTest : QuillbarAppFixture {
    void clickRow(const char* language) {
        QWidget* const row = named(*panel(), QString::fromUtf8(language));
        ASSERT_NE(row, nullptr) << language;
        QTest::mouseClick(row, Qt::LeftButton);
        spinUntilIdle();
    }
    [[nodiscard]] bool isInPanel(const char* text) const {
        return named(*panel(), QString::fromUtf8(text)) != nullptr;
    }

    // Whatever a test uses, Chinese is back after it.
    UsedLanguage used{TextLanguage::chinese};
};

TEST_F(AppLanguageTest, aChoiceReachesThePanelAndTheMenuAtOnceAndThereAndBack) {
    startInTray();
    app->showPreferences(QString());
    const PanelWindow* const window = panel();
    openMenu();
    EXPECT_TRUE(shows("外观"));
    clickRow("English");
    ASSERT_EQ(panel(), window) << "it stays open";
    EXPECT_TRUE(isInPanel("Language"));
    EXPECT_FALSE(isInPanel("语言"));
    EXPECT_EQ(panel()->focusWidget()->accessibleName(), QStringLiteral("English"));
    openMenu();
    EXPECT_TRUE(shows("Today"));
    EXPECT_FALSE(shows("今日"));
    clickRow("简体中文");
    EXPECT_TRUE(isInPanel("语言"));
    openMenu();
    EXPECT_TRUE(shows("今日"));
    EXPECT_FALSE(shows("Today"));
}

TEST_F(AppLanguageTest, beginsInTheLanguageThatIsStored) {
    PreferencesStore(folder.path()).save(Preferences{}.settingLanguage(Language::english));
    startInTray();
    openMenu();
    EXPECT_TRUE(shows("Today"));
    app->showPreferences(QString());
    EXPECT_TRUE(isInPanel("Language"));
}

}  // namespace

}  // namespace quillbar
