// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/LocalTimeText.h"

#include <QRegularExpression>

namespace quillbar::LocalTimeText {

namespace {

QString formatOfDayAndMonth(const QLocale& locale) {
    // Qt has no such format, so the year is taken out of the short date, with what divides it from
    // the rest. A point stays: it ends the number before it.
    static const QRegularExpression leadingYear(QStringLiteral("^[^dM]*y+[^dM]*"));
    static const QRegularExpression trailingYear(QStringLiteral("[^dM.]*y+.*$"));
    QString format = locale.dateFormat(QLocale::ShortFormat);
    format.remove(leadingYear);
    format.remove(trailingYear);
    // The name of a month would be in the locale's language, beside texts that are Chinese.
    const bool hasName = format.contains(QStringLiteral("MMM"));
    return format.contains(u'd') && format.contains(u'M') && !hasName ? format
                                                                      : QStringLiteral("M/d");
}

QString formatOfHoursAndMinutes(const QLocale& locale) {
    // The short time has seconds in the C locale.
    QString format = locale.timeFormat(QLocale::ShortFormat);
    return format.remove(QStringLiteral(":ss"));
}

}  // namespace

QString dayAndMonth(QDate date, const QLocale& locale) {
    return locale.toString(date, formatOfDayAndMonth(locale));
}

QString hoursAndMinutes(QTime time, const QLocale& locale) {
    return locale.toString(time, formatOfHoursAndMinutes(locale));
}

}  // namespace quillbar::LocalTimeText
