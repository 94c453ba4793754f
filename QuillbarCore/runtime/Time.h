// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
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

}  // namespace quillbar
