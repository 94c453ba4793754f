// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/Heartbeat.h"

#include <algorithm>

namespace quillbar::benchmarks {

Heartbeat::Heartbeat() {
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(kInterval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
}

void Heartbeat::begin() {
    m_longest = 0;
    m_sinceBeat.start();
    m_timer.start();
}

std::chrono::nanoseconds Heartbeat::end() {
    m_timer.stop();
    beat();
    return std::chrono::nanoseconds(m_longest);
}

void Heartbeat::beat() {
    m_longest = std::max(m_longest, m_sinceBeat.nsecsElapsed());
    m_sinceBeat.restart();
}

}  // namespace quillbar::benchmarks
