// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/manual/ManualExecutor.h"

#include <exception>
#include <optional>
#include <stdexcept>
#include <utility>

namespace quillbar {

/// Runs one task as far as it comes, and keeps what it ends with.
template <class T>
class TaskRun {
public:
    TaskRun(ManualExecutor& executor, Task<T> task)
        : m_executor(executor)
        , m_scope(executor) {
        m_handle = m_scope.spawn(keepOutcome(std::move(task)));
        m_executor.run();
    }

    [[nodiscard]] bool isDone() const { return m_value.has_value() || m_error; }

    /// The task's result; throws what it threw, or std::logic_error while it runs.
    [[nodiscard]] const T& value() const {
        if (m_error) {
            std::rethrow_exception(m_error);
        }
        if (!m_value) {
            throw std::logic_error("the task still runs");
        }
        return *m_value;
    }

    void cancel() {
        m_handle.cancel();
        m_executor.run();
    }

private:
    Task<void> keepOutcome(Task<T> task) {
        try {
            T value = co_await std::move(task);
            m_value = std::move(value);
        } catch (...) {
            m_error = std::current_exception();
        }
    }

    ManualExecutor& m_executor;
    std::optional<T> m_value;
    std::exception_ptr m_error;
    TaskScope::Handle m_handle;
    // Last: its task uses `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
