// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/TimeTicks.h"

#include <QDate>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace quillbar::TimeTicks {

namespace {

constexpr int kMinutesPerDay = 1440;
constexpr int kDaysPerWeek = 7;
constexpr std::array kMinuteSteps{1, 2, 5, 10, 15, 30, 60, 120, 240, 360, 720};

// Around the year 5100. No candle has a later time, and dates far beyond it have no name.
constexpr double kFurthest = 1e11;
// No screen has room for more marks, and computing them would only take time.
constexpr double kMost = 1000;

bool isAskedSensibly(TimePoint first, TimePoint last, const Spacing& spacing) {
    const double begin = first.time_since_epoch().count();
    const double end = last.time_since_epoch().count();
    const double closest = std::min(spacing.times, spacing.days).count();
    return begin >= -kFurthest && end <= kFurthest && begin <= end && closest > 0
           && end - begin <= kMost * closest;
}

/// The smallest step of less than a day that is at least `shortest`.
std::optional<int> stepInMinutes(Seconds shortest) {
    const auto* const found =
        std::find_if(kMinuteSteps.begin(), kMinuteSteps.end(), [shortest](int minutes) {
            return std::chrono::minutes(minutes) >= shortest;
        });
    return found == kMinuteSteps.end() ? std::nullopt : std::optional<int>(*found);
}

/// The smallest step of a day or more that is at least `shortest`.
std::int64_t stepInDays(Seconds shortest) {
    constexpr std::chrono::hours kDay{24};
    std::int64_t days = 1;
    while (days * kDay < shortest) {
        days = days == 2 ? kDaysPerWeek : days * 2;
    }
    return days;
}

QDate dateOf(const CalendarDate& date) {
    return {date.year, static_cast<int>(date.month), static_cast<int>(date.day)};
}

/// The first instants of the local days from `first` to `last`, and of the one that begins before.
std::vector<TimePoint> startsOfDays(TimePoint first, TimePoint last, const Calendar& calendar) {
    std::vector<TimePoint> starts;
    for (TimePoint start = calendar.startOfDay(first); start <= last;
         start = calendar.startOfNextDay(start)) {
        starts.push_back(start);
    }
    return starts;
}

/// Whether a mark every so many days falls on this one.
bool isMarked(const CalendarDate& date, std::int64_t step, Qt::DayOfWeek firstDayOfWeek) {
    // Day 0 of Julian days is a Monday, as is the first day of Qt's weeks.
    const std::int64_t day = dateOf(date).toJulianDay();
    const std::int64_t shift = step < kDaysPerWeek ? 0 : firstDayOfWeek - Qt::Monday;
    return (day - shift) % step == 0;
}

void addDays(std::vector<TimeTick>& ticks,
             const std::vector<TimePoint>& starts,
             std::int64_t step,
             const Calendar& calendar,
             Qt::DayOfWeek firstDayOfWeek) {
    for (const TimePoint start : starts) {
        if (isMarked(calendar.dateAt(start), step, firstDayOfWeek)) {
            ticks.push_back({start, TimeTick::Kind::day});
        }
    }
}

void addTimesOfDay(std::vector<TimeTick>& ticks,
                   TimePoint startOfDay,
                   TimePoint last,
                   int step,
                   const Calendar& calendar) {
    ticks.push_back({startOfDay, TimeTick::Kind::day});
    CalendarTime time = calendar.timeAt(startOfDay);
    for (int minute = step; minute < kMinutesPerDay; minute += step) {
        time.minuteOfDay = minute;
        const std::optional<TimePoint> instant = calendar.instantAt(time);
        if (!instant || *instant <= startOfDay) {
            continue;
        }
        if (*instant > last) {
            return;
        }
        ticks.push_back({*instant, TimeTick::Kind::hour});
    }
}

}  // namespace

std::vector<TimeTick> between(TimePoint first,
                              TimePoint last,
                              const Spacing& spacing,
                              const Calendar& calendar,
                              Qt::DayOfWeek firstDayOfWeek) {
    if (!isAskedSensibly(first, last, spacing)) {
        return {};
    }
    std::vector<TimeTick> ticks;
    const std::vector<TimePoint> starts = startsOfDays(first, last, calendar);
    if (const std::optional<int> minutes = stepInMinutes(spacing.times)) {
        for (const TimePoint start : starts) {
            addTimesOfDay(ticks, start, last, *minutes, calendar);
        }
    } else {
        addDays(ticks, starts, stepInDays(spacing.days), calendar, firstDayOfWeek);
    }
    std::erase_if(ticks, [first](const TimeTick& tick) { return tick.time < first; });
    return ticks;
}

}  // namespace quillbar::TimeTicks
