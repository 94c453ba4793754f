// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace quillbar {

class Executor;

/// The innermost await of a suspended chain of tasks, as cancellation sees it.
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

/// What a root task and all that it awaits share. The chain root, child, … has at most one pending
/// innermost await, and the context points to it: so cancelling needs no token parameters.
class TaskContext {
public:
    explicit TaskContext(Executor& taskExecutor)
        : executor(taskExecutor) {}
    TaskContext(const TaskContext&) = delete;
    TaskContext& operator=(const TaskContext&) = delete;
    TaskContext(TaskContext&&) = delete;
    TaskContext& operator=(TaskContext&&) = delete;

    /// Cancels the task: its pending await, and every later one, throws `Cancelled`. An operation
    /// that completed before delivers its result first. Nothing is resumed inline.
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
