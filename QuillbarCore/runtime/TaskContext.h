// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace quillbar {

class Executor;

/// The innermost await of a suspended chain of tasks, which cancelling has to stop.
class PendingOperation {
public:
    PendingOperation() = default;
    PendingOperation(const PendingOperation&) = delete;
    PendingOperation& operator=(const PendingOperation&) = delete;
    PendingOperation(PendingOperation&&) = delete;
    PendingOperation& operator=(PendingOperation&&) = delete;

    /// Stops the operation and queues the resumption that will throw `Cancelled`.
    virtual void cancel() noexcept = 0;

protected:
    ~PendingOperation() = default;
};

/// What a root task shares with all tasks that it awaits. This chain of tasks has at most one
/// pending innermost await. The context points to it, so cancelling needs no token parameters.
class TaskContext {
public:
    explicit TaskContext(Executor& taskExecutor)
        : executor(taskExecutor) {}
    TaskContext(const TaskContext&) = delete;
    TaskContext& operator=(const TaskContext&) = delete;
    TaskContext(TaskContext&&) = delete;
    TaskContext& operator=(TaskContext&&) = delete;

    /// Cancels the task: its pending await, and every later one, throws `Cancelled`. An operation
    /// that was completed before delivers its result first. Nothing is resumed inline.
    void cancel() noexcept {
        if (cancelled) {
            return;
        }
        cancelled = true;
        if (PendingOperation* const operation = std::exchange(pending, nullptr)) {
            operation->cancel();
        }
    }

    /// Called by the executor, outside of every coroutine, once the root task has ended.
    virtual void finished() noexcept = 0;

    Executor& executor;
    PendingOperation* pending = nullptr;
    bool cancelled = false;
    bool done = false;

protected:
    ~TaskContext() = default;
};

}  // namespace quillbar
