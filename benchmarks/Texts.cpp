// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/Benchmarks.h"
#include "benchmarks/Comparison.h"
#include "QuillbarCore/model/GroupedDecimal.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/model/Ticker.h"

#include <QLocale>
#include <QString>

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <vector>

namespace quillbar::benchmarks {

namespace {

/// Prices from 1 to 100,000, evenly over the magnitudes. The same at each call.
std::vector<double> prices() {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> magnitude(0, 5);
    std::vector<double> prices(1000);
    std::generate(prices.begin(), prices.end(), [&] { return std::pow(10, magnitude(random)); });
    return prices;
}

icu::number::LocalizedNumberFormatter icuFormatter() {
    return icu::number::NumberFormatter::withLocale(icu::Locale("en", "US"))
        .roundingMode(UNUM_ROUND_HALFEVEN)
        .precision(icu::number::Precision::fixedFraction(2));
}

std::string icuText(const icu::number::LocalizedNumberFormatter& formatter, double value) {
    UErrorCode status = U_ZERO_ERROR;
    std::string text;
    formatter.formatDouble(value, status).toString(status).toUTF8String(text);
    return text;
}

/// Tickers whose prices have two decimals, as rounding halves is not the alternative's job.
std::vector<Ticker> tickers() {
    std::vector<Ticker> tickers;
    for (const double price : prices()) {
        const double open = std::round(price * 100) / 100;
        tickers.push_back({.lastPrice = std::round(open * 101) / 100, .openPrice24h = open});
    }
    return tickers;
}

std::string labelText(const Ticker& ticker) {
    return fmt::format("BTC {} {}",
                       PriceFormatter::price(ticker.lastPrice),
                       PriceFormatter::menuBarChange(ticker.changePercent24h()));
}

std::string qtLabelText(const Ticker& ticker) {
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const double change = ticker.changePercent24h();
    const char16_t mark = change > 0 ? u'▲' : change < 0 ? u'▼' : u'·';
    return QStringLiteral("BTC %1 %2%3%")
        .arg(english.toString(ticker.lastPrice, 'f', 2), QChar(mark))
        .arg(std::abs(change), 5, 'f', 2)
        .toStdString();
}

}  // namespace

void registerTexts() {
    Comparison("a price, grouped, two decimals",
               prices(),
               [](double value) { return GroupedDecimal::withTwoFractionDigits(value); })
        .with("ICU, formatter kept",
              [formatter = icuFormatter()](double value) { return icuText(formatter, value); })
        .with("ICU, formatter made each time",
              [](double value) { return icuText(icuFormatter(), value); });
    Comparison("the label's text", tickers(), labelText).with("QLocale and QString", qtLabelText);
}

}  // namespace quillbar::benchmarks
