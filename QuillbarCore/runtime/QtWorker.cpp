// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/QtWorker.h"

#include <QThreadPool>

#include <utility>

namespace quillbar {

namespace {

constexpr int kIdleThreadMilliseconds = 2'000;

class QtWorker final : public Worker {
public:
    QtWorker() {
        m_pool.setMaxThreadCount(1);
        m_pool.setExpiryTimeout(kIdleThreadMilliseconds);
    }
    QtWorker(const QtWorker&) = delete;
    QtWorker& operator=(const QtWorker&) = delete;
    QtWorker(QtWorker&&) = delete;
    QtWorker& operator=(QtWorker&&) = delete;
    ~QtWorker() override {
        m_pool.clear();
        m_pool.waitForDone();
    }

    void run(std::function<void()> job) override { m_pool.start(std::move(job)); }

private:
    QThreadPool m_pool;
};

}  // namespace

std::unique_ptr<Worker> makeQtWorker() {
    return std::make_unique<QtWorker>();
}

}  // namespace quillbar
