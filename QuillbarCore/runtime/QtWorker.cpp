// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/QtWorker.h"

#include <QRunnable>
#include <QThreadPool>

#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace quillbar {

namespace {

constexpr int kIdleThreadMilliseconds = 2'000;

// The jobs wait in a queue of our own, not in the pool's: ThreadSanitizer cannot see into Qt, and
// so cannot check what is handed over there.
class QtWorker final : public Worker,
                       private QRunnable {
public:
    QtWorker() {
        setAutoDelete(false);
        m_pool.setMaxThreadCount(1);
        m_pool.setExpiryTimeout(kIdleThreadMilliseconds);
    }
    QtWorker(const QtWorker&) = delete;
    QtWorker& operator=(const QtWorker&) = delete;
    QtWorker(QtWorker&&) = delete;
    QtWorker& operator=(QtWorker&&) = delete;
    ~QtWorker() override {
        std::deque<std::function<void()>> dropped;
        {
            const std::lock_guard lock(m_lock);
            dropped.swap(m_jobs);
        }
        dropped.clear();
        m_pool.waitForDone();
    }

    void run(std::function<void()> job) override {
        {
            const std::lock_guard lock(m_lock);
            m_jobs.push_back(std::move(job));
            if (std::exchange(m_isRunning, true)) {
                return;
            }
        }
        m_pool.start(this);
    }

private:
    // On the pool's thread.
    void run() override {
        while (const auto job = next()) {
            (*job)();
        }
    }

    // The next job. Absent when none waits; then the worker no longer counts as running.
    std::optional<std::function<void()>> next() {
        const std::lock_guard lock(m_lock);
        if (m_jobs.empty()) {
            m_isRunning = false;
            return std::nullopt;
        }
        std::optional<std::function<void()>> job(std::move(m_jobs.front()));
        m_jobs.pop_front();
        return job;
    }

    std::mutex m_lock;
    // Guarded by the lock.
    std::deque<std::function<void()>> m_jobs;
    bool m_isRunning = false;
    QThreadPool m_pool;
};

}  // namespace

std::unique_ptr<Worker> makeQtWorker() {
    return std::make_unique<QtWorker>();
}

}  // namespace quillbar
