// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Cancelled.h"
#include "QuillbarCore/runtime/Deferred.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"

#include <exception>
#include <functional>
#include <optional>
#include <utility>

namespace quillbar {

/// One load for many callers: a caller that comes while it runs gets the same result or error. The
/// load belongs to this object, so it goes on when a caller is cancelled. Destroying the object
/// ends the load, and every wait for it with `Cancelled`.
template <class T>
class SharedLoad {
public:
    SharedLoad(Executor& executor, std::function<Task<T>()> load)
        : m_load(std::move(load))
        , m_scope(executor) {}
    SharedLoad(const SharedLoad&) = delete;
    SharedLoad& operator=(const SharedLoad&) = delete;
    SharedLoad(SharedLoad&&) = delete;
    SharedLoad& operator=(SharedLoad&&) = delete;
    ~SharedLoad() {
        if (m_current) {
            m_current->setError(std::make_exception_ptr(Cancelled{}));
        }
    }

    /// The result of the load that is running, or else of one that this call starts. Throws the
    /// load's error, or `Cancelled`.
    Task<T> get() {
        if (!m_current) {
            m_current.emplace();
            m_scope.spawn(run(*m_current));
        }
        // Do not use this object after the wait: it may be destroyed by then.
        const Deferred<T> result = *m_current;
        co_return co_await result.wait();
    }

    [[nodiscard]] bool isInFlight() const noexcept { return m_current.has_value(); }

private:
    Task<void> run(Deferred<T> result) {
        try {
            T value = co_await m_load();
            m_current.reset();
            result.setValue(std::move(value));
        } catch (...) {
            m_current.reset();
            result.setError(std::current_exception());
        }
    }

    std::function<Task<T>()> m_load;
    std::optional<Deferred<T>> m_current;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
