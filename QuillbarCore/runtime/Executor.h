// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/ListHook.h"

#include <coroutine>
#include <functional>

namespace quillbar {

class TaskContext;

/// The entry of a suspended coroutine in an executor's queue. It lives in the coroutine's frame (or
/// beside a root task), so destroying the coroutine also takes it out of the queue.
struct ReadyNode : ListHook {
    std::coroutine_handle<> handle;
    TaskContext* context = nullptr;
};

/// The one queue from which suspended coroutines are resumed, on the thread that owns it. Nothing
/// else resumes a coroutine: not a push into a stream, not a cancellation, not a signal. So the
/// code between two awaits is atomic, and re-entrancy cannot happen.
///
/// Only the owning thread may call its functions, except `post`. An executor outlives every task
/// that runs on it.
class Executor {
public:
    Executor() = default;
    Executor(const Executor&) = delete;
    Executor& operator=(const Executor&) = delete;
    Executor(Executor&&) = delete;
    Executor& operator=(Executor&&) = delete;
    virtual ~Executor() = default;

    /// Appends a coroutine to the queue; does nothing when it is in the queue already.
    void enqueue(ReadyNode& node) noexcept;

    /// Whether the queue is empty.
    [[nodiscard]] bool isIdle() const noexcept { return !m_queue.isLinked(); }

    /// Resumes the coroutine at the head of the queue. Returns false when there is none.
    bool runOne();

    /// Whether a coroutine of this task is being run, now or in an outer event loop.
    [[nodiscard]] bool isRunning(const TaskContext& context) const noexcept;

    /// Runs `function` later, on the owning thread. May be called from any thread.
    virtual void post(std::function<void()> function) = 0;

protected:
    /// Asks for one call of `runOne` later.
    virtual void wake() noexcept = 0;

private:
    struct RunFrame {
        const TaskContext* context;
        RunFrame* outer;
    };

    ListHook m_queue;
    bool m_wakePending = false;
    RunFrame* m_frame = nullptr;
};

}  // namespace quillbar
