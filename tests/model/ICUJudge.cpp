// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/model/ICUJudge.h"

#include <unicode/locid.h>
#include <unicode/numberformatter.h>

namespace quillbar {

namespace {

icu::number::LocalizedNumberFormatter formatter(const icu::number::Precision& precision) {
    return icu::number::NumberFormatter::withLocale(icu::Locale("en", "US"))
        .roundingMode(UNUM_ROUND_HALFEVEN)
        .precision(precision);
}

std::string text(const icu::number::LocalizedNumberFormatter& formatter, double value) {
    UErrorCode status = U_ZERO_ERROR;
    std::string text;
    formatter.formatDouble(value, status).toString(status).toUTF8String(text);
    return U_SUCCESS(status) ? text : u_errorName(status);
}

}  // namespace

std::string icuDecimal(double value, DigitRule rule) {
    static const auto kTwoFractionDigits = formatter(icu::number::Precision::fixedFraction(2));
    static const auto kSignificantDigits =
        formatter(icu::number::Precision::minMaxSignificantDigits(1, 4));
    return text(rule == DigitRule::twoFractionDigits ? kTwoFractionDigits : kSignificantDigits,
                value);
}

std::string icuDecimal(double value, int fractionDigits) {
    return text(formatter(icu::number::Precision::fixedFraction(fractionDigits)), value);
}

}  // namespace quillbar
