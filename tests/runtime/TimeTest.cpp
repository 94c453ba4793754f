// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Time.h"

#include <gtest/gtest.h>

#include <chrono>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

TEST(TimeTest, ReadsTheWallClock) {
    const Clock clock = systemClock();
    const auto before = std::chrono::system_clock::now();
    const TimePoint now = clock();
    // A TimePoint is exact to under a microsecond.
    EXPECT_GE(now + 1us, before);
    EXPECT_LE(now - 1us, std::chrono::system_clock::now());
}

TEST(TimeTest, HoldsFractionsOfASecond) {
    const TimePoint instant(Seconds(1794657600.25));
    EXPECT_EQ(instant + 250ms, TimePoint(Seconds(1794657600.5)));
}

TEST(TimeTest, HasADistantPastFromWhichEveryAgeIsLong) {
    const TimePoint firstInstant(0s);
    EXPECT_LT(kDistantPast, firstInstant);
    EXPECT_GT(firstInstant - kDistantPast, Seconds(24h * 365 * 10'000));
}

}  // namespace

}  // namespace quillbar
