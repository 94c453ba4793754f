// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/LocalDay.h"

namespace quillbar::LocalDay {

std::int64_t key(TimePoint instant, const Calendar& calendar) {
    const CalendarDate date = calendar.dateAt(instant);
    return std::int64_t{date.year} * 10'000 + std::int64_t{date.month} * 100 + date.day;
}

std::int64_t midnightEpochMs(TimePoint instant, const Calendar& calendar) {
    // Calendar refuses what is not finite, and 30,000 years of milliseconds fit the integer.
    return static_cast<std::int64_t>(calendar.startOfDay(instant).time_since_epoch().count()
                                     * 1000);
}

}  // namespace quillbar::LocalDay
