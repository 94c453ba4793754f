// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QLocale>
#include <QString>
#include <QTime>

/// Short dates and times as a locale writes them. Pure.
namespace quillbar::LocalTimeText {

/// The day and the month without the year, both as numbers: "11/14", "14.11."; as "11/14" too where
/// the locale writes a word for the month. Empty for an invalid date.
[[nodiscard]] QString dayAndMonth(QDate date, const QLocale& locale);

/// Hours and minutes: "16:05", "4:05 PM". Empty for an invalid time.
[[nodiscard]] QString hoursAndMinutes(QTime time, const QLocale& locale);

}  // namespace quillbar::LocalTimeText
