// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/QtExecutor.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/qtsupport/SpinUntil.h"

#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

namespace quillbar {

/// The production executor on the test's event loop, and tasks on it.
class EventLoop final {
public:
    [[nodiscard]] Executor& executor() { return *m_executor; }

    TaskScope::Handle spawn(Task<void> task) { return m_scope.spawn(std::move(task)); }

    /// Runs a task to its end; returns its value or throws its error. Throws std::runtime_error
    /// when it does not end.
    template <class T>
    T run(Task<T> task) {
        const auto outcome = std::make_shared<Outcome<T>>();
        m_scope.spawn(settle(std::move(task), outcome));
        if (!spinUntil([&outcome] { return outcome->value || outcome->error; })) {
            throw std::runtime_error("the task does not end");
        }
        if (outcome->error) {
            std::rethrow_exception(outcome->error);
        }
        return std::move(*outcome->value);
    }

    void run(Task<void> task) { run(counted(std::move(task))); }

private:
    template <class T>
    struct Outcome {
        std::optional<T> value;
        std::exception_ptr error;
    };

    template <class T>
    static Task<void> settle(Task<T> task, std::shared_ptr<Outcome<T>> outcome) {
        try {
            T value = co_await std::move(task);
            outcome->value.emplace(std::move(value));
        } catch (...) {
            outcome->error = std::current_exception();
        }
    }

    static Task<int> counted(Task<void> task) {
        co_await std::move(task);
        co_return 1;
    }

    std::unique_ptr<Executor> m_executor = makeQtExecutor();
    // Last: its tasks run on the executor.
    TaskScope m_scope{*m_executor};
};

}  // namespace quillbar
