// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/ListHook.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskContext.h"

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>

namespace quillbar {

/// Owns running root tasks. Make it **the last member** of the object whose `this` its tasks use:
/// it is then destroyed first, and no task uses the rest of the object. Nothing of a task runs
/// later than that; its locals are destroyed in the scope's destructor.
///
/// An error that a root task throws is logged, in the category "Runtime"; `Cancelled` is not.
///
/// Destroying a scope from inside one of its own tasks is a programming error and aborts; post the
/// destruction to the executor instead.
class TaskScope {
    // NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): final, where it is defined
    class Root;

public:
    explicit TaskScope(Executor& executor)
        : m_executor(executor) {}
    TaskScope(const TaskScope&) = delete;
    TaskScope& operator=(const TaskScope&) = delete;
    TaskScope(TaskScope&&) = delete;
    TaskScope& operator=(TaskScope&&) = delete;
    ~TaskScope();

    /// A weak handle to a root task; safe to keep and use after the task has ended or the scope was
    /// destroyed.
    class Handle {
    public:
        Handle() = default;

        /// Cancels the task; does nothing when it has ended.
        void cancel() const;

        [[nodiscard]] bool isRunning() const noexcept { return !m_root.expired(); }

    private:
        friend class TaskScope;
        explicit Handle(std::weak_ptr<Root*> root)
            : m_root(std::move(root)) {}

        std::weak_ptr<Root*> m_root;
    };

    /// Runs a task until it ends, is cancelled or the scope is destroyed. It starts from the
    /// executor's queue, never inline.
    Handle spawn(Task<void> task);

    /// The same for a callable that returns a task, such as a lambda with captures: it is kept
    /// alive beside the task it made.
    template <class Function>
    requires std::is_invocable_r_v<Task<void>, Function&> Handle spawn(Function function) {
        return spawn(invoke(std::move(function)));
    }

    /// Cancels every task.
    void cancelAll() noexcept;

    /// Whether no task runs.
    [[nodiscard]] bool isEmpty() const noexcept { return !m_roots.isLinked(); }

    [[nodiscard]] Executor& executor() const noexcept { return m_executor; }

private:
    struct RootLink;

    template <class Function>
    static Task<void> invoke(Function function) {
        Task<void> task = function();
        co_await std::move(task);
    }

    static void finish(Root* root) noexcept;

    Executor& m_executor;
    ListHook m_roots;
};

}  // namespace quillbar
