// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/PriceFormatter.h"
#include "tests/model/ForeignLocale.h"
#include "tests/model/ICUJudge.h"
#include "tests/model/PrintfJudge.h"
#include "tests/model/RandomNumbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Numbers whose printf text is easily got wrong: exact ties of two decimals in binary, near ties
/// in decimal, ends of the range, and what is not finite.
std::vector<double> hardNumbers() {
    std::vector<double> numbers{
        0.005, 0.015, 2.675, 0.994999, 9.995, 99.995, 999.995, 5e-324, 1e300, kInfinity, kNaN};
    for (int eighths = 1; eighths < 4'000; eighths += 2) {
        numbers.push_back(eighths / 8.0);
    }
    return numbers;
}

TEST(PriceFormatter, usesSignificantDigitsBelowOneAndTwoDecimalsFromThere) {
    EXPECT_EQ(PriceFormatter::price(0.5), "0.5");
    EXPECT_EQ(PriceFormatter::price(0.123456), "0.1235");
    EXPECT_EQ(PriceFormatter::price(0.00001), "0.00001");
    EXPECT_EQ(PriceFormatter::price(0), "0");
    EXPECT_EQ(PriceFormatter::price(0.999), "0.999");
    EXPECT_EQ(PriceFormatter::price(1.0), "1.00");
    EXPECT_EQ(PriceFormatter::price(67234.5), "67,234.50");
}

TEST(PriceFormatter, takesThePriceThresholdOnTheMagnitude) {
    EXPECT_EQ(PriceFormatter::price(-0.5), "-0.5");
    EXPECT_EQ(PriceFormatter::price(-1), "-1.00");
    EXPECT_EQ(PriceFormatter::price(-1234), "-1,234.00");
}

TEST(PriceFormatter, pricesAgreeWithICU) {
    RandomNumbers numbers(-12, 15);
    for (int count = 0; count < 10'000; ++count) {
        const double value = numbers.next();
        const auto rule = std::fabs(value) < 1 ? DigitRule::upToFourSignificantDigits
                                               : DigitRule::twoFractionDigits;
        ASSERT_EQ(PriceFormatter::price(value), icuDecimal(value, rule));
    }
    EXPECT_EQ(PriceFormatter::price(kNaN), "NaN");
    EXPECT_EQ(PriceFormatter::price(kInfinity), "∞");
}

TEST(PriceFormatter, signsEveryPercentageButZero) {
    EXPECT_EQ(PriceFormatter::percent(1.234), "+1.23%");
    EXPECT_EQ(PriceFormatter::percent(-0.5), "-0.50%");
    EXPECT_EQ(PriceFormatter::percent(0.001), "+0.00%");
    EXPECT_EQ(PriceFormatter::percent(0.004), "+0.00%");
    EXPECT_EQ(PriceFormatter::percent(-0.004), "-0.00%");
    EXPECT_EQ(PriceFormatter::percent(0.0), "0.00%");
    EXPECT_EQ(PriceFormatter::percent(-0.0), "0.00%");
}

TEST(PriceFormatter, percentagesReadAsPrintfWritesThem) {
    RandomNumbers numbers(-12, 15);
    for (int count = 0; count < 100'000; ++count) {
        const double value = numbers.next();
        ASSERT_EQ(PriceFormatter::percent(value), printfText("%+.2f%%", value));
    }
    for (const double value : hardNumbers()) {
        EXPECT_EQ(PriceFormatter::percent(value), printfText("%+.2f%%", value));
        EXPECT_EQ(PriceFormatter::percent(-value), printfText("%+.2f%%", -value));
    }
}

TEST(PriceFormatter, writesAsManyDecimalsAsAsked) {
    EXPECT_EQ(PriceFormatter::price(67234.56, 0), "67,235");
    EXPECT_EQ(PriceFormatter::price(0.00001234, 6), "0.000012");
    EXPECT_EQ(PriceFormatter::percent(-1.26, 1), "-1.3%");
    EXPECT_EQ(PriceFormatter::percent(12.5, 3), "+12.500%");
    EXPECT_EQ(PriceFormatter::percent(0.4, 0), "+0%");
    EXPECT_EQ(PriceFormatter::percent(-0.0, 0), "0%");
    EXPECT_EQ(PriceFormatter::magnitude(-1.26, 1), "1.3%");
    EXPECT_EQ(PriceFormatter::magnitude(-0.0, 2), "0.00%");
}

TEST(PriceFormatter, pointsAChangeUpDownOrNowhere) {
    EXPECT_EQ(PriceFormatter::arrow(0.001), "▲");
    EXPECT_EQ(PriceFormatter::arrow(-0.001), "▼");
    EXPECT_EQ(PriceFormatter::arrow(-0.0), "·");
    EXPECT_EQ(PriceFormatter::arrow(kNaN), "·");
}

TEST(PriceFormatter, pointsTheMenuBarChangeUpDownOrNowhere) {
    EXPECT_EQ(PriceFormatter::menuBarChange(1.234), "▲ 1.23%");
    EXPECT_EQ(PriceFormatter::menuBarChange(-12.5), "▼12.50%");
    EXPECT_EQ(PriceFormatter::menuBarChange(0), "· 0.00%");
    EXPECT_EQ(PriceFormatter::menuBarChange(-0.0), "· 0.00%");
    EXPECT_EQ(PriceFormatter::menuBarChange(123.456), "▲123.46%");
    EXPECT_EQ(PriceFormatter::menuBarChange(0.001), "▲ 0.00%");
    EXPECT_EQ(PriceFormatter::menuBarChange(kNaN), "·  nan%");
    EXPECT_EQ(PriceFormatter::menuBarChange(std::nullopt), "—");
}

TEST(PriceFormatter, theMenuBarChangeReadsAsPrintfWritesTheMagnitude) {
    RandomNumbers numbers(-6, 9);
    for (int count = 0; count < 100'000; ++count) {
        const double value = numbers.next();
        const std::string arrow = value > 0 ? "▲" : "▼";
        ASSERT_EQ(PriceFormatter::menuBarChange(value),
                  arrow + printfText("%5.2f%%", std::fabs(value)));
    }
    for (const double value : hardNumbers()) {
        const std::string arrow = std::isnan(value) ? "·" : "▼";
        EXPECT_EQ(PriceFormatter::menuBarChange(-value), arrow + printfText("%5.2f%%", value));
    }
}

TEST(PriceFormatter, followsNoLocale) {
    const ForeignLocale locale;
    EXPECT_EQ(PriceFormatter::price(67234.5), "67,234.50");
    EXPECT_EQ(PriceFormatter::price(0.5), "0.5");
    EXPECT_EQ(PriceFormatter::percent(1234.5), "+1234.50%");
    EXPECT_EQ(PriceFormatter::menuBarChange(1.234), "▲ 1.23%");
}

}  // namespace
}  // namespace quillbar
