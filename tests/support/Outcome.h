// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Cancelled.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace quillbar {

/// What became of a task: nothing yet, a value, an error or a cancellation.
template <class T>
struct Outcome {
    std::optional<T> value;
    /// The `what()` of the error.
    std::optional<std::string> error;
    bool isCancelled = false;

    [[nodiscard]] bool isPending() const { return !value && !error && !isCancelled; }
};

template <class T>
Task<void> recordOutcome(Task<T> task, std::shared_ptr<Outcome<T>> outcome) {
    try {
        T value = co_await std::move(task);
        outcome->value = std::move(value);
    } catch (const std::exception& error) {
        outcome->error = error.what();
    } catch (const Cancelled&) {
        outcome->isCancelled = true;
    }
}

/// Spawns a task and tells what becomes of it. `handle` is given the task's handle, if not null.
template <class T>
std::shared_ptr<Outcome<T>> spawnRecorded(TaskScope& scope,
                                          Task<T> task,
                                          TaskScope::Handle* handle = nullptr) {
    auto outcome = std::make_shared<Outcome<T>>();
    const TaskScope::Handle spawned = scope.spawn(recordOutcome(std::move(task), outcome));
    if (handle != nullptr) {
        *handle = spawned;
    }
    return outcome;
}

}  // namespace quillbar
