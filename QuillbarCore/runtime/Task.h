// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/TaskContext.h"

#include <coroutine>
#include <exception>
#include <utility>
#include <variant>

namespace quillbar {

template <class T = void>
class Task;

namespace detail {

struct TaskPromiseBase {
    struct FinalAwaiter {
        [[nodiscard]] bool await_ready() const noexcept { return false; }

        template <class Promise>
        std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> coroutine) noexcept {
            TaskPromiseBase& promise = coroutine.promise();
            if (promise.starting) {
                return std::noop_coroutine();
            }
            if (promise.continuation) {
                return promise.continuation;
            }
            promise.context->done = true;
            return std::noop_coroutine();
        }

        void await_resume() const noexcept {}
    };

    std::suspend_always initial_suspend() noexcept { return {}; }
    FinalAwaiter final_suspend() noexcept { return {}; }

    TaskContext* context = nullptr;
    std::coroutine_handle<> continuation;
    // Set while the awaiting coroutine starts this one. If this one ends without suspending, it
    // returns to its caller instead of resuming it, so that awaits in a loop do not grow the stack.
    bool starting = false;
};

template <class T>
struct TaskPromise : TaskPromiseBase {
    Task<T> get_return_object() noexcept;

    template <class U = T>
    void return_value(U&& result) {
        outcome.template emplace<1>(std::forward<U>(result));
    }

    void unhandled_exception() noexcept { outcome.template emplace<2>(std::current_exception()); }

    T take() {
        if (auto* const error = std::get_if<2>(&outcome)) {
            std::rethrow_exception(*error);
        }
        return std::move(std::get<1>(outcome));
    }

    std::variant<std::monostate, T, std::exception_ptr> outcome;
};

template <>
struct TaskPromise<void> : TaskPromiseBase {
    Task<void> get_return_object() noexcept;

    void return_void() noexcept {}
    void unhandled_exception() noexcept { error = std::current_exception(); }

    void take() {
        if (error) {
            std::rethrow_exception(error);
        }
    }

    std::exception_ptr error;
};

}  // namespace detail

/// A coroutine that computes a T. It is lazy and owned: nothing runs before it is awaited (once, as
/// an rvalue) or spawned in a `TaskScope`, and destroying it destroys its frame.
///
/// A destroyed task runs the destructors of its locals but no catch block: clean-up belongs into
/// destructors. What the coroutine throws comes out of the await; a cancelled task throws
/// `Cancelled` out of its pending await and out of every later one.
///
/// Parameters of a coroutine are taken by value unless the caller's frame outlives it.
template <class T>
class [[nodiscard]] Task {
public:
    using promise_type = detail::TaskPromise<T>;

    Task() = default;
    explicit Task(std::coroutine_handle<promise_type> handle) noexcept
        : m_handle(handle) {}
    Task(Task&& other) noexcept
        : m_handle(std::exchange(other.m_handle, {})) {}
    Task& operator=(Task&& other) noexcept {
        if (this != &other) {
            reset();
            m_handle = std::exchange(other.m_handle, {});
        }
        return *this;
    }
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    ~Task() { reset(); }

    class Awaiter {
    public:
        explicit Awaiter(std::coroutine_handle<promise_type> handle) noexcept
            : m_handle(handle) {}

        [[nodiscard]] bool await_ready() const noexcept { return false; }

        template <class Promise>
        bool await_suspend(std::coroutine_handle<Promise> parent) {
            promise_type& promise = m_handle.promise();
            promise.context = parent.promise().context;
            promise.continuation = parent;
            promise.starting = true;
            m_handle.resume();
            promise.starting = false;
            return !m_handle.done();
        }

        T await_resume() { return m_handle.promise().take(); }

    private:
        std::coroutine_handle<promise_type> m_handle;
    };

    Awaiter operator co_await() && noexcept { return Awaiter{m_handle}; }

    /// The frame, still owned by the task; for the scope that runs it.
    [[nodiscard]] std::coroutine_handle<promise_type> handle() const noexcept { return m_handle; }

private:
    void reset() noexcept {
        if (m_handle) {
            std::exchange(m_handle, {}).destroy();
        }
    }

    std::coroutine_handle<promise_type> m_handle;
};

namespace detail {

template <class T>
Task<T> TaskPromise<T>::get_return_object() noexcept {
    return Task<T>{std::coroutine_handle<TaskPromise>::from_promise(*this)};
}

inline Task<void> TaskPromise<void>::get_return_object() noexcept {
    return Task<void>{std::coroutine_handle<TaskPromise>::from_promise(*this)};
}

}  // namespace detail

/// `Executor& executor = co_await CurrentExecutor();` — the executor of the running task; never
/// suspends.
class CurrentExecutor {
public:
    [[nodiscard]] bool await_ready() const noexcept { return false; }

    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> coroutine) noexcept {
        m_executor = &coroutine.promise().context->executor;
        return false;
    }

    [[nodiscard]] Executor& await_resume() const noexcept { return *m_executor; }

private:
    Executor* m_executor = nullptr;
};

/// `const bool isCancelled = co_await IsCancelled();` — whether the running task has been
/// cancelled; never suspends, and never throws. For code that must know before the next await
/// throws: an operation that completed before the cancellation still delivers its result or its
/// error.
class IsCancelled {
public:
    [[nodiscard]] bool await_ready() const noexcept { return false; }

    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> coroutine) noexcept {
        m_isCancelled = coroutine.promise().context->cancelled;
        return false;
    }

    [[nodiscard]] bool await_resume() const noexcept { return m_isCancelled; }

private:
    bool m_isCancelled = false;
};

}  // namespace quillbar
