// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapAge.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

using std::nullopt;

constexpr Seconds kHour{3600};
constexpr Seconds kDay{86400};

TEST(MarketCapAgeTest, saysNothingOfTheFirstHour) {
    EXPECT_EQ(MarketCapAge::textIfOld(nullopt), nullopt);
    EXPECT_EQ(MarketCapAge::textIfOld(Seconds(0)), nullopt);
    EXPECT_EQ(MarketCapAge::textIfOld(kHour), nullopt);
    EXPECT_EQ(MarketCapAge::textIfOld(kHour + Seconds(1)), "数据为1 小时前的");
}

TEST(MarketCapAgeTest, saysThatTheClockWasSetBack) {
    EXPECT_EQ(MarketCapAge::textIfOld(Seconds(-1)), "数据的时间晚于系统时钟");
    EXPECT_EQ(MarketCapAge::textIfOld(-kDay), "数据的时间晚于系统时钟");
}

TEST(MarketCapAgeTest, countsWholeHoursForTwoDaysThenWholeDays) {
    EXPECT_EQ(MarketCapAge::textIfOld(2 * kHour - Seconds(1)), "数据为1 小时前的");
    EXPECT_EQ(MarketCapAge::textIfOld(2 * kHour), "数据为2 小时前的");
    EXPECT_EQ(MarketCapAge::textIfOld(2 * kDay - Seconds(1)), "数据为47 小时前的");
    EXPECT_EQ(MarketCapAge::textIfOld(2 * kDay), "数据为2 天前的");
    EXPECT_EQ(MarketCapAge::textIfOld(22 * kDay - Seconds(1)), "数据为21 天前的");
    EXPECT_EQ(MarketCapAge::textIfOld(kDay * 20000), "数据为20000 天前的");
}

}  // namespace
}  // namespace quillbar
