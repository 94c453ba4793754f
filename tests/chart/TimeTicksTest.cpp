// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/TimeTicks.h"
#include "tests/model/Instants.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using std::chrono::hours;
using std::chrono::minutes;

/// The ticks as the local clock shows them, days with a stroke: "14|", "14 04:00".
std::vector<std::string> clock(TimePoint first,
                               TimePoint last,
                               Seconds closest,
                               const Calendar& calendar = Calendar::utc(),
                               Qt::DayOfWeek firstDayOfWeek = Qt::Monday) {
    std::vector<std::string> texts;
    for (const TimeTick& tick :
         TimeTicks::between(first, last, {closest, closest}, calendar, firstDayOfWeek)) {
        const CalendarTime time = calendar.timeAt(tick.time);
        texts.push_back(
            tick.kind == TimeTick::Kind::day
                ? fmt::format("{}|", time.date.day)
                : fmt::format(
                    "{} {:02}:{:02}", time.date.day, time.minuteOfDay / 60, time.minuteOfDay % 60));
    }
    return texts;
}

const TimePoint kNoon = utcInstant(2026, 11, 14, 12);

TEST(TimeTicksTest, areFullHoursOfADay) {
    EXPECT_THAT(
        clock(kNoon, kNoon + hours(24), hours(3)),
        ElementsAre("14 12:00", "14 16:00", "14 20:00", "15|", "15 04:00", "15 08:00", "15 12:00"));
    EXPECT_THAT(clock(kNoon + minutes(1), kNoon + hours(24), hours(5)),
                ElementsAre("14 18:00", "15|", "15 06:00", "15 12:00"));
    EXPECT_THAT(clock(kNoon, kNoon + hours(24), hours(12)),
                ElementsAre("14 12:00", "15|", "15 12:00"));
}

TEST(TimeTicksTest, areLocalMidnightsOfAWeek) {
    EXPECT_THAT(clock(kNoon, kNoon + hours(24 * 7), hours(20)),
                ElementsAre("15|", "16|", "17|", "18|", "19|", "20|", "21|"));
    // 16:00 in UTC.
    EXPECT_THAT(TimeTicks::between(kNoon,
                                   kNoon + hours(24),
                                   {hours(24), hours(24)},
                                   Calendar::fixed("Asia/Shanghai"),
                                   Qt::Monday),
                ElementsAre(TimeTick{utcInstant(2026, 11, 14, 16), TimeTick::Kind::day}));
}

TEST(TimeTicksTest, areTheSameEverySecondDayWhereverTheRangeBegins) {
    const auto first = clock(kNoon, kNoon + hours(24 * 7), hours(30));
    EXPECT_THAT(first, SizeIs(::testing::AnyOf(3, 4)));
    EXPECT_EQ(clock(kNoon + hours(5), kNoon + hours(24 * 7), hours(30)), first);
}

TEST(TimeTicksTest, areTheFirstDaysOfWeeksInAMonth) {
    // The 16th of November 2026 is a Monday.
    EXPECT_THAT(clock(kNoon, kNoon + hours(24 * 30), hours(80)),
                ElementsAre("16|", "23|", "30|", "7|", "14|"));
    EXPECT_THAT(clock(kNoon, kNoon + hours(24 * 30), hours(80), Calendar::utc(), Qt::Sunday),
                ElementsAre("15|", "22|", "29|", "6|", "13|"));
    EXPECT_THAT(clock(kNoon, kNoon + hours(24 * 30), hours(24 * 8)),
                SizeIs(::testing::AnyOf(2, 3)));
}

TEST(TimeTicksTest, areMinutesOfACoinThatWasJustListed) {
    EXPECT_THAT(clock(kNoon, kNoon + minutes(40), minutes(8)),
                ElementsAre("14 12:00", "14 12:10", "14 12:20", "14 12:30", "14 12:40"));
    EXPECT_THAT(clock(kNoon + Seconds(30), kNoon + minutes(3), Seconds(50)),
                ElementsAre("14 12:01", "14 12:02", "14 12:03"));
}

TEST(TimeTicksTest, followTheLocalClockInZonesOfHalfHours) {
    EXPECT_THAT(clock(kNoon, kNoon + hours(9), hours(4), Calendar::fixed("Asia/Kathmandu")),
                ElementsAre("14 20:00", "15|"));
}

