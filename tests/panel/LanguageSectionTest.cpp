// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/LanguageSection.h"
#include "Quillbar/widgets/Heading.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <QAbstractButton>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

const QString kChinese = QStringLiteral("简体中文");
const QString kEnglish = QStringLiteral("English");

struct LanguageSectionTest : PanelFixture {
    void openPage(Qt::FocusReason reason = Qt::OtherFocusReason) {
        startConnected(listOf({"BTC", "ETH"}));
        showActive(show());
        panel->showPreferences(reason);
        spinUntilIdle();
    }
    [[nodiscard]] bool isChosen(const QString& name) const {
        return dynamic_cast<QAbstractButton&>(*named(*panel, name)).isChecked();
    }
    void renewIn(TextLanguage language) {
        TextLanguages::use(language);
        panel->renew();
        panel->resize(panel->sizeHint());
        spinUntilIdle();
    }

    // Whatever a test uses, Chinese is back after it.
    UsedLanguage used{TextLanguage::chinese};
};

TEST_F(LanguageSectionTest, offersChineseEnglishAndTheDesktops) {
    openPage();
    EXPECT_TRUE(isChosen(kChinese));
    click(kEnglish);
    EXPECT_EQ(preferences.preferences()->language, Language::english);
    EXPECT_TRUE(isChosen(kEnglish));
    EXPECT_EQ(PreferencesStore(folder.path()).load().language, Language::english);
    const LanguageSection& section = *shown<LanguageSection>();
    QTest::mouseClick(named(section, QStringLiteral("跟随系统")), Qt::LeftButton);
    EXPECT_EQ(preferences.preferences()->language, Language::desktop);
    click(kChinese);
    EXPECT_EQ(preferences.preferences()->language, Language::chinese);
}

TEST_F(LanguageSectionTest, standsUnderItsHeadingInBothLanguages) {
    openPage();
    EXPECT_EQ(shown<LanguageSection>()->title(), QStringLiteral("语言"));
    renewIn(TextLanguage::english);
    EXPECT_EQ(shown<LanguageSection>()->title(), QStringLiteral("Language"));
}

TEST_F(LanguageSectionTest, namesEachLanguageInItselfWhateverLanguageIsUsed) {
    openPage();
    renewIn(TextLanguage::english);
    EXPECT_NE(named(*panel, kChinese), nullptr);
    EXPECT_NE(named(*panel, kEnglish), nullptr);
}

TEST_F(LanguageSectionTest, thePageStaysWithTheFocusOnTheLanguage) {
    openPage(Qt::TabFocusReason);
    QWidget* row = named(*panel, kChinese);
    row->setFocus(Qt::TabFocusReason);
    QTest::keyClick(row, Qt::Key_Down);
    EXPECT_EQ(preferences.preferences()->language, Language::english);
    renewIn(TextLanguage::english);
    EXPECT_NE(shown<LanguageSection>(), nullptr);
    EXPECT_EQ(focused(), kEnglish);
    EXPECT_TRUE(hasRing(kEnglish)) << "the keyboard chose it";
    EXPECT_TRUE(isChosen(kEnglish));
    const QWidget& chosen = *named(*panel, kEnglish);
    EXPECT_EQ(chosen.visibleRegion(), QRegion(chosen.rect()));
    QTest::keyClick(panel->focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(shown<LanguageSection>(), nullptr);
    EXPECT_NE(shown<RowList>(), nullptr);
    EXPECT_EQ(focused(), QStringLiteral("Settings")) << "the button from which pages are opened";
}

TEST_F(LanguageSectionTest, thePanelIsTheSameAgainInTheLanguageOfBefore) {
    startConnected(listOf({"BTC", "ETH"}));
    showActive(show());
    const QImage before = pictureOf(*panel);
    const QSize size = panel->sizeHint();
    renewIn(TextLanguage::english);
    EXPECT_NE(pictureOf(*panel), before);
    renewIn(TextLanguage::chinese);
    EXPECT_EQ(panel->sizeHint(), size);
    EXPECT_EQ(pictureOf(*panel), before);
}

TEST_F(LanguageSectionTest, renewingKeepsTheTabAndThePanelsMark) {
    theExchangeHas({"BTC", "ETH"});
    startConnected(listOf({"BTC"}));
    showActive(show());
    panel->setStandalone(true);
    click(QStringLiteral("成交额"));
    ASSERT_TRUE(panel->tab().board());
    renewIn(TextLanguage::chinese);
    EXPECT_TRUE(panel->tab().board());
    EXPECT_EQ(shown<LanguageSection>(), nullptr);
    EXPECT_NE(named(*panel, QStringLiteral("关闭面板")), nullptr);
}

TEST_F(LanguageSectionTest, renewingClosesAChartAndAnOpenMenu) {
    showOneCoin();
    panel->showChart(symbolOf("BTC"));
    spinUntilIdle();
    ASSERT_TRUE(panel->expandedSymbol()->has_value());
    click(QStringLiteral("设置"));
    ASSERT_NE(menu(), nullptr);
    renewIn(TextLanguage::chinese);
    EXPECT_FALSE(panel->expandedSymbol()->has_value());
    EXPECT_EQ(menu(), nullptr);
    panel->showChart(symbolOf("BTC"));
    EXPECT_TRUE(panel->expandedSymbol()->has_value());
}

}  // namespace
}  // namespace quillbar
