// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/VolumeFormatter.h"
#include "tests/model/ForeignLocale.h"
#include "tests/model/ICUJudge.h"
#include "tests/model/PrintfJudge.h"
#include "tests/model/RandomNumbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace quillbar {
namespace {

TEST(VolumeFormatter, countsInHundredMillionsFromTenToTheEighth) {
    EXPECT_EQ(VolumeFormatter::compact(1.5e9), "15.00亿");
    EXPECT_EQ(VolumeFormatter::compact(1e8), "1.00亿");
    EXPECT_EQ(VolumeFormatter::compact(-1.5e9), "-15.00亿");
    EXPECT_EQ(VolumeFormatter::compact(1.5e13), "150000.00亿");
}

TEST(VolumeFormatter, countsInTenThousandsFromTenToTheFourth) {
    EXPECT_EQ(VolumeFormatter::compact(123456), "12.35万");
    EXPECT_EQ(VolumeFormatter::compact(10000), "1.00万");
    EXPECT_EQ(VolumeFormatter::compact(-20000), "-2.00万");
    EXPECT_EQ(VolumeFormatter::compact(99'999'999), "10000.00万");
}

TEST(VolumeFormatter, writesSmallVolumesOut) {
    EXPECT_EQ(VolumeFormatter::compact(9999.5), "9,999.50");
    EXPECT_EQ(VolumeFormatter::compact(9999.994), "9,999.99");
    EXPECT_EQ(VolumeFormatter::compact(9999.996), "10,000.00");
    EXPECT_EQ(VolumeFormatter::compact(-12), "-12.00");
    EXPECT_EQ(VolumeFormatter::compact(0), "0.00");
}

TEST(VolumeFormatter, marksAMissingVolume) {
    EXPECT_EQ(VolumeFormatter::compact(std::nullopt), "—");
}

TEST(VolumeFormatter, namesWhatIsNotFinite) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(VolumeFormatter::compact(std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_EQ(VolumeFormatter::compact(kInfinity), "inf亿");
    EXPECT_EQ(VolumeFormatter::compact(-kInfinity), "-inf亿");
}

TEST(VolumeFormatter, everyVolumeAgreesWithItsJudge) {
    RandomNumbers numbers(-3, 14);
    for (int count = 0; count < 100'000; ++count) {
        const double value = numbers.next();
        const double magnitude = std::fabs(value);
        const std::string sign = value < 0 ? "-" : "";
        const std::string expected = magnitude >= 1e8 ? sign + printfText("%.2f亿", magnitude / 1e8)
                                     : magnitude >= 1e4
                                         ? sign + printfText("%.2f万", magnitude / 1e4)
                                         : icuDecimal(value, DigitRule::twoFractionDigits);
        ASSERT_EQ(VolumeFormatter::compact(value), expected);
    }
}

TEST(VolumeFormatter, followsNoLocale) {
    const ForeignLocale locale;
    EXPECT_EQ(VolumeFormatter::compact(1.5e13), "150000.00亿");
    EXPECT_EQ(VolumeFormatter::compact(123456), "12.35万");
    EXPECT_EQ(VolumeFormatter::compact(9999.5), "9,999.50");
}

}  // namespace
}  // namespace quillbar
