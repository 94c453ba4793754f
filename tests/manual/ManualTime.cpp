// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/manual/ManualTime.h"

#include <algorithm>

namespace quillbar {

namespace {

// Sums of fractions of a second must not leave a sleeper one rounding error short of its due time.
constexpr Seconds kTolerance{1e-9};

}  // namespace

ManualTime::ManualTime(ManualExecutor& executor, TimePoint start)
    : m_executor(executor)
    , m_setTo(start) {}

Clock ManualTime::clock() const {
    return [this] { return now(); };
}

MonotonicClock ManualTime::monotonicClock() const {
    return [this] { return m_elapsed; };
}

Sleeper ManualTime::sleeper() {
    return [this](Seconds span) { return sleep(span); };
}

void ManualTime::advance(Seconds span) {
    m_executor.run();
    const Seconds end = m_elapsed + span;
    for (SleepHook* next = earliest(); next != nullptr && next->due <= end + kTolerance;
         next = earliest()) {
        m_elapsed = std::clamp(next->due, m_elapsed, end);
        wake(*next);
        m_executor.run();
    }
    m_elapsed = end;
    m_executor.run();
}

void ManualTime::jump(Seconds span) {
    m_executor.run();
    m_elapsed += span;
    for (SleepHook* next = earliest(); next != nullptr && next->due <= m_elapsed + kTolerance;
         next = earliest()) {
        wake(*next);
    }
    m_executor.run();
}

void ManualTime::setClock(TimePoint now) noexcept {
    m_setTo = now;
    m_setAt = m_elapsed;
}

std::size_t ManualTime::sleepingCount() const noexcept {
    std::size_t count = 0;
    for (const ListHook* hook = m_sleeping.next(); hook != &m_sleeping; hook = hook->next()) {
        ++count;
    }
    return count;
}

void ManualTime::SleepOperation::start(Completion done) {
    m_hook.done = done;
    m_hook.due = m_time.m_elapsed + m_span;
    m_hook.insertBefore(m_time.m_sleeping);
}

Task<void> ManualTime::sleep(Seconds span) {
    requested.push_back(span.count());
    co_await Await<SleepOperation>(std::in_place, *this, span);
}

ManualTime::SleepHook* ManualTime::earliest() const noexcept {
    SleepHook* first = nullptr;
    for (ListHook* hook = m_sleeping.next(); hook != &m_sleeping; hook = hook->next()) {
        auto* const candidate = static_cast<SleepHook*>(hook);
        if (first == nullptr || candidate->due < first->due) {
            first = candidate;
        }
    }
    return first;
}

void ManualTime::wake(SleepHook& hook) noexcept {
    hook.unlink();
    hook.done();
}

}  // namespace quillbar
