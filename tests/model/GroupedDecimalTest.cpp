// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/GroupedDecimal.h"
#include "tests/model/ICUJudge.h"
#include "tests/model/RandomNumbers.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using GroupedDecimal::withFractionDigits;
using GroupedDecimal::withTwoFractionDigits;
using GroupedDecimal::withUpToFourSignificantDigits;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

double parsed(const std::string& text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

void expectBothRulesAgreeWithICU(double value) {
    ASSERT_EQ(withTwoFractionDigits(value), icuDecimal(value, DigitRule::twoFractionDigits))
        << fmt::format("{}", value);
    ASSERT_EQ(withUpToFourSignificantDigits(value),
              icuDecimal(value, DigitRule::upToFourSignificantDigits))
        << fmt::format("{}", value);
}

TEST(GroupedDecimal, groupsIntegerDigitsByThree) {
    EXPECT_EQ(withTwoFractionDigits(1), "1.00");
    EXPECT_EQ(withTwoFractionDigits(999), "999.00");
    EXPECT_EQ(withTwoFractionDigits(1000), "1,000.00");
    EXPECT_EQ(withTwoFractionDigits(67234.5), "67,234.50");
    EXPECT_EQ(withTwoFractionDigits(123456), "123,456.00");
    EXPECT_EQ(withTwoFractionDigits(1234567), "1,234,567.00");
    EXPECT_EQ(withUpToFourSignificantDigits(1234567), "1,235,000");
}

TEST(GroupedDecimal, putsAMinusInFrontOfWhatIsNegativeAndOfANegativeZero) {
    EXPECT_EQ(withTwoFractionDigits(-1234), "-1,234.00");
    EXPECT_EQ(withTwoFractionDigits(-0.001), "-0.00");
    EXPECT_EQ(withTwoFractionDigits(-0.0), "-0.00");
    EXPECT_EQ(withUpToFourSignificantDigits(-0.0), "-0");
}

TEST(GroupedDecimal, dropsTrailingZerosOfSignificantDigits) {
    EXPECT_EQ(withUpToFourSignificantDigits(0.5), "0.5");
    EXPECT_EQ(withUpToFourSignificantDigits(0.00001), "0.00001");
    EXPECT_EQ(withUpToFourSignificantDigits(0), "0");
    EXPECT_EQ(withUpToFourSignificantDigits(0.10004), "0.1");
}

TEST(GroupedDecimal, roundsTheShortestDecimalHalfToEven) {
    EXPECT_EQ(withTwoFractionDigits(2.675), "2.68");
    EXPECT_EQ(withTwoFractionDigits(2.665), "2.66");
    EXPECT_EQ(withTwoFractionDigits(0.005), "0.00");
    EXPECT_EQ(withTwoFractionDigits(0.015), "0.02");
    EXPECT_EQ(withTwoFractionDigits(0.0051), "0.01");
    EXPECT_EQ(withUpToFourSignificantDigits(0.12345), "0.1234");
    EXPECT_EQ(withUpToFourSignificantDigits(0.12355), "0.1236");
}

TEST(GroupedDecimal, carriesThroughNines) {
    EXPECT_EQ(withTwoFractionDigits(0.996), "1.00");
    EXPECT_EQ(withTwoFractionDigits(999.996), "1,000.00");
    EXPECT_EQ(withTwoFractionDigits(999999.999), "1,000,000.00");
    EXPECT_EQ(withUpToFourSignificantDigits(0.99996), "1");
    EXPECT_EQ(withUpToFourSignificantDigits(0.00099996), "0.001");
}

TEST(GroupedDecimal, keepsAsManyFractionDigitsAsAsked) {
    EXPECT_EQ(withFractionDigits(67234.5, 0), "67,234");
    EXPECT_EQ(withFractionDigits(67235.5, 0), "67,236");
    EXPECT_EQ(withFractionDigits(67234.5, 1), "67,234.5");
    EXPECT_EQ(withFractionDigits(0.00001234, 8), "0.00001234");
    EXPECT_EQ(withFractionDigits(0.00001234, 2), "0.00");
    EXPECT_EQ(withFractionDigits(0.6, 0), "1");
    EXPECT_EQ(withFractionDigits(kNaN, 3), "NaN");
}

TEST(GroupedDecimal, agreesWithICUAtEveryNumberOfFractionDigits) {
    for (int digits = 0; digits <= 8; ++digits) {
        RandomNumbers numbers(-12, 15);
        for (int count = 0; count < 1'000; ++count) {
            const double value = numbers.next();
            ASSERT_EQ(withFractionDigits(value, digits), icuDecimal(value, digits))
                << fmt::format("{} {}", value, digits);
        }
    }
}

TEST(GroupedDecimal, namesWhatIsNotFinite) {
    for (const double value : {kNaN, -kNaN, kInfinity, -kInfinity}) {
        expectBothRulesAgreeWithICU(value);
    }
    EXPECT_EQ(withTwoFractionDigits(kNaN), "NaN");
    EXPECT_EQ(withTwoFractionDigits(-kInfinity), "-∞");
}

TEST(GroupedDecimal, agreesWithICUOnRandomNumbers) {
    RandomNumbers numbers(-12, 15);
    for (int count = 0; count < 100'000; ++count) {
        ASSERT_NO_FATAL_FAILURE(expectBothRulesAgreeWithICU(numbers.next()));
    }
}

TEST(GroupedDecimal, agreesWithICUOnTheShortDecimalsThatPricesAre) {
    for (int places = 0; places <= 8; ++places) {
        RandomNumbers numbers(-3, 8);
        const double scale = std::pow(10, places);
        for (int count = 0; count < 1'000; ++count) {
            const double value = std::round(numbers.next() * scale) / scale;
            ASSERT_NO_FATAL_FAILURE(expectBothRulesAgreeWithICU(value));
        }
    }
}

TEST(GroupedDecimal, agreesWithICUOnTies) {
    for (int head = 0; head < 10'000; ++head) {
        // …5 behind the second fraction digit, and behind the fourth significant digit at every
        // size that a price has.
        ASSERT_NO_FATAL_FAILURE(expectBothRulesAgreeWithICU(
            parsed(fmt::format("{}.{:02}5", head * 37L % 100'003, head % 100))));
        ASSERT_NO_FATAL_FAILURE(
            expectBothRulesAgreeWithICU(parsed(fmt::format("-{}5e{}", head, head % 28 - 16))));
    }
}

TEST(GroupedDecimal, agreesWithICUNextToTies) {
    for (int head = 0; head < 2'000; ++head) {
        const double tie = parsed(fmt::format("{}.{:02}5", head * 37 % 1'009, head % 100));
        ASSERT_NO_FATAL_FAILURE(expectBothRulesAgreeWithICU(std::nextafter(tie, kInfinity)));
        ASSERT_NO_FATAL_FAILURE(expectBothRulesAgreeWithICU(std::nextafter(tie, -kInfinity)));
    }
}

TEST(GroupedDecimal, agreesWithICUAtTheEndsOfTheDoubles) {
    using Limits = std::numeric_limits<double>;
    const std::vector<double> ends{Limits::max(),
                                   Limits::lowest(),
                                   Limits::min(),
                                   Limits::denorm_min(),
                                   -Limits::denorm_min(),
                                   9007199254740993.0,
                                   1e22,
                                   1e23,
                                   1e-12,
                                   1e15,
                                   0.9999999999999999};
    for (const double value : ends) {
        ASSERT_NO_FATAL_FAILURE(expectBothRulesAgreeWithICU(value));
    }
}

}  // namespace
}  // namespace quillbar
