// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/MarketCapFormatter.h"
#include "tests/model/ForeignLocale.h"
#include "tests/model/PrintfJudge.h"
#include "tests/model/RandomNumbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace quillbar {
namespace {

TEST(MarketCapFormatter, countsInTrillionsFromTenToTheTwelfth) {
    EXPECT_EQ(MarketCapFormatter::compact(1.35e12), "1.35万亿");
    EXPECT_EQ(MarketCapFormatter::compact(1e12), "1.00万亿");
    EXPECT_EQ(MarketCapFormatter::compact(-1.35e12), "-1.35万亿");
}

TEST(MarketCapFormatter, countsEverythingSmallerInHundredMillions) {
    EXPECT_EQ(MarketCapFormatter::compact(999'999'999'999), "10000.00亿");
    EXPECT_EQ(MarketCapFormatter::compact(5'000'000), "0.05亿");
    EXPECT_EQ(MarketCapFormatter::compact(0), "0.00亿");
    EXPECT_EQ(MarketCapFormatter::compact(-0.0), "0.00亿");
    EXPECT_EQ(MarketCapFormatter::compact(-5'000'000), "-0.05亿");
}

TEST(MarketCapFormatter, marksAMissingMarketCap) {
    EXPECT_EQ(MarketCapFormatter::compact(std::nullopt), "—");
}

TEST(MarketCapFormatter, namesWhatIsNotFinite) {
    EXPECT_EQ(MarketCapFormatter::compact(std::numeric_limits<double>::quiet_NaN()), "nan亿");
    EXPECT_EQ(MarketCapFormatter::compact(-std::numeric_limits<double>::infinity()), "-inf万亿");
}

TEST(MarketCapFormatter, everyMarketCapReadsAsPrintfWritesIt) {
    RandomNumbers numbers(2, 15);
    for (int count = 0; count < 100'000; ++count) {
        const double value = numbers.next();
        const double magnitude = std::fabs(value);
        const std::string text = magnitude >= 1e12 ? printfText("%.2f万亿", magnitude / 1e12)
                                                   : printfText("%.2f亿", magnitude / 1e8);
        ASSERT_EQ(MarketCapFormatter::compact(value), (value < 0 ? "-" : "") + text);
    }
}

TEST(MarketCapFormatter, followsNoLocale) {
    const ForeignLocale locale;
    EXPECT_EQ(MarketCapFormatter::compact(1.35e12), "1.35万亿");
    EXPECT_EQ(MarketCapFormatter::compact(999'999'999'999), "10000.00亿");
}

}  // namespace
}  // namespace quillbar
