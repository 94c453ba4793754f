// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/manual/ManualExecutor.h"

#include <exception>
#include <optional>
#include <utility>

namespace quillbar {

namespace detail {

template <class T>
Task<void> keep(Task<T> task, std::optional<T>& result, std::exception_ptr& error) {
    try {
        result = co_await std::move(task);
    } catch (const std::exception&) {
        error = std::current_exception();
    }
}

}  // namespace detail

/// The result of a task that waits for nothing but the executor; throws what it throws.
template <class T>
T completed(ManualExecutor& executor, Task<T> task) {
    std::optional<T> result;
    std::exception_ptr error;
    {
        TaskScope scope(executor);
        scope.spawn(detail::keep(std::move(task), result, error));
        executor.run();
    }
    if (error) {
        std::rethrow_exception(error);
    }
    return std::move(result).value();
}

}  // namespace quillbar
