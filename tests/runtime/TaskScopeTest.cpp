// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Cancelled.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/runtime/TaskFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using TaskScopeTest = TaskFixture;

// Runs a function when destroyed.
class Finally {
public:
    explicit Finally(std::function<void()> function)
        : m_function(std::move(function)) {}
    Finally(const Finally&) = delete;
    Finally& operator=(const Finally&) = delete;
    Finally(Finally&&) = delete;
    Finally& operator=(Finally&&) = delete;
    ~Finally() { m_function(); }

private:
    std::function<void()> m_function;
};

Task<void> noting(TaskFixture& test, std::string event) {
    test.note(std::move(event));
    co_return;
}

TEST_F(TaskScopeTest, startsTasksFromTheQueueInTheirOrder) {
    scope.spawn(noting(*this, "first"));
    scope.spawn(noting(*this, "second"));
    EXPECT_THAT(events, IsEmpty());
    executor.run();
    EXPECT_THAT(events, ElementsAre("first", "second"));
}

TEST_F(TaskScopeTest, isEmptyOnceItsTasksHaveEnded) {
    EXPECT_TRUE(scope.isEmpty());
    scope.spawn([this]() -> Task<void> { co_await pause(1s); });
    EXPECT_FALSE(scope.isEmpty());
    executor.run();
    EXPECT_FALSE(scope.isEmpty());
    time.advance(1s);
    EXPECT_TRUE(scope.isEmpty());
    EXPECT_EQ(&scope.executor(), &executor);
}

TEST_F(TaskScopeTest, spawnsFromWithinATaskWithoutRunningItInline) {
    start([this]() -> Task<void> {
        note("outer begins");
        scope.spawn(noting(*this, "inner"));
        note("outer ends");
        co_return;
    });
    EXPECT_THAT(events, ElementsAre("outer begins", "outer ends", "inner"));
}

TEST_F(TaskScopeTest, keepsACallableAliveAsLongAsItsTask) {
    auto text = std::make_shared<std::string>("kept");
    const std::weak_ptr<std::string> watched = text;
    start([this, kept = std::move(text)]() -> Task<void> {
        co_await pause(1s);
        note(*kept);
    });
    EXPECT_FALSE(watched.expired());
    time.advance(1s);
    EXPECT_THAT(events, ElementsAre("kept"));
    EXPECT_TRUE(watched.expired());
}

