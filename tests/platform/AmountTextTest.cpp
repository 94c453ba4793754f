// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/AmountText.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

TEST(AmountTextTest, writesTheChineseUnitsInChinese) {
    EXPECT_EQ(AmountText::volume(1.5e9), "15.00亿");
    EXPECT_EQ(AmountText::volume(123456), "12.35万");
    EXPECT_EQ(AmountText::volume(9999.5), "9,999.50");
    EXPECT_EQ(AmountText::marketCap(1.35e12), "1.35万亿");
    EXPECT_EQ(AmountText::marketCap(5e6), "0.05亿");
}

TEST(AmountTextTest, writesVolumesInThousandsMillionsAndBillionsInEnglish) {
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(AmountText::volume(1.5e12), "1.50T");
    EXPECT_EQ(AmountText::volume(1.5e9), "1.50B");
    EXPECT_EQ(AmountText::volume(1.5e6), "1.50M");
    EXPECT_EQ(AmountText::volume(123456), "123.46K");
    EXPECT_EQ(AmountText::volume(-20000), "-20.00K");
}

TEST(AmountTextTest, writesSmallVolumesInFullInBothLanguages) {
    for (const TextLanguage language : {TextLanguage::chinese, TextLanguage::english}) {
        const UsedLanguage used(language);
        EXPECT_EQ(AmountText::volume(9999.994), "9,999.99");
        EXPECT_EQ(AmountText::volume(0), "0.00");
        EXPECT_EQ(AmountText::volume(std::nullopt), "—");
        EXPECT_EQ(AmountText::marketCap(std::nullopt), "—");
    }
}

TEST(AmountTextTest, writesMarketCapsFromMillionsOnInEnglish) {
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(AmountText::marketCap(1.35e12), "1.35T");
    EXPECT_EQ(AmountText::marketCap(2.5e9), "2.50B");
    EXPECT_EQ(AmountText::marketCap(5e6), "5.00M");
    EXPECT_EQ(AmountText::marketCap(50000), "0.05M");
    EXPECT_EQ(AmountText::marketCap(0), "0.00M");
    EXPECT_EQ(AmountText::marketCap(-50000), "-0.05M");
}

TEST(AmountTextTest, takesTheNextUnitWhereRoundingReachesIt) {
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(AmountText::volume(999994), "999.99K");
    EXPECT_EQ(AmountText::volume(999996), "1.00M");
    EXPECT_EQ(AmountText::marketCap(999.996e9), "1.00T");
    EXPECT_EQ(AmountText::marketCap(999.994e9), "999.99B");
}

}  // namespace
}  // namespace quillbar
