// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/QtExecutor.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <deque>
#include <mutex>
#include <utility>

namespace quillbar {

namespace {

class QtExecutor final : public QObject,
                         public Executor {
public:
    // Posted functions wait in a queue of our own: ThreadSanitizer cannot see into Qt's event
    // queue, and so cannot check what other threads hand over there.
    void post(std::function<void()> function) override {
        {
            const std::lock_guard lock(m_lock);
            m_posted.push_back(std::move(function));
        }
        QCoreApplication::postEvent(this, new QEvent(kPosted));
    }

protected:
    void wake() noexcept override {
        // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): a task that cannot be woken is lost
        QCoreApplication::postEvent(this, new QEvent(kReady));
    }

    bool event(QEvent* event) override {
        if (event->type() == kPosted) {
            takePosted()();
        } else if (event->type() == kReady) {
            runOne();
        } else {
            return QObject::event(event);
        }
        return true;
    }

private:
    static constexpr QEvent::Type kPosted = QEvent::User;
    static constexpr auto kReady = static_cast<QEvent::Type>(QEvent::User + 1);

    std::function<void()> takePosted() {
        const std::lock_guard lock(m_lock);
        std::function<void()> function = std::move(m_posted.front());
        m_posted.pop_front();
        return function;
    }

    std::mutex m_lock;
    // Guarded by the lock. One function for each posted event that has not arrived.
    std::deque<std::function<void()>> m_posted;
};

}  // namespace

std::unique_ptr<Executor> makeQtExecutor() {
    return std::make_unique<QtExecutor>();
}

}  // namespace quillbar
