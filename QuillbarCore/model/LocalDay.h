// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/runtime/Time.h"

#include <cstdint>

/// The key and the start of a local day, for changes since local midnight. Never reads the clock.
/// Threads and instants: as for Calendar.
namespace quillbar::LocalDay {

/// Identifies the local day that holds the instant: year × 10000 + month × 100 + day, 20261115 for
/// 15 November 2026. For comparison by equality only.
[[nodiscard]] std::int64_t key(TimePoint instant, const Calendar& calendar);

/// The first instant of the local day that holds the given one, in milliseconds since the epoch.
[[nodiscard]] std::int64_t midnightEpochMs(TimePoint instant, const Calendar& calendar);

}  // namespace quillbar::LocalDay
