// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Time.h"

namespace quillbar {

/// What a single timer of the event loop can span; longer sleeps are made of several.
inline constexpr Seconds kLongestQtTimer{1'000'000};

/// A sleeper on the event loop and the monotonic clock, which stands still while the machine is
/// suspended. It never wakes early. Zero, negative and undefined (NaN) spans wake at the next turn
/// of the loop; any other span is kept to, infinity included.
///
/// `longestTimer`, greater than 0, is for tests.
[[nodiscard]] Sleeper makeQtSleeper(Seconds longestTimer = kLongestQtTimer);

}  // namespace quillbar
