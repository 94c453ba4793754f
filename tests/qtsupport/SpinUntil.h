// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace quillbar {

/// Runs the event loop of the calling thread until the predicate holds; false when the time is over
/// first. The predicate is asked at the start and after each batch of events, never by a clock, so
/// a generous timeout costs nothing when things go well. Objects waiting to be deleted are deleted.
[[nodiscard]] bool spinUntil(const std::function<bool()>& predicate,
                             std::chrono::milliseconds timeout = std::chrono::seconds{20});

/// Runs the event loop until nothing is left to do at once: for showing that something does not
/// happen. It waits for nothing, so let what would cause it happen first.
void spinUntilIdle();

}  // namespace quillbar
