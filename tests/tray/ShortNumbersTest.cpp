// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/ShortNumbers.h"
#include "tests/model/RandomNumbers.h"

#include <QString>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillbar {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int kSamples = 20'000;

qsizetype length(const std::string& text) {
    return QString::fromStdString(text).size();
}

TEST(ShortPrice, hasFourDigitsBelowTenThousand) {
    EXPECT_EQ(ShortNumbers::price(0.1235), ".1235");
    EXPECT_EQ(ShortNumbers::price(0.0123), ".0123");
    EXPECT_EQ(ShortNumbers::price(9.8764), "9.876");
    EXPECT_EQ(ShortNumbers::price(98.766), "98.77");
    EXPECT_EQ(ShortNumbers::price(987.66), "987.7");
    EXPECT_EQ(ShortNumbers::price(9876.6), "9877");
}

TEST(ShortPrice, hasThreeDigitsAndASuffixAbove) {
    EXPECT_EQ(ShortNumbers::price(67234.5), "67.2k");
    EXPECT_EQ(ShortNumbers::price(672345), "672k");
    EXPECT_EQ(ShortNumbers::price(1.02e6), "1.02M");
    EXPECT_EQ(ShortNumbers::price(34.56e6), "34.6M");
    EXPECT_EQ(ShortNumbers::price(1.5e9), "1.50B");
    EXPECT_EQ(ShortNumbers::price(2.34e12), "2.34T");
    EXPECT_EQ(ShortNumbers::price(1e15), ">999T");
}

TEST(ShortPrice, countsTheZerosOfATinyPrice) {
    EXPECT_EQ(ShortNumbers::price(0.0000178), "0.0₄18");
    EXPECT_EQ(ShortNumbers::price(0.000123), "0.0₃12");
    EXPECT_EQ(ShortNumbers::price(0.00001), "0.0₄10");
    EXPECT_EQ(ShortNumbers::price(0.0000000123), "0.0₇12");
    EXPECT_EQ(ShortNumbers::price(0.00000000056), "0.0₉56");
    EXPECT_EQ(ShortNumbers::price(0.000000000056), "0.0₁₀6");
    EXPECT_EQ(ShortNumbers::price(1e-100), "0.0₉₉1");
    EXPECT_EQ(ShortNumbers::price(1e-101), "0");
    EXPECT_EQ(ShortNumbers::price(std::numeric_limits<double>::denorm_min()), "0");
}

TEST(ShortPrice, takesTheNextFormForWhatRoundsUpToIt) {
    EXPECT_EQ(ShortNumbers::price(0.99996), "1.000");
    EXPECT_EQ(ShortNumbers::price(9.9996), "10.00");
    EXPECT_EQ(ShortNumbers::price(999.96), "1000");
    EXPECT_EQ(ShortNumbers::price(9999.6), "10.0k");
    EXPECT_EQ(ShortNumbers::price(99960), "100k");
    EXPECT_EQ(ShortNumbers::price(999600), "1.00M");
    EXPECT_EQ(ShortNumbers::price(0.0009996), ".0010");
    EXPECT_EQ(ShortNumbers::price(0.000994), "0.0₃99");
    EXPECT_EQ(ShortNumbers::price(0.00009996), "0.0₃10");
    EXPECT_EQ(ShortNumbers::price(0.00000000009996), "0.0₉10");
}

TEST(ShortPrice, saysZeroAndWhatIsNoPrice) {
    EXPECT_EQ(ShortNumbers::price(0), "0");
    EXPECT_EQ(ShortNumbers::price(-1), "—");
    EXPECT_EQ(ShortNumbers::price(kInfinity), "—");
    EXPECT_EQ(ShortNumbers::price(kNaN), "—");
}

TEST(ShortPrice, hasFiveCharactersAtMostAndSixBelowAThousandth) {
    RandomNumbers numbers(-12, 18);
    for (int i = 0; i < kSamples; ++i) {
        const double price = std::fabs(numbers.next());
        EXPECT_LE(length(ShortNumbers::price(price)), price < 1e-3 ? 6 : 5) << price;
    }
}

TEST(ShortChange, isSignedAndRoundedToWhatFits) {
    EXPECT_EQ(ShortNumbers::change(1.23), "+1.2%");
    EXPECT_EQ(ShortNumbers::change(-9.94), "-9.9%");
    EXPECT_EQ(ShortNumbers::change(-12.3), "-12%");
    EXPECT_EQ(ShortNumbers::change(123.4), "+123%");
    EXPECT_EQ(ShortNumbers::change(1234), "+1k%");
    EXPECT_EQ(ShortNumbers::change(0.001), "+0.0%");
}

TEST(ShortChange, takesTheNextFormForWhatRoundsUpToIt) {
    EXPECT_EQ(ShortNumbers::change(9.96), "+10%");
    EXPECT_EQ(ShortNumbers::change(999.6), "+1k%");
}

TEST(ShortChange, saysZeroWithoutASign) {
    EXPECT_EQ(ShortNumbers::change(0), "0.0%");
    EXPECT_EQ(ShortNumbers::change(-0.0), "0.0%");
}

TEST(ShortChange, saysAtMostNinetyNineThousand) {
    EXPECT_EQ(ShortNumbers::change(1e9), "+99k%");
    EXPECT_EQ(ShortNumbers::change(kInfinity), "—");
    EXPECT_EQ(ShortNumbers::change(kNaN), "—");
}

TEST(ShortChange, neverHasMoreThanFiveCharacters) {
    RandomNumbers numbers(-6, 9);
    for (int i = 0; i < kSamples; ++i) {
        const double change = numbers.next();
        EXPECT_LE(length(ShortNumbers::change(change)), 5) << change;
    }
}

}  // namespace

}  // namespace quillbar
