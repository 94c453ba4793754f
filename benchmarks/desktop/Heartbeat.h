// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

namespace quillbar::benchmarks {

/// How long the event loop of this thread is away at most, by the clock on the wall and by the time
/// that the processor gave the thread: beats each millisecond and keeps the longest of both between
/// two beats.
class Heartbeat final {
public:
    static constexpr std::chrono::milliseconds kInterval{1};

    struct Longest final {
        std::chrono::nanoseconds wall{};
        std::chrono::nanoseconds processor{};
    };

    Heartbeat();

    /// Forgets what was and begins to beat.
    void begin();
    /// Beats no longer. The longest times between two beats since the beginning; the two need not
    /// be of the same beats.
    [[nodiscard]] Longest end();

private:
    void beat();

    QTimer m_timer;
    QElapsedTimer m_sinceBeat;
    std::chrono::nanoseconds m_processorAtBeat{};
    Longest m_longest;
};

}  // namespace quillbar::benchmarks
