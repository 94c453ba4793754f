// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/QtSleeper.h"

#include "QuillbarCore/runtime/Await.h"

#include <QObject>
#include <QTimer>

#include <algorithm>
#include <chrono>

namespace quillbar {

namespace {

using Monotonic = std::chrono::steady_clock;

class TimerOperation {
public:
    TimerOperation(Seconds span, Seconds longestTimer)
        // std::max returns its first argument if the other one is NaN.
        : m_due(now() + std::max(Seconds::zero(), span))
        , m_longestTimer(longestTimer) {}

    [[nodiscard]] bool ready() const noexcept { return false; }

    void start(Completion done) {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, done] {
            if (m_due > now()) {
                arm();
            } else {
                done();
            }
        });
        arm();
    }

    void stop() noexcept { m_timer.stop(); }
    void result() const noexcept {}

private:
    static Seconds now() { return Monotonic::now().time_since_epoch(); }

    void arm() {
        const Seconds left = std::clamp(m_due - now(), Seconds::zero(), m_longestTimer);
        m_timer.start(std::chrono::ceil<std::chrono::milliseconds>(left));
    }

    Seconds m_due;
    Seconds m_longestTimer;
    QTimer m_timer;
};

Task<void> sleep(Seconds span, Seconds longestTimer) {
    co_await Await<TimerOperation>(std::in_place, span, longestTimer);
}

}  // namespace

Sleeper makeQtSleeper(Seconds longestTimer) {
    return [longestTimer](Seconds span) { return sleep(span, longestTimer); };
}

}  // namespace quillbar
