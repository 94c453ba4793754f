// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/LocalTimeText.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbar {
namespace {

std::string dayIn(const QLocale& locale) {
    return LocalTimeText::dayAndMonth({2026, 11, 4}, locale).toStdString();
}

std::string timeIn(const QLocale& locale) {
    // Some locales keep the two words of a time together by a space that breaks no line.
    return LocalTimeText::hoursAndMinutes({16, 5, 59}, locale)
        .replace(QChar(0x202F), u' ')
        .toStdString();
}

TEST(LocalTimeTextTest, leavesTheYearOut) {
    EXPECT_EQ(dayIn({QLocale::Chinese, QLocale::China}), "11/4");
    EXPECT_EQ(dayIn({QLocale::English, QLocale::UnitedStates}), "11/4");
    EXPECT_EQ(dayIn({QLocale::English, QLocale::UnitedKingdom}), "04/11");
    EXPECT_EQ(dayIn({QLocale::German, QLocale::Germany}), "04.11.");
    EXPECT_EQ(dayIn({QLocale::Swedish, QLocale::Sweden}), "11-04");
    EXPECT_EQ(dayIn({QLocale::Hungarian, QLocale::Hungary}), "11. 04.");
    EXPECT_EQ(dayIn({QLocale::Bulgarian, QLocale::Bulgaria}), "4.11.");
}

TEST(LocalTimeTextTest, writesNoNameOfAMonth) {
    EXPECT_EQ(dayIn(QLocale::c()), "11/4");
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        const QString text = LocalTimeText::dayAndMonth({2026, 11, 4}, locale);
        EXPECT_FALSE(text.contains(locale.monthName(11, QLocale::ShortFormat))
                     && locale.monthName(11, QLocale::ShortFormat).front().isLetter())
            << text.toStdString();
    }
}

TEST(LocalTimeTextTest, namesTheMonthAmongEnglishTextsInAnEnglishLocaleAlone) {
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(dayIn({QLocale::English, QLocale::UnitedStates}), "Nov 4");
    EXPECT_EQ(dayIn({QLocale::English, QLocale::UnitedKingdom}), "4 Nov");
    EXPECT_EQ(dayIn({QLocale::Chinese, QLocale::China}), "11/4");
    EXPECT_EQ(dayIn({QLocale::German, QLocale::Germany}), "04.11.");
    EXPECT_TRUE(LocalTimeText::dayAndMonth({}, QLocale::English).isEmpty());
}

TEST(LocalTimeTextTest, writesNoWordsOfAnotherLanguageAmongEnglishTexts) {
    const QLocale taiwan(QLocale::Chinese, QLocale::TraditionalChineseScript, QLocale::Taiwan);
    EXPECT_NE(timeIn(taiwan), "16:05") << "or it shows nothing";
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(timeIn(taiwan), "16:05");
    EXPECT_EQ(timeIn({QLocale::English, QLocale::UnitedStates}), "4:05 PM");
    EXPECT_EQ(timeIn({QLocale::German, QLocale::Germany}), "16:05");
}

TEST(LocalTimeTextTest, theLocaleOfTheTextsFollowsTheirLanguage) {
    EXPECT_EQ(dayIn(LocalTimeText::localeOfTexts()), "11/4");
    EXPECT_EQ(timeIn(LocalTimeText::localeOfTexts()), "16:05");
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(dayIn(LocalTimeText::localeOfTexts()), "4 Nov");
    EXPECT_EQ(timeIn(LocalTimeText::localeOfTexts()), "16:05");
}

TEST(LocalTimeTextTest, leavesTheSecondsOut) {
    EXPECT_EQ(timeIn({QLocale::Chinese, QLocale::China}), "16:05");
    EXPECT_EQ(timeIn({QLocale::English, QLocale::UnitedStates}), "4:05 PM");
    EXPECT_EQ(timeIn({QLocale::German, QLocale::Germany}), "16:05");
    EXPECT_EQ(timeIn(QLocale::c()), "16:05");
}

TEST(LocalTimeTextTest, knowsDayAndMonthInEveryLocale) {
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        const QString first = LocalTimeText::dayAndMonth({2026, 11, 4}, locale);
        EXPECT_NE(first, LocalTimeText::dayAndMonth({2026, 11, 5}, locale)) << dayIn(locale);
        EXPECT_NE(first, LocalTimeText::dayAndMonth({2026, 12, 4}, locale)) << dayIn(locale);
        EXPECT_EQ(first, LocalTimeText::dayAndMonth({2037, 11, 4}, locale)) << dayIn(locale);
    }
}

TEST(LocalTimeTextTest, isEmptyForNoDateAndNoTime) {
    EXPECT_TRUE(LocalTimeText::dayAndMonth({}, QLocale::c()).isEmpty());
    EXPECT_TRUE(LocalTimeText::hoursAndMinutes({}, QLocale::c()).isEmpty());
}

}  // namespace
}  // namespace quillbar
