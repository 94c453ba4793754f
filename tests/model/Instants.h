// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Time.h"

#include <chrono>
#include <cstdint>

namespace quillbar {

/// The instant of a date and time in UTC.
[[nodiscard]] inline TimePoint utcInstant(int year,
                                          unsigned month,
                                          unsigned day,
                                          int hour = 0,
                                          int minute = 0,
                                          double second = 0) {
    const std::chrono::sys_days date =
        std::chrono::year{year} / static_cast<int>(month) / static_cast<int>(day);
    return TimePoint{Seconds{date.time_since_epoch()} + std::chrono::hours{hour}
                     + std::chrono::minutes{minute} + Seconds{second}};
}

/// The instant in milliseconds since the epoch.
[[nodiscard]] inline std::int64_t epochMs(TimePoint instant) {
    return static_cast<std::int64_t>(instant.time_since_epoch().count() * 1000);
}

}  // namespace quillbar
