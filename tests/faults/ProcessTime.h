// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

/// The time that the whole process sees: Qt's timers, the limits of its sockets, the C++ clocks and
/// OpenSSL alike. It stands still but for what a test lets pass, so that hours of waiting cost
/// nothing and the production timers are judged, not stand-ins for them.
///
/// It takes the place of the C library's clocks and of its waits for files (`poll`, `ppoll`) in
/// every program that links it. A wait with a limit ends when the limit has passed in this time.
/// Only waits for a condition variable keep the system's time; their limits never come.
///
/// For the main thread. The wall clock begins at 2026-11-14T12:00:00Z.
namespace quillbar::ProcessTime {

using Span = std::chrono::milliseconds;

/// Lets time pass on both clocks, at once. Every thread that waits for that long is woken.
void pass(Span span);

/// Moves the wall clock alone, forwards or, below zero, backwards: somebody has set it.
void moveWallClock(Span span);

/// Lets the machine sleep: the wall clock and the time since the machine's start go on, the
/// monotonic clock stands still, and nobody wakes.
void sleepMachine(Span span);

/// What the monotonic clock has counted since the process began.
[[nodiscard]] Span elapsed();

/// Runs the event loop until neither this thread nor any other has something left to do.
void settle();

}  // namespace quillbar::ProcessTime
