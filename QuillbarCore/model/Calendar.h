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
    int minuteOfDay = 0;  ///< 0 to 1439, as the clock shows it, not as minutes go by

    [[nodiscard]] bool operator==(const CalendarTime&) const = default;
};

/// The time zone in which a day is taken. A small value, copied freely. It answers from the
/// system's zone files, which are read once per process; it never reads the clock.
///
/// Callable from any thread, as long as none changes the environment meanwhile.
///
/// An instant more than 30,000 years from 1970, or one that is not finite, is a mistake of the
/// caller: the process aborts. Nothing else fails but fixed().
///
/// The zone files of the system name their changes up to 2037; later instants keep the zone's last
/// offset.
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

    /// The first instant of the local day that holds the given one: its midnight; the first instant
    /// after the gap on a day that begins inside one; the earlier of two midnights.
    [[nodiscard]] TimePoint startOfDay(TimePoint instant) const;

    /// The first instant of the local day that follows the one of the given instant, as
    /// `startOfDay` has it. A day that the zone leaves out is passed over.
    [[nodiscard]] TimePoint startOfNextDay(TimePoint instant) const;

    /// The local date and time at the instant.
    [[nodiscard]] CalendarTime timeAt(TimePoint instant) const;

    /// The instant at which the local clock shows this time, which is one of the calendar's dates
    /// and minutes; the earlier of two; absent for a time that the clock skips.
    [[nodiscard]] std::optional<TimePoint> instantAt(const CalendarTime& time) const;

private:
    Calendar(const date::time_zone* zone, std::string systemFolder);

    /// The zone to answer from; null is UTC.
    [[nodiscard]] const date::time_zone* zone() const;

    const date::time_zone* m_zone;
    std::string m_systemFolder;  // empty: m_zone holds for good
};

}  // namespace quillbar
