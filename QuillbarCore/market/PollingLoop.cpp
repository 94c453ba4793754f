// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/PollingLoop.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace quillbar {

PollingLoop::PollingLoop(Executor& executor,
                         Clock now,
                         Sleeper sleeper,
                         Timing timing,
                         std::function<Task<void>()> refresh)
    : m_now(std::move(now))
    , m_sleeper(std::move(sleeper))
    , m_timing(timing)
    , m_refresh(std::move(refresh))
    , m_scope(executor) {}

void PollingLoop::start() {
    if (m_isRunning) {
        return;
    }
    recordDemand();
    m_isRunning = true;
    ++m_generation;
    m_task = m_scope.spawn(run(m_generation));
}

void PollingLoop::stop() {
    m_isRunning = false;
    std::exchange(m_task, {}).cancel();
}

Task<void> PollingLoop::run(std::uint64_t generation) {
    while (isCurrent(generation)) {
        co_await m_refresh();
        if (!isCurrent(generation)) {
            co_return;
        }
        const bool hasSlept = co_await sleep();
        if (!isCurrent(generation)) {
            co_return;
        }
        if (!hasSlept) {
            m_isRunning = false;
            co_return;
        }
        const TimePoint now = m_now();
        // If the clock was set back, count from now on.
        m_lastDemand = std::min(m_lastDemand, now);
        if (now - m_lastDemand > m_timing.idleTimeout) {
            stop();
            co_return;
        }
    }
}

// False when the sleep failed, as for a loop that was stopped.
Task<bool> PollingLoop::sleep() {
    try {
        co_await m_sleeper(m_timing.interval);
        co_return true;
    } catch (...) {
        co_return false;
    }
}

}  // namespace quillbar
