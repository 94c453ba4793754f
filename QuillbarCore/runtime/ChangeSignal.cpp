// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/ChangeSignal.h"

#include <boost/signals2/dummy_mutex.hpp>
#include <boost/signals2/signal_type.hpp>

namespace quillbar {

namespace {

// Everything observed lives on the main thread, so the signal needs no lock.
using MainThreadSignal = boost::signals2::signal_type<
    void(const void*),
    boost::signals2::keywords::mutex_type<boost::signals2::dummy_mutex>>::type;

}  // namespace

class ChangeSignal::Signal final {
public:
    [[nodiscard]] MainThreadSignal& operator*() noexcept { return m_signal; }

    /// Ends every observation, for good.
    void abandon() {
        m_isAbandoned = true;
        // Otherwise a running `tell` would go on to the later observers.
        m_signal.disconnect_all_slots();
    }
    [[nodiscard]] bool isAbandoned() const noexcept { return m_isAbandoned; }

private:
    MainThreadSignal m_signal;
    bool m_isAbandoned = false;
};

ChangeSignal::~ChangeSignal() {
    if (m_signal != nullptr) {
        m_signal->abandon();
    }
}

Observation ChangeSignal::observe(const Observer& observer) {
    if (m_signal == nullptr) {
        m_signal = std::make_shared<Signal>();
    }
    return (**m_signal).connect(observer);
}

bool ChangeSignal::tell(const void* changed) {
    // Keep the signal alive during the call: an observer may destroy this object, and the signal
    // reads its members after each observer.
    const std::shared_ptr<Signal> running = m_signal;
    if (running == nullptr) {
        return true;
    }
    (**running)(changed);
    return !running->isAbandoned();
}

}  // namespace quillbar
