// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Await.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// What every test of tasks stands on: an executor and a time that move when told to, a scope, and
/// a list of what happened.
struct TaskFixture : ::testing::Test {
    void note(std::string event) { events.push_back(std::move(event)); }

    [[nodiscard]] std::vector<std::string> takeEvents() { return std::exchange(events, {}); }

    /// Spawns a task and runs until nothing more happens by itself.
    template <class Function>
    TaskScope::Handle start(Function function) {
        auto handle = scope.spawn(std::move(function));
        executor.run();
        return handle;
    }

    std::vector<std::string> events;
    CapturedLog log;
    ManualExecutor executor;
    ManualTime time{executor};
    Sleeper pause = time.sleeper();
    TaskScope scope{executor};
};

/// Notes "~name" when it is destroyed.
class Trace {
public:
    Trace(TaskFixture& fixture, std::string name)
        : m_fixture(fixture)
        , m_name(std::move(name)) {}
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;
    Trace(Trace&&) = delete;
    Trace& operator=(Trace&&) = delete;
    ~Trace() { m_fixture.note("~" + m_name); }

private:
    TaskFixture& m_fixture;
    std::string m_name;
};

/// Goes to the end of the executor's queue.
class YieldOperation {
public:
    [[nodiscard]] bool ready() const noexcept { return false; }
    void start(Completion done) const noexcept { done(); }
    void stop() const noexcept {}
    void result() const noexcept {}
};

[[nodiscard]] inline Await<YieldOperation> yieldTurn() {
    return Await<YieldOperation>{std::in_place};
}

}  // namespace quillbar
