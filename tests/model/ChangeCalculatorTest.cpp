// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/ChangeCalculator.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

constexpr auto kRolling = ChangeBasis::rolling24h;
constexpr auto kToday = ChangeBasis::today;

TEST(ChangeCalculator, hasNoChangeSinceMidnightWithoutTheDaysOpen) {
    EXPECT_EQ(ChangeCalculator::percent(105, 100, std::nullopt, kToday), std::nullopt);
    EXPECT_EQ(ChangeCalculator::percent(105, 100, 0, kToday), std::nullopt);
    EXPECT_EQ(ChangeCalculator::percent(105, 100, -0.0, kToday), std::nullopt);
}

TEST(ChangeCalculator, hasNotMovedOverTheRollingWindowWhenItsOpenIsZero) {
    EXPECT_EQ(ChangeCalculator::percent(105, 0, 100, kRolling), 0);
    EXPECT_EQ(ChangeCalculator::percent(105, 0, std::nullopt, kRolling), 0);
}

TEST(ChangeCalculator, measuresAgainstTheOpenOfTheBasis) {
    EXPECT_EQ(ChangeCalculator::percent(105, 50, 100, kToday), 5);
    EXPECT_EQ(ChangeCalculator::percent(105, 0, 100, kToday), 5);
    EXPECT_EQ(ChangeCalculator::percent(95, 100, 50, kRolling), -5);
    EXPECT_EQ(ChangeCalculator::percent(95, 100, std::nullopt, kRolling), -5);
}

TEST(ChangeCalculator, doesNotRound) {
    EXPECT_EQ(ChangeCalculator::percent(64.001953125, 64, 0, kRolling), 0.0030517578125);
}

}  // namespace
}  // namespace quillbar
