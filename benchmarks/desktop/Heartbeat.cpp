// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/Heartbeat.h"

#include "benchmarks/desktop/Moments.h"

#include <algorithm>

namespace quillbar::benchmarks {

Heartbeat::Heartbeat() {
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(kInterval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
}

void Heartbeat::begin() {
    m_longest = {};
    m_sinceBeat.start();
    m_processorAtBeat = processorTime();
    m_timer.start();
}

Heartbeat::Longest Heartbeat::end() {
    m_timer.stop();
    beat();
    return m_longest;
}

void Heartbeat::beat() {
    const std::chrono::nanoseconds processor = processorTime();
    m_longest.wall = std::max(m_longest.wall, std::chrono::nanoseconds(m_sinceBeat.nsecsElapsed()));
    m_longest.processor = std::max(m_longest.processor, processor - m_processorAtBeat);
    m_sinceBeat.restart();
    m_processorAtBeat = processor;
}

}  // namespace quillbar::benchmarks
