// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Cancelled.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/TaskContext.h"

#include <coroutine>
#include <utility>

namespace quillbar {

/// The part of every `Await` that does not depend on its operation: the suspended coroutine and its
/// state.
class AwaitBase : protected ReadyNode,
                  protected PendingOperation {
public:
    void complete() noexcept {
        if (m_completed) {
            return;
        }
        m_completed = true;
        forget();
        context->executor.enqueue(*this);
    }

    [[nodiscard]] Executor& executor() const noexcept { return context->executor; }

protected:
    AwaitBase() = default;
    ~AwaitBase() = default;

    // From here on, cancelling the task does not reach this operation.
    void forget() noexcept {
        if (context->pending == this) {
            context->pending = nullptr;
        }
    }

    bool m_started = false;
    bool m_completed = false;
    bool m_cancelled = false;
};

/// What an operation calls when it is done; a second call does nothing. The waiting coroutine is
/// queued, not resumed. Valid until the operation's `stop` or its destruction.
class Completion {
public:
    Completion() = default;
    explicit Completion(AwaitBase* await)
        : m_await(await) {}

    void operator()() const noexcept { m_await->complete(); }

    /// The executor on which the waiting coroutine runs.
    [[nodiscard]] Executor& executor() const noexcept { return m_await->executor(); }

private:
    AwaitBase* m_await = nullptr;
};

/// Awaits an operation, which is any type with
///
///     bool ready();                 // done already, so that there is nothing to wait for
///     void start(Completion done);  // subscribe and call done() later; inside start() is fine too
///     void stop() noexcept;         // unsubscribe: done() is not called afterwards. Called once,
///                                   // only when cancelled or destroyed while waiting
///     R result();                   // the value, or throw
///
/// It throws what `start` and `result` throw, and `Cancelled` when the task is or gets cancelled.
/// An operation whose `start` throws must not keep its `Completion`, and is not stopped. An `Await`
/// lives in the awaiting coroutine's frame and never moves.
template <class Operation>
class [[nodiscard]] Await final : AwaitBase {
public:
    template <class... Arguments>
    explicit Await(std::in_place_t /*tag*/, Arguments&&... arguments)
        : m_operation(std::forward<Arguments>(arguments)...) {}
    Await(const Await&) = delete;
    Await& operator=(const Await&) = delete;
    Await(Await&&) = delete;
    Await& operator=(Await&&) = delete;

    ~Await() {
        if (m_started && !m_completed) {
            forget();
            m_operation.stop();
        }
    }

    [[nodiscard]] bool await_ready() const noexcept { return false; }

    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> coroutine) {
        context = coroutine.promise().context;
        handle = coroutine;
        if (context->cancelled) {
            m_cancelled = true;
            return false;
        }
        if (m_operation.ready()) {
            return false;
        }
        context->pending = this;
        m_started = true;
        try {
            m_operation.start(Completion{this});
        } catch (...) {
            // Nothing was started, so there is nothing to stop or cancel.
            m_started = false;
            forget();
            throw;
        }
        return true;
    }

    decltype(auto) await_resume() {
        if (m_cancelled) {
            throw Cancelled{};
        }
        return m_operation.result();
    }

private:
    void cancel() noexcept override {
        m_cancelled = true;
        m_operation.stop();
        complete();
    }

    Operation m_operation;
};

}  // namespace quillbar
