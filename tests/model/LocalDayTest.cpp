// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/LocalDay.h"
#include "tests/model/Instants.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace quillbar {
namespace {

/// The days of one zone.
class Zone final {
public:
    explicit Zone(const char* name)
        : m_calendar(Calendar::fixed(name)) {}

    [[nodiscard]] std::int64_t key(TimePoint instant) const {
        return LocalDay::key(instant, m_calendar);
    }
    [[nodiscard]] std::int64_t midnight(TimePoint instant) const {
        return LocalDay::midnightEpochMs(instant, m_calendar);
    }

private:
    Calendar m_calendar;
};

constexpr double kJustBefore = -0.001;

TEST(LocalDay, takesTheDayInTheCalendarsZone) {
    const Zone shanghai("Asia/Shanghai");
    const TimePoint instant = utcInstant(2026, 11, 14, 16, 30);
    EXPECT_EQ(shanghai.key(instant), 20261115);
    EXPECT_EQ(shanghai.midnight(instant), 1794672000000);
    EXPECT_EQ(shanghai.midnight(instant), epochMs(utcInstant(2026, 11, 14, 16)));
}

TEST(LocalDay, takesTheDayOfUTC) {
    const TimePoint instant = utcInstant(2026, 11, 14, 16, 30);
    EXPECT_EQ(LocalDay::key(instant, Calendar::utc()), 20261114);
    EXPECT_EQ(LocalDay::midnightEpochMs(instant, Calendar::utc()),
              epochMs(utcInstant(2026, 11, 14)));
}

TEST(LocalDay, changesItsKeyAtLocalMidnight) {
    const Zone shanghai("Asia/Shanghai");
    EXPECT_EQ(shanghai.key(utcInstant(2026, 11, 14, 16, 0, kJustBefore)), 20261114);
    EXPECT_EQ(shanghai.key(utcInstant(2026, 11, 14, 16)), 20261115);
    EXPECT_EQ(shanghai.key(utcInstant(2026, 11, 15, 16, 0, kJustBefore)), 20261115);
    EXPECT_EQ(shanghai.midnight(utcInstant(2026, 11, 14, 16, 0, kJustBefore)),
              epochMs(utcInstant(2026, 11, 13, 16)));
}

TEST(LocalDay, keepsItsKeyAndMidnightAcrossAClockThatGoesForward) {
    // New York, 8 March 2026: two o'clock is three o'clock.
    const Zone newYork("America/New_York");
    const TimePoint midnight = utcInstant(2026, 3, 8, 5);
    for (const TimePoint instant : {midnight,
                                    utcInstant(2026, 3, 8, 6, 59),
                                    utcInstant(2026, 3, 8, 7),
                                    utcInstant(2026, 3, 9, 4, 0, kJustBefore)}) {
        EXPECT_EQ(newYork.key(instant), 20260308);
        EXPECT_EQ(newYork.midnight(instant), epochMs(midnight));
    }
    EXPECT_EQ(newYork.key(utcInstant(2026, 3, 8, 5, 0, kJustBefore)), 20260307);
    EXPECT_EQ(newYork.key(utcInstant(2026, 3, 9, 4)), 20260309);
}

TEST(LocalDay, keepsItsKeyAndMidnightAcrossAClockThatGoesBack) {
    // New York, 1 November 2026: two o'clock is one o'clock again; the day has 25 hours.
    const Zone newYork("America/New_York");
    const TimePoint midnight = utcInstant(2026, 11, 1, 4);
    for (const TimePoint instant : {midnight,
                                    utcInstant(2026, 11, 1, 5, 30),
                                    utcInstant(2026, 11, 1, 6, 30),
                                    utcInstant(2026, 11, 2, 5, 0, kJustBefore)}) {
        EXPECT_EQ(newYork.key(instant), 20261101);
        EXPECT_EQ(newYork.midnight(instant), epochMs(midnight));
    }
    EXPECT_EQ(newYork.key(utcInstant(2026, 11, 2, 5)), 20261102);
}

TEST(LocalDay, beginsADayWithoutMidnightAtItsFirstInstant) {
    // Santiago, 7 September 2025: midnight is one o'clock.
    const Zone santiago("America/Santiago");
    const TimePoint first = utcInstant(2025, 9, 7, 4);
    for (const TimePoint instant : {first, utcInstant(2025, 9, 8, 3, 0, kJustBefore)}) {
        EXPECT_EQ(santiago.key(instant), 20250907);
        EXPECT_EQ(santiago.midnight(instant), epochMs(first));
    }
    EXPECT_EQ(santiago.key(utcInstant(2025, 9, 7, 4, 0, kJustBefore)), 20250906);
    EXPECT_EQ(santiago.midnight(utcInstant(2025, 9, 8, 3)), epochMs(utcInstant(2025, 9, 8, 3)));
}

TEST(LocalDay, countsTheHourThatComesTwiceBeforeMidnightToItsDay) {
    // Santiago, 6 April 2025: midnight is eleven o'clock of the 5th again.
    const Zone santiago("America/Santiago");
    EXPECT_EQ(santiago.key(utcInstant(2025, 4, 6, 3)), 20250405);
    EXPECT_EQ(santiago.midnight(utcInstant(2025, 4, 6, 3)), epochMs(utcInstant(2025, 4, 5, 3)));
    EXPECT_EQ(santiago.key(utcInstant(2025, 4, 6, 4)), 20250406);
    EXPECT_EQ(santiago.midnight(utcInstant(2025, 4, 6, 4)), epochMs(utcInstant(2025, 4, 6, 4)));
}

TEST(LocalDay, beginsADayWithTwoMidnightsAtTheEarlier) {
    // Havana, 3 November 2024: one o'clock is midnight again.
    const Zone havana("America/Havana");
    const TimePoint earlier = utcInstant(2024, 11, 3, 4);
    for (const TimePoint instant :
         {earlier, utcInstant(2024, 11, 3, 5), utcInstant(2024, 11, 3, 6)}) {
        EXPECT_EQ(havana.key(instant), 20241103);
        EXPECT_EQ(havana.midnight(instant), epochMs(earlier));
    }
}

TEST(LocalDay, countsMillisecondsBeforeTheEpochToo) {
    EXPECT_EQ(LocalDay::midnightEpochMs(utcInstant(1969, 12, 31, 12), Calendar::utc()),
              -86'400'000);
    EXPECT_EQ(LocalDay::key(utcInstant(1969, 12, 31, 12), Calendar::utc()), 19691231);
}

}  // namespace
}  // namespace quillbar
