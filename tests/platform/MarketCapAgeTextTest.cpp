// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/MarketCapAgeText.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

using Unit = MarketCapAge::Unit;

TEST(MarketCapAgeTextTest, countsHoursAndDays) {
    EXPECT_EQ(marketCapAgeText({Unit::hours, 1}), QStringLiteral("数据为1 小时前的"));
    EXPECT_EQ(marketCapAgeText({Unit::hours, 47}), QStringLiteral("数据为47 小时前的"));
    EXPECT_EQ(marketCapAgeText({Unit::days, 20000}), QStringLiteral("数据为20000 天前的"));
}

TEST(MarketCapAgeTextTest, saysThatTheClockWasSetBack) {
    EXPECT_EQ(marketCapAgeText({}), QStringLiteral("数据的时间晚于系统时钟"));
}

TEST(MarketCapAgeTextTest, tellsOneFromManyInEnglish) {
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(marketCapAgeText({Unit::hours, 1}), QStringLiteral("data from 1 hour ago"));
    EXPECT_EQ(marketCapAgeText({Unit::hours, 47}), QStringLiteral("data from 47 hours ago"));
    EXPECT_EQ(marketCapAgeText({Unit::days, 2}), QStringLiteral("data from 2 days ago"));
    EXPECT_EQ(marketCapAgeText({}), QStringLiteral("data later than the system clock"));
}

}  // namespace
}  // namespace quillbar
