// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Time.h"

#include <optional>
#include <string>
#include <string_view>

namespace date {
class time_zone;
}

namespace quillbar {

/// A date of the proleptic Gregorian calendar. Equality compares all three fields.
struct CalendarDate final {
    int year = 0;
    unsigned month = 0;  ///< 1 to 12
    unsigned day = 0;    ///< 1 to 31

    [[nodiscard]] bool operator==(const CalendarDate&) const = default;
};

/// What a local clock and calendar show, to the minute. Equality compares both fields.
struct CalendarTime final {
    CalendarDate date;
    int minuteOfDay = 0;  ///< 0 to 1439, as the clock shows it, not as time passes

    [[nodiscard]] bool operator==(const CalendarTime&) const = default;
};

/// Converts instants to local dates and times and back, in one time zone. A small value, copied
/// freely. It uses the system's zone files, which are read once per process; it never reads the
/// clock.
///
/// Callable from any thread, as long as no thread changes the environment meanwhile.
///
/// The process aborts for an instant that is not finite or is more than 30,000 years from 1970,
/// because that is a mistake of the caller. Apart from that only fixed() fails.
///
/// The system's zone files list the changes of a zone's offset up to 2037; later instants keep the
/// last offset.
class Calendar final {
public:
    /// The calendar of one zone of the system's database, such as "Asia/Shanghai".
    /// Throws std::invalid_argument when the system does not know the zone.
    [[nodiscard]] static Calendar fixed(std::string_view zoneName);

    /// The calendar of UTC. Needs no zone files.
    [[nodiscard]] static Calendar utc();

    /// The user's calendar, looked up afresh at each use, so that it follows a change of zone:
    /// - the environment's TZ when it names a zone, as "Asia/Shanghai", ":Asia/Shanghai" or by its
    ///   file; the empty text is UTC, as it is for the C library;
    /// - otherwise (TZ unset, a rule such as "CET-1CEST", or an unknown name) the system's zone:
    ///   the one whose file "localtime" in the system's folder links to, or, when that is a plain
    ///   file, the one that "timezone" beside it names;
    /// - otherwise UTC.
    [[nodiscard]] static Calendar autoupdatingCurrent(std::string systemFolder = "/etc");

    /// The local date at the instant.
    [[nodiscard]] CalendarDate dateAt(TimePoint instant) const;

    /// The first instant of the local day of `instant`: midnight, the earlier one if the clock
    /// shows it twice, or the first instant after the gap if the clock skips it.
    [[nodiscard]] TimePoint startOfDay(TimePoint instant) const;

    /// The first instant of the local day after that of `instant`, as `startOfDay` defines it. A
    /// day that the zone leaves out is skipped.
    [[nodiscard]] TimePoint startOfNextDay(TimePoint instant) const;

    /// The local date and time at the instant.
    [[nodiscard]] CalendarTime timeAt(TimePoint instant) const;

    /// The instant at which the local clock shows this time: the earlier one if there are two,
    /// absent if the clock skips it. `time` must be a valid date and minute.
    [[nodiscard]] std::optional<TimePoint> instantAt(const CalendarTime& time) const;

private:
    Calendar(const date::time_zone* zone, std::string systemFolder);

    /// The zone to use; null is UTC.
    [[nodiscard]] const date::time_zone* zone() const;

    const date::time_zone* m_zone;
    std::string m_systemFolder;  // empty: m_zone never changes
};

}  // namespace quillbar
