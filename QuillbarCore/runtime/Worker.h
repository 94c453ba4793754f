// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Await.h"

#include <exception>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

namespace quillbar {

/// Runs jobs on other threads, for decoding large bodies. Destroy it before the executors to which
/// its jobs report. Its destructor waits for the running jobs.
class Worker {
public:
    Worker() = default;
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    Worker(Worker&&) = delete;
    Worker& operator=(Worker&&) = delete;
    virtual ~Worker() = default;

    /// Runs `job` once, later or at once, on any thread. The job must not throw.
    virtual void run(std::function<void()> job) = 0;
};

/// The manual twin of a worker: runs each job at once, on the caller's thread.
class InlineWorker final : public Worker {
public:
    void run(std::function<void()> job) override { job(); }
};

/// The operation behind `offload`.
template <class Function>
class OffloadOperation {
    using Result = std::invoke_result_t<Function&>;

    struct Shared {
        explicit Shared(Function toRun)
            : function(std::move(toRun)) {}
        Function function;
        std::variant<std::monostate, Result, std::exception_ptr> outcome;
        // Read and written on the awaiting thread alone.
        bool isAwaited = true;
    };

public:
    OffloadOperation(Worker& worker, Function function)
        : m_worker(worker)
        , m_shared(std::make_shared<Shared>(std::move(function))) {}

    [[nodiscard]] bool ready() const noexcept { return false; }

    void start(Completion done) {
        m_worker.run([shared = m_shared, done, executor = &done.executor()] {
            try {
                shared->outcome.template emplace<1>(shared->function());
            } catch (...) {
                shared->outcome.template emplace<2>(std::current_exception());
            }
            executor->post([shared, done] {
                if (shared->isAwaited) {
                    done();
                }
            });
        });
    }

    void stop() noexcept { m_shared->isAwaited = false; }

    Result result() {
        if (auto* const error = std::get_if<2>(&m_shared->outcome)) {
            std::rethrow_exception(*error);
        }
        return std::move(std::get<1>(m_shared->outcome));
    }

private:
    Worker& m_worker;
    std::shared_ptr<Shared> m_shared;
};

/// Runs `function` on the worker and delivers its result, or what it throws, on the awaiting task's
/// thread. Cancelling abandons the result. The function must hold values only, never `this`.
template <class Function>
[[nodiscard]] Await<OffloadOperation<Function>> offload(Worker& worker, Function function) {
    return Await<OffloadOperation<Function>>{std::in_place, worker, std::move(function)};
}

}  // namespace quillbar
