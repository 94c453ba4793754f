// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <ctime>
#include <functional>

namespace quillbar {

/// A span of time in seconds, with a fraction.
using Seconds = std::chrono::duration<double>;

/// An instant: seconds since 1970-01-01T00:00:00Z, with a fraction. Stays exact to under a
/// microsecond for the dates of this program, and holds any number a file may claim as a date.
using TimePoint = std::chrono::time_point<std::chrono::system_clock, Seconds>;

/// Returns the current instant. Every timed component takes one at construction.
using Clock = std::function<TimePoint()>;

/// Before every instant a clock can return; the age of anything stamped with it is beyond every
/// threshold.
inline constexpr TimePoint kDistantPast = TimePoint::min();

/// The wall clock.
[[nodiscard]] inline Clock systemClock() {
    return [] { return std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now()); };
}

/// Returns the time since some moment in the past, in seconds with a fraction. Nobody can set it,
/// and it never goes back; the time for which the machine slept counts. For how long something has
/// lasted, where the wall clock may be set in between.
using MonotonicClock = std::function<Seconds()>;

/// The time since the machine was started.
[[nodiscard]] inline MonotonicClock bootClock() {
    return [] {
        timespec reading{};
        // It fails for a clock that does not exist; every Linux of today has this one.
        ::clock_gettime(CLOCK_BOOTTIME, &reading);
        return Seconds(std::chrono::seconds(reading.tv_sec))
               + Seconds(std::chrono::nanoseconds(reading.tv_nsec));
    };
}

/// Whether less than `span` has passed since an instant. One that is yet to come says that the clock
/// was set back: then nobody knows how long ago it was, and it counts as long past. Otherwise what
/// waits for it would wait for as long as the clock went back.
[[nodiscard]] inline bool isYoungerThan(Seconds span, TimePoint since, TimePoint now) {
    return since <= now && now - since < span;
}

}  // namespace quillbar
