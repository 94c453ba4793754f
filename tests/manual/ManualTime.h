// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Await.h"
#include "QuillbarCore/runtime/ListHook.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Time.h"
#include "tests/manual/ManualExecutor.h"

#include <cstddef>
#include <vector>

namespace quillbar {

/// The manual twin of clocks and sleeper, driven together with a manual executor: time passes only
/// when a test says so. Outlives everything that uses its clocks or its sleeper.
class ManualTime {
public:
    /// 2026-11-14T12:00:00Z unless told otherwise.
    explicit ManualTime(ManualExecutor& executor, TimePoint start = TimePoint(Seconds(1794657600)));

    [[nodiscard]] TimePoint now() const noexcept { return m_setTo + (m_elapsed - m_setAt); }
    [[nodiscard]] Clock clock() const;
    /// Goes on as time passes, whatever the wall clock is set to.
    [[nodiscard]] MonotonicClock monotonicClock() const;
    [[nodiscard]] Sleeper sleeper();

    /// Lets time pass smoothly: what is due on the way wakes at its own instant, in order, and the
    /// executor runs after each.
    void advance(Seconds span);

    /// Lets time pass at once, as for a laptop that slept: everything due wakes late, at the end.
    void jump(Seconds span);

    /// Sets the wall clock alone, forwards or backwards: nobody wakes. A task may do so on the way.
    void setClock(TimePoint now) noexcept;

    /// How many sleeps are pending.
    [[nodiscard]] std::size_t sleepingCount() const noexcept;

    /// The length in seconds of every sleep asked for, in order.
    std::vector<double> requested;

private:
    struct SleepHook : ListHook {
        Completion done;
        Seconds due{};
    };

    class SleepOperation {
    public:
        SleepOperation(ManualTime& time, Seconds span)
            : m_time(time)
            , m_span(span) {}
        [[nodiscard]] bool ready() const noexcept { return false; }
        void start(Completion done);
        void stop() noexcept { m_hook.unlink(); }
        void result() const noexcept {}

    private:
        ManualTime& m_time;
        Seconds m_span;
        SleepHook m_hook{};
    };

    Task<void> sleep(Seconds span);
    [[nodiscard]] SleepHook* earliest() const noexcept;
    static void wake(SleepHook& hook) noexcept;

    ManualExecutor& m_executor;
    // Time passes here, apart from the wall clock, which a test may set. The sum of the steps is
    // kept small, because a TimePoint of our days is too coarse to add many fractions to.
    Seconds m_elapsed{};
    TimePoint m_setTo;
    Seconds m_setAt{};
    ListHook m_sleeping;
};

}  // namespace quillbar
