// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

namespace quillbar::benchmarks {

/// How long the event loop of this thread is away at most: beats each millisecond and keeps the
/// longest time between two beats.
class Heartbeat final {
public:
    static constexpr std::chrono::milliseconds kInterval{1};

    Heartbeat();

    /// Forgets what was and begins to beat.
    void begin();
    /// Beats no longer. The longest time between two beats since the beginning.
    [[nodiscard]] std::chrono::nanoseconds end();

private:
    void beat();

    QTimer m_timer;
    QElapsedTimer m_sinceBeat;
    qint64 m_longest = 0;
};

}  // namespace quillbar::benchmarks
