// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Time.h"

namespace quillbar {

/// The longest time of one timer; a longer sleep uses several timers in turn.
inline constexpr Seconds kLongestQtTimer{1'000'000};

/// A sleeper on the event loop and the monotonic clock, which stops while the machine is suspended.
/// It never wakes early. Zero, negative and NaN spans end at the next turn of the event loop; an
/// infinite span never ends.
///
/// `longestTimer`, greater than 0, is for tests.
[[nodiscard]] Sleeper makeQtSleeper(Seconds longestTimer = kLongestQtTimer);

}  // namespace quillbar
