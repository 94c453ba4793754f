// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Time.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

TEST(TimeTest, readsTheWallClock) {
    const Clock clock = systemClock();
    const auto before = std::chrono::system_clock::now();
    const TimePoint now = clock();
    // A TimePoint is exact to under a microsecond.
    EXPECT_GE(now + 1us, before);
    EXPECT_LE(now - 1us, std::chrono::system_clock::now());
}

TEST(TimeTest, holdsFractionsOfASecond) {
    const TimePoint instant(Seconds(1794657600.25));
    EXPECT_EQ(instant + 250ms, TimePoint(Seconds(1794657600.5)));
}

TEST(TimeTest, hasADistantPastFromWhichEveryAgeIsLong) {
    const TimePoint firstInstant(0s);
    EXPECT_LT(kDistantPast, firstInstant);
    EXPECT_GT(firstInstant - kDistantPast, Seconds(24h * 365 * 10'000));
}

double bootTime() {
    timespec reading{};
    EXPECT_EQ(::clock_gettime(CLOCK_BOOTTIME, &reading), 0);
    return static_cast<double>(reading.tv_sec) + static_cast<double>(reading.tv_nsec) / 1e9;
}

TEST(TimeTest, hasAMonotonicClockThatCountsTheSleepOfTheMachine) {
    const MonotonicClock clock = bootClock();
    const double before = bootTime();
    const double reading = clock().count();
    EXPECT_GE(reading, before);
    EXPECT_LE(reading, bootTime());
}

TEST(TimeTest, takesAnInstantWithinTheSpanForYoung) {
    const TimePoint now(Seconds(1794657600));
    EXPECT_TRUE(isYoungerThan(60s, now, now));
    EXPECT_TRUE(isYoungerThan(60s, now - 59s, now));
    EXPECT_FALSE(isYoungerThan(60s, now - 60s, now));
    EXPECT_FALSE(isYoungerThan(60s, kDistantPast, now));
}

TEST(TimeTest, takesAnInstantInTheFutureForOld) {
    const TimePoint now(Seconds(1794657600));
    EXPECT_FALSE(isYoungerThan(60s, now + 1ms, now));
    EXPECT_FALSE(isYoungerThan(60s, now + 3600s, now));
}

}  // namespace

}  // namespace quillbar