TEST(TimeTicksTest, keepToTheLocalClockWhenItIsChanged) {
    const Calendar newYork = Calendar::fixed("America/New_York");
    // At 2 in the night of the 8th of March the clock skips an hour.
    EXPECT_THAT(clock(utcInstant(2026, 3, 8, 3), utcInstant(2026, 3, 8, 17), hours(4), newYork),
                ElementsAre("8|", "8 04:00", "8 08:00", "8 12:00"));
    EXPECT_THAT(clock(utcInstant(2026, 3, 8, 5), utcInstant(2026, 3, 8, 9), hours(1), newYork),
                ElementsAre("8|", "8 01:00", "8 03:00", "8 04:00", "8 05:00"));
    // In the night of the 1st of November it shows an hour twice.
    EXPECT_THAT(clock(utcInstant(2026, 11, 1, 4), utcInstant(2026, 11, 1, 8), hours(1), newYork),
                ElementsAre("1|", "1 01:00", "1 02:00", "1 03:00"));
    EXPECT_THAT(clock(utcInstant(2026, 3, 6, 12), utcInstant(2026, 3, 10, 12), hours(24), newYork),
                ElementsAre("7|", "8|", "9|", "10|"));
}

TEST(TimeTicksTest, markADayThatBeginsAtOneAtItsFirstInstant) {
    const Calendar santiago = Calendar::fixed("America/Santiago");
    const std::vector<TimeTick> ticks = TimeTicks::between(utcInstant(2025, 9, 6, 12),
                                                           utcInstant(2025, 9, 8, 12),
                                                           {hours(24), hours(24)},
                                                           santiago,
                                                           Qt::Monday);
    EXPECT_THAT(ticks,
                ElementsAre(TimeTick{utcInstant(2025, 9, 7, 4), TimeTick::Kind::day},
                            TimeTick{utcInstant(2025, 9, 8, 3), TimeTick::Kind::day}));
    EXPECT_THAT(clock(utcInstant(2025, 9, 7, 0), utcInstant(2025, 9, 7, 8), hours(1), santiago),
                ElementsAre("6 20:00",
                            "6 21:00",
                            "6 22:00",
                            "6 23:00",
                            "7|",
                            "7 02:00",
                            "7 03:00",
                            "7 04:00",
                            "7 05:00"));
}

TEST(TimeTicksTest, lieInOrder) {
    for (const char* const zone : {"America/Santiago",
                                   "Asia/Shanghai",
                                   "Europe/Berlin",
                                   "Australia/Lord_Howe",
                                   "Pacific/Apia",
                                   "Asia/Kathmandu"}) {
        const Calendar calendar = Calendar::fixed(zone);
        // Each day of a year, whose clock changes are somewhere among them.
        for (int day = 0; day < 366; ++day) {
            const TimePoint first = utcInstant(2025, 1, 1) + hours(24 * day);
            const auto ticks = TimeTicks::between(
                first, first + hours(24), {minutes(30), minutes(30)}, calendar, Qt::Monday);
            for (std::size_t index = 1; index < ticks.size(); ++index) {
                ASSERT_LT(ticks[index - 1].time, ticks[index].time) << zone << " " << day;
            }
            ASSERT_THAT(ticks, SizeIs(::testing::AllOf(::testing::Ge(45U), ::testing::Le(51U))));
        }
    }
}

TEST(TimeTicksTest, lieCloserWhereAllAreDays) {
    const auto count = [](Seconds times, Seconds days) {
        return TimeTicks::between(
                   kNoon, kNoon + hours(24 * 7), {times, days}, Calendar::utc(), Qt::Monday)
            .size();
    };
    // Times of day would need a step beyond a day.
    EXPECT_EQ(count(hours(30), hours(24)), 7U);
    EXPECT_EQ(count(hours(12), hours(24)), 15U);
}

TEST(TimeTicksTest, markAnInstantThatIsRound) {
    EXPECT_THAT(clock(kNoon, kNoon, hours(1)), ElementsAre("14 12:00"));
    EXPECT_THAT(clock(kNoon + Seconds(1), kNoon + Seconds(1), hours(1)), IsEmpty());
}

TEST(TimeTicksTest, areNoneForTimesThatNoCandleHas) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const auto between = [](double first, double last, double closest) {
        return clock(TimePoint(Seconds(first)), TimePoint(Seconds(last)), Seconds(closest));
    };
    EXPECT_THAT(between(0, kInfinity, 3600), IsEmpty());
    EXPECT_THAT(between(-kInfinity, 0, 3600), IsEmpty());
    EXPECT_THAT(between(0, std::nan(""), 3600), IsEmpty());
    EXPECT_THAT(between(0, 1e18, 1e16), IsEmpty());
    EXPECT_THAT(between(3600, 0, 3600), IsEmpty());
    EXPECT_THAT(between(0, 3600, 0), IsEmpty());
    EXPECT_THAT(between(0, 1e9, 1), IsEmpty());
}

TEST(TimeTicksTest, areFewForManyYears) {
    EXPECT_LE(clock(utcInstant(1990, 1, 1), utcInstant(2026, 1, 1), hours(24 * 365 * 6)).size(),
              6U);
}

}  // namespace
}  // namespace quillbar
