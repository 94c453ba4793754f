// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/AgeText.h"
#include "tests/qtsupport/UsedLanguage.h"
#include "tests/support/TemporaryEnvironment.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <string>

namespace quillbar {
namespace {

using namespace std::chrono_literals;

// 2026-11-14T12:00:00Z
constexpr TimePoint kUpdate{Seconds(1794657600)};

std::string after(Seconds age) {
    const TemporaryEnvironment zone("TZ", "Asia/Shanghai");
    ::tzset();
    return AgeText::of(kUpdate, kUpdate + age).toStdString();
}

TEST(AgeTextTest, isLiveForAMinuteAndWhenTheClockWasSetBack) {
    EXPECT_EQ(after(0s), "刚刚更新");
    EXPECT_EQ(after(59.9s), "刚刚更新");
    EXPECT_EQ(after(-1h), "刚刚更新");
}

TEST(AgeTextTest, countsInTheLargestUnitThatHasPassed) {
    EXPECT_EQ(after(60s), "1 分钟前更新（20:00:00）");
    EXPECT_EQ(after(3599s), "59 分钟前更新（20:00:00）");
    EXPECT_EQ(after(1h), "1 小时前更新（20:00:00）");
    EXPECT_EQ(after(24h), "1 天前更新（2026-11-14 20:00:00）");
}

TEST(AgeTextTest, tellsOneFromManyInEnglish) {
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(after(59.9s), "Updated just now");
    EXPECT_EQ(after(60s), "Updated 1 minute ago (20:00:00)");
    EXPECT_EQ(after(120s), "Updated 2 minutes ago (20:00:00)");
    EXPECT_EQ(after(1h), "Updated 1 hour ago (20:00:00)");
    EXPECT_EQ(after(23h), "Updated 23 hours ago (20:00:00)");
    EXPECT_EQ(after(24h), "Updated 1 day ago (2026-11-14 20:00:00)");
    EXPECT_EQ(after(48h), "Updated 2 days ago (2026-11-14 20:00:00)");
}

}  // namespace
}  // namespace quillbar
