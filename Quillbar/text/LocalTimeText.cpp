// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/LocalTimeText.h"

#include "Quillbar/platform/TextLanguage.h"

#include <QRegularExpression>

namespace quillbar::LocalTimeText {

namespace {

bool isEnglish() {
    return TextLanguages::inUse() == TextLanguage::english;
}

QString formatOfDayAndMonth(const QLocale& locale) {
    // Qt has no such format, so the year is taken out of the short date, with what divides it from
    // the rest. A point stays: it ends the number before it.
    static const QRegularExpression leadingYear(QStringLiteral("^[^dM]*y+[^dM]*"));
    static const QRegularExpression trailingYear(QStringLiteral("[^dM.]*y+.*$"));
    QString format = locale.dateFormat(QLocale::ShortFormat);
    format.remove(leadingYear);
    format.remove(trailingYear);
    // The name of a month would be in the locale's language, beside texts that are not.
    const bool hasName = format.contains(QStringLiteral("MMM"));
    return format.contains(u'd') && format.contains(u'M') && !hasName ? format
                                                                      : QStringLiteral("M/d");
}

QString formatOfHoursAndMinutes(const QLocale& locale) {
    // The short time has seconds in the C locale.
    QString format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(QStringLiteral(":ss"));
    // Qt 6.4 does not know the B of some locales, and writes it as it is.
    const bool hasWord = format.contains(u'a', Qt::CaseInsensitive) || format.contains(u'B');
    if (isEnglish() && hasWord && locale.language() != QLocale::English) {
        return QStringLiteral("HH:mm");
    }
    return format;
}

}  // namespace

QString dayAndMonth(QDate date, const QLocale& locale) {
    const QString format = formatOfDayAndMonth(locale);
    if (isEnglish() && locale.language() == QLocale::English) {
        const bool isDayFirst = format.indexOf(u'd') < format.indexOf(u'M');
        // Every English locale has these names; some have longer ones beside them.
        return QLocale::c().toString(
            date, isDayFirst ? QStringLiteral("d MMM") : QStringLiteral("MMM d"));
    }
    return locale.toString(date, format);
}

QString hoursAndMinutes(QTime time, const QLocale& locale) {
    return locale.toString(time, formatOfHoursAndMinutes(locale));
}

QLocale localeOfTexts() {
    return isEnglish() ? QLocale(QLocale::English, QLocale::UnitedKingdom)
                       : QLocale(QLocale::Chinese, QLocale::China);
}

}  // namespace quillbar::LocalTimeText
