// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapAge.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

using std::nullopt;

constexpr Seconds kHour{3600};
constexpr Seconds kDay{86400};

MarketCapAge hours(int count) {
    return {MarketCapAge::Unit::hours, count};
}

MarketCapAge days(int count) {
    return {MarketCapAge::Unit::days, count};
}

TEST(MarketCapAgeTest, saysNothingOfTheFirstHour) {
    EXPECT_EQ(MarketCapAge::ifOld(nullopt), nullopt);
    EXPECT_EQ(MarketCapAge::ifOld(Seconds(0)), nullopt);
    EXPECT_EQ(MarketCapAge::ifOld(kHour), nullopt);
    EXPECT_EQ(MarketCapAge::ifOld(kHour + Seconds(1)), hours(1));
}

TEST(MarketCapAgeTest, saysThatTheClockWasSetBack) {
    EXPECT_EQ(MarketCapAge::ifOld(Seconds(-1)), MarketCapAge{});
    EXPECT_EQ(MarketCapAge::ifOld(-kDay), MarketCapAge{});
}

TEST(MarketCapAgeTest, countsWholeHoursForTwoDaysThenWholeDays) {
    EXPECT_EQ(MarketCapAge::ifOld(2 * kHour - Seconds(1)), hours(1));
    EXPECT_EQ(MarketCapAge::ifOld(2 * kHour), hours(2));
    EXPECT_EQ(MarketCapAge::ifOld(2 * kDay - Seconds(1)), hours(47));
    EXPECT_EQ(MarketCapAge::ifOld(2 * kDay), days(2));
    EXPECT_EQ(MarketCapAge::ifOld(22 * kDay - Seconds(1)), days(21));
    EXPECT_EQ(MarketCapAge::ifOld(kDay * 20000), days(20000));
    EXPECT_EQ(MarketCapAge::ifOld(kDay * 1e12), days(1000000));
}

}  // namespace
}  // namespace quillbar
