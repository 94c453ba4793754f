// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/SimulatorThread.h"

#include <QObject>
#include <QThread>

#include <exception>
#include <optional>
#include <utility>

namespace quillbar::simulator {

class SimulatorThread::Impl final {
public:
    Impl() {
        m_home.moveToThread(&m_thread);
        m_thread.start();
    }
    ~Impl() {
        run([this] { m_simulator.reset(); });
        m_thread.quit();
        m_thread.wait();
    }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;
    Impl(Impl&&) = delete;
    Impl& operator=(Impl&&) = delete;

    void run(const std::function<void()>& function) {
        std::exception_ptr thrown;
        const auto guarded = [&function, &thrown] {
            try {
                function();
            } catch (...) {
                thrown = std::current_exception();
            }
        };
        QMetaObject::invokeMethod(&m_home, guarded, Qt::BlockingQueuedConnection);
        if (thrown) {
            std::rethrow_exception(thrown);
        }
    }

    std::optional<Simulator>& simulator() { return m_simulator; }

private:
    // Touched on the thread only.
    std::optional<Simulator> m_simulator;
    QThread m_thread;
    // Lives on the thread, so that calls can be posted there.
    QObject m_home;
};

SimulatorThread::SimulatorThread(const SimulatorOptions& options)
    : m_impl(std::make_unique<Impl>()) {
    m_impl->run([this, &options] { m_impl->simulator().emplace(options); });
}

SimulatorThread::~SimulatorThread() = default;

void SimulatorThread::call(const std::function<void(Simulator&)>& function) {
    m_impl->run([this, &function] { function(*m_impl->simulator()); });
}

}  // namespace quillbar::simulator