TEST_F(TaskScopeTest, logsTheErrorThatEndsATask) {
    start([]() -> Task<void> {
        throw std::runtime_error("the moon is down");
        co_return;
    });
    EXPECT_THAT(log.lines(),
                ElementsAre("Runtime|error|a task ended with an error: the moon is down"));
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(TaskScopeTest, logsAnErrorOfAnUnknownType) {
    start([]() -> Task<void> {
        throw 5;
        co_return;
    });
    EXPECT_THAT(log.lines(),
                ElementsAre("Runtime|error|a task ended with an error of an unknown type"));
}

TEST_F(TaskScopeTest, logsTheErrorOfACallableThatMadeNoTask) {
    start([]() -> Task<void> { throw std::runtime_error("no task"); });
    EXPECT_THAT(log.lines(), ElementsAre("Runtime|error|a task ended with an error: no task"));
}

TEST_F(TaskScopeTest, isSilentAboutACancelledTask) {
    const auto handle = start([this]() -> Task<void> { co_await pause(1s); });
    handle.cancel();
    executor.run();
    EXPECT_TRUE(scope.isEmpty());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(TaskScopeTest, runsATaskCancelledBeforeItsStartUpToItsFirstAwait) {
    const auto handle = scope.spawn([this]() -> Task<void> {
        note("begun");
        co_await pause(1s);
        note("not reached");
    });
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("begun"));
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(TaskScopeTest, letsATaskCancelItself) {
    TaskScope::Handle handle;
    handle = scope.spawn([&]() -> Task<void> {
        handle.cancel();
        note("goes on to its next await");
        co_await pause(0s);
        note("not reached");
    });
    executor.run();
    EXPECT_THAT(events, ElementsAre("goes on to its next await"));
}

TEST_F(TaskScopeTest, cancelsOneTaskAlone) {
    const auto first = start([this]() -> Task<void> {
        co_await pause(1s);
        note("first");
    });
    start([this]() -> Task<void> {
        co_await pause(1s);
        note("second");
    });
    first.cancel();
    time.advance(1s);
    EXPECT_THAT(events, ElementsAre("second"));
}

TEST_F(TaskScopeTest, cancelsEveryTask) {
    start([this]() -> Task<void> { co_await pause(1s); });
    start([this]() -> Task<void> { co_await pause(2s); });
    scope.cancelAll();
    EXPECT_EQ(time.sleepingCount(), 0U);
    executor.run();
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(TaskScopeTest, givesHandlesThatOutliveTheirTask) {
    const TaskScope::Handle nothing;
    nothing.cancel();
    EXPECT_FALSE(nothing.isRunning());

    const auto handle = scope.spawn(noting(*this, "ran"));
    EXPECT_TRUE(handle.isRunning());
    executor.run();
    EXPECT_FALSE(handle.isRunning());
    handle.cancel();
}

TEST_F(TaskScopeTest, givesHandlesThatOutliveTheirScope) {
    std::optional<TaskScope> inner(std::in_place, executor);
    const auto handle = inner->spawn([this]() -> Task<void> { co_await pause(1s); });
    executor.run();
    inner.reset();
    EXPECT_FALSE(handle.isRunning());
    handle.cancel();
}

TEST_F(TaskScopeTest, runsNothingOfItsTasksOnceItIsDestroyed) {
    {
        TaskScope inner(executor);
        inner.spawn([this]() -> Task<void> {
            co_await pause(1s);
            note("woke");
        });
        executor.run();
        inner.spawn(noting(*this, "queued"));
    }
    EXPECT_EQ(time.sleepingCount(), 0U);
    EXPECT_TRUE(executor.isIdle());
    time.advance(2s);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(TaskScopeTest, destroysATaskWhoseResumptionIsQueued) {
    std::optional<TaskScope> inner(std::in_place, executor);
    inner->spawn([this]() -> Task<void> {
        const Trace trace(*this, "task");
        co_await yieldTurn();
        note("not reached");
    });
    executor.runOne();
    EXPECT_FALSE(executor.isIdle());
    inner.reset();
    EXPECT_THAT(events, ElementsAre("~task"));
    EXPECT_TRUE(executor.isIdle());
}

TEST_F(TaskScopeTest, mayBeDestroyedByATaskOfAnotherScope) {
    std::optional<TaskScope> inner(std::in_place, executor);
    inner->spawn([this]() -> Task<void> {
        const Trace trace(*this, "task");
        co_await pause(1s);
    });
    start([&]() -> Task<void> {
        inner.reset();
        note("destroyed");
        co_await yieldTurn();
        note("goes on");
    });
    EXPECT_THAT(events, ElementsAre("~task", "destroyed", "goes on"));
}

TEST_F(TaskScopeTest, mayBeDestroyedWithAnOwnerThatOnlyItsTaskHolds) {
    struct Owner {
        explicit Owner(TaskFixture& fixture)
            : trace(fixture, "owner")
            , scope(fixture.executor) {}
        Trace trace;
        TaskScope scope;
    };
    auto owner = std::make_shared<Owner>(*this);
    TaskScope& itsScope = owner->scope;
    itsScope.spawn([this]() -> Task<void> {
        const Trace sibling(*this, "sibling");
        co_await pause(1s);
    });
    itsScope.spawn([this, held = std::move(owner)]() -> Task<void> {
        note("last words");
        co_return;
    });
    executor.run();
    EXPECT_THAT(events, ElementsAre("last words", "~sibling", "~owner"));
}

TEST_F(TaskScopeTest, destroysWhatItsTasksSpawnWhileTheyAreDestroyed) {
    std::optional<TaskScope> inner(std::in_place, executor);
    TaskScope& spawning = *inner;
    spawning.spawn([&]() -> Task<void> {
        const Finally finally([&] { spawning.spawn(noting(*this, "not reached")); });
        co_await pause(1s);
    });
    executor.run();
    inner.reset();
    executor.run();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(TaskScopeTest, letsDestroyedTasksCancelThemselvesAndEachOther) {
    std::optional<TaskScope> inner(std::in_place, executor);
    TaskScope::Handle first;
    TaskScope::Handle second;
    const auto cancelling = [&]() -> Task<void> {
        const Finally finally([&] {
            first.cancel();
            second.cancel();
            note("cancelled both");
        });
        co_await pause(1s);
        note("not reached");
    };
    first = inner->spawn(cancelling);
    second = inner->spawn(cancelling);
    executor.run();
    inner.reset();
    executor.run();
    EXPECT_THAT(events, ElementsAre("cancelled both", "cancelled both"));
}

// The statement of a death test runs in a process of its own.
class TaskScopeDeathTest : public ::testing::Test {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

constexpr const char* kComplaint =
    "quillbar: a TaskScope was destroyed from inside one of its own tasks";

void destroyAScopeInItsOwnTask() {
    ManualExecutor executor;
    std::optional<TaskScope> scope(std::in_place, executor);
    scope->spawn([&]() -> Task<void> {
        scope.reset();
        co_return;
    });
    executor.run();
}

void destroyAScopeInALoopNestedInItsOwnTask() {
    ManualExecutor executor;
    TaskScope other(executor);
    std::optional<TaskScope> scope(std::in_place, executor);
    scope->spawn([&]() -> Task<void> {
        executor.run();
        co_return;
    });
    other.spawn([&]() -> Task<void> {
        scope.reset();
        co_return;
    });
    executor.run();
}

TEST_F(TaskScopeDeathTest, abortsWhenDestroyedFromInsideItsOwnTask) {
    EXPECT_EXIT(destroyAScopeInItsOwnTask(), ::testing::KilledBySignal(SIGABRT), kComplaint);
}

TEST_F(TaskScopeDeathTest, abortsWhenDestroyedFromALoopNestedInItsOwnTask) {
    EXPECT_EXIT(
        destroyAScopeInALoopNestedInItsOwnTask(), ::testing::KilledBySignal(SIGABRT), kComplaint);
}

TEST_F(TaskScopeTest, mayBeDestroyedByAFunctionThatItsTaskPosts) {
    std::optional<TaskScope> inner(std::in_place, executor);
    inner->spawn([&]() -> Task<void> {
        const Trace trace(*this, "task");
        executor.post([&] { inner.reset(); });
        co_await pause(1s);
    });
    executor.run();
    EXPECT_FALSE(inner.has_value());
    EXPECT_THAT(events, ElementsAre("~task"));
}

}  // namespace

}  // namespace quillbar
