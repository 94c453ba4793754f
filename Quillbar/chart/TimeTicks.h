// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/runtime/Time.h"

#include <Qt>

#include <vector>

namespace quillbar {

/// A mark on the time axis of a chart. A plain value.
struct TimeTick final {
    enum class Kind {
        day,   ///< the first instant of a local day
        hour,  ///< another time of a local day
    };

    TimePoint time;
    Kind kind = Kind::day;

    [[nodiscard]] bool operator==(const TimeTick&) const = default;
};

/// Where the time axis of a chart is marked.
namespace TimeTicks {

/// The least time between two neighbouring marks.
struct Spacing final {
    /// If some of the marks are times of day.
    Seconds times;
    /// If all of them are days. Both values are positive.
    Seconds days;
};

/// The marks from `first` to `last`, both included, in order, at round times of the local clock:
/// every 1, 2, 5, 10, 15 or 30 minutes, 1, 2, 4, 6 or 12 hours, 1 or 2 days, or 1, 2, 4, 8 … weeks
/// from `firstDayOfWeek` on. The step is the smallest that the spacing allows. Times that the clock
/// skips have no mark, but a day has one at its first instant, whatever the clock shows then; of
/// times it shows twice, the first has one.
///
/// There are none if an instant is not finite or thousands of years away, or if `first` is after
/// `last`. Pure if the calendar is.
[[nodiscard]] std::vector<TimeTick> between(TimePoint first,
                                            TimePoint last,
                                            const Spacing& spacing,
                                            const Calendar& calendar,
                                            Qt::DayOfWeek firstDayOfWeek);

}  // namespace TimeTicks

}  // namespace quillbar
