// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QLocale>
#include <QString>
#include <QTime>

/// Short dates and times as a locale writes them, without words of a language that the texts around
/// them are not in (`TextLanguages::inUse`). For the main thread.
namespace quillbar::LocalTimeText {

/// The day and the month without the year, both as numbers: "11/14", "14.11."; as "11/14" too where
/// the locale writes a word for the month. Among English texts an English locale names the month,
/// because nobody could tell 11/4 from 4/11: "Nov 14", "14 Nov". Empty for an invalid date.
[[nodiscard]] QString dayAndMonth(QDate date, const QLocale& locale);

/// Hours and minutes: "16:05", "4:05 PM". Among English texts without the words of another language
/// for the half of the day: "16:05". Empty for an invalid time.
[[nodiscard]] QString hoursAndMinutes(QTime time, const QLocale& locale);

/// The locale of what follows the language of the texts and not the desktop, as charts do: that of
/// China, or in English one that counts the hours to 24 as well and names the month after the day.
[[nodiscard]] QLocale localeOfTexts();

}  // namespace quillbar::LocalTimeText
