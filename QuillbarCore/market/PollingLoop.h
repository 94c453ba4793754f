// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <cstdint>
#include <functional>

namespace quillbar {

/// Refreshes something at an interval for as long as somebody looks at it. Belongs to the
/// executor's thread; destroying it ends the loop and the refresh that runs.
class PollingLoop final {
public:
    struct Timing {
        /// From the end of a refresh to the next one.
        Seconds interval;
        /// The loop ends when it wakes and the last demand is longer ago than this.
        Seconds idleTimeout;
    };

    /// `refresh` throws only `Cancelled`.
    PollingLoop(Executor& executor,
                Clock now,
                Sleeper sleeper,
                Timing timing,
                std::function<Task<void>()> refresh);
    PollingLoop(const PollingLoop&) = delete;
    PollingLoop& operator=(const PollingLoop&) = delete;
    PollingLoop(PollingLoop&&) = delete;
    PollingLoop& operator=(PollingLoop&&) = delete;
    ~PollingLoop() = default;

    /// Starts the loop with a refresh at once, which counts as demand. Does nothing while the loop
    /// runs; then the call does not count as demand.
    void start();

    /// Ends the loop and cancels the refresh that runs, silently.
    void stop();

    /// Notes that somebody looks at the data.
    void recordDemand() { m_lastDemand = m_now(); }

    [[nodiscard]] bool isRunning() const noexcept { return m_isRunning; }

private:
    Task<void> run(std::uint64_t generation);
    Task<bool> sleep();
    // A loop that was stopped may still be resumed, by an operation that completed before.
    [[nodiscard]] bool isCurrent(std::uint64_t generation) const noexcept {
        return m_isRunning && generation == m_generation;
    }

    Clock m_now;
    Sleeper m_sleeper;
    Timing m_timing;
    std::function<Task<void>()> m_refresh;
    TimePoint m_lastDemand = kDistantPast;
    bool m_isRunning = false;
    // The number of the loop that runs. A loop that was stopped and replaced must not refresh
    // again, and must not end its successor.
    std::uint64_t m_generation = 0;
    TaskScope::Handle m_task;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
