// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <ctime>
#include <functional>

namespace quillbar {

/// A span of time in seconds, with a fraction.
using Seconds = std::chrono::duration<double>;

/// An instant: seconds since 1970-01-01T00:00:00Z, with a fraction. Exact to less than a
/// microsecond for present dates, and can hold any number that a file gives as a date.
using TimePoint = std::chrono::time_point<std::chrono::system_clock, Seconds>;

/// Returns the current instant. Every timed component takes one at construction.
using Clock = std::function<TimePoint()>;

/// Earlier than every instant that a clock returns: the age of what has this time is beyond every
/// threshold.
inline constexpr TimePoint kDistantPast = TimePoint::min();

/// The wall clock.
[[nodiscard]] inline Clock systemClock() {
    return [] { return std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now()); };
}

/// Returns the time since some moment in the past, in seconds with a fraction. Nobody can set it,
/// it never goes back, and it counts the time for which the machine slept. For measuring how long
/// something lasts, because the wall clock may be set meanwhile.
using MonotonicClock = std::function<Seconds()>;

/// The time since the machine was started.
[[nodiscard]] inline MonotonicClock bootClock() {
    return [] {
        timespec reading{};
        // This fails only for a clock that does not exist, and every supported Linux has this one.
        ::clock_gettime(CLOCK_BOOTTIME, &reading);
        return Seconds(std::chrono::seconds(reading.tv_sec))
               + Seconds(std::chrono::nanoseconds(reading.tv_nsec));
    };
}

/// Whether less than `span` has passed since the instant. An instant in the future means that the
/// clock was set back, and counts as long past. Otherwise, code that waits until it is old would
/// also wait for the time by which the clock was set back.
[[nodiscard]] inline bool isYoungerThan(Seconds span, TimePoint since, TimePoint now) {
    return since <= now && now - since < span;
}

}  // namespace quillbar
