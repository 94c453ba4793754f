// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Await.h"
#include "tests/runtime/TaskFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

// An operation that does what the test says and notes each call.
struct AwaitTest : TaskFixture {
    class Operation {
    public:
        explicit Operation(AwaitTest& test)
            : m_test(test) {}

        [[nodiscard]] bool ready() {
            m_test.note("ready");
            return m_test.isReady;
        }
        void start(Completion done) {
            m_test.note("start");
            m_test.completion = done;
            if (m_test.isDoneInStart) {
                done();
            }
            if (m_test.startFails) {
                throw std::runtime_error("start failed");
            }
        }
        void stop() noexcept { m_test.note("stop"); }
        int result() {
            m_test.note("result");
            if (m_test.resultFails) {
                throw std::runtime_error("result failed");
            }
            return 7;
        }

    private:
        AwaitTest& m_test;
    };

    TaskScope::Handle startAwaiting(TaskScope& inScope) {
        auto handle = inScope.spawn([this]() -> Task<void> {
            try {
                const int value = co_await Await<Operation>(std::in_place, *this);
                note(fmt::format("got {}", value));
            } catch (const std::exception& error) {
                note(error.what());
            } catch (const Cancelled&) {
                note("cancelled");
            }
        });
        executor.run();
        return handle;
    }

    bool isReady = false;
    bool isDoneInStart = false;
    bool startFails = false;
    bool resultFails = false;
    Completion completion;
};

TEST_F(AwaitTest, startsTheOperationAndGivesItsResult) {
    startAwaiting(scope);
    EXPECT_THAT(takeEvents(), ElementsAre("ready", "start"));
    completion();
    EXPECT_THAT(events, ElementsAre()) << "being done resumes nothing inline";
    executor.run();
    EXPECT_THAT(events, ElementsAre("result", "got 7"));
}

TEST_F(AwaitTest, doesNotStartAnOperationThatIsReady) {
    isReady = true;
    startAwaiting(scope);
    EXPECT_THAT(events, ElementsAre("ready", "result", "got 7"));
}

TEST_F(AwaitTest, mayBeDoneInsideStart) {
    isDoneInStart = true;
    startAwaiting(scope);
    EXPECT_THAT(events, ElementsAre("ready", "start", "result", "got 7"));
}

TEST_F(AwaitTest, completesOnceHoweverOftenItIsTold) {
    startAwaiting(scope);
    completion();
    completion();
    executor.run();
    EXPECT_THAT(events, ElementsAre("ready", "start", "result", "got 7"));
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(AwaitTest, throwsWhatTheResultThrows) {
    resultFails = true;
    startAwaiting(scope);
    completion();
    executor.run();
    EXPECT_THAT(events, ElementsAre("ready", "start", "result", "result failed"));
}

TEST_F(AwaitTest, doesNotStopAnOperationWhoseStartThrows) {
    startFails = true;
    startAwaiting(scope);
    EXPECT_THAT(events, ElementsAre("ready", "start", "start failed"));
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(AwaitTest, forgetsAnOperationThatCouldNotStart) {
    startFails = true;
    const auto handle = start([this]() -> Task<void> {
        try {
            co_await Await<Operation>(std::in_place, *this);
        } catch (const std::exception&) {
            startFails = false;
        }
        co_await Await<Operation>(std::in_place, *this);
    });
    EXPECT_THAT(takeEvents(), ElementsAre("ready", "start", "ready", "start"));
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("stop"));
}

TEST_F(AwaitTest, throwsWhatStartThrowsAfterCompleting) {
    isDoneInStart = true;
    startFails = true;
    startAwaiting(scope);
    EXPECT_THAT(events, ElementsAre("ready", "start", "start failed"));
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(AwaitTest, isStoppedOnceWhenCancelled) {
    const auto handle = startAwaiting(scope);
    (void)takeEvents();
    handle.cancel();
    EXPECT_THAT(events, ElementsAre("stop"));
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("stop", "cancelled"));
}

TEST_F(AwaitTest, isStoppedOnceWhenDestroyedWhileWaiting) {
    {
        TaskScope inner(executor);
        startAwaiting(inner);
        (void)takeEvents();
    }
    EXPECT_THAT(events, ElementsAre("stop"));
}

TEST_F(AwaitTest, isNotStoppedWhenDestroyedBetweenDoneAndResumed) {
    {
        TaskScope inner(executor);
        startAwaiting(inner);
        (void)takeEvents();
        completion();
    }
    EXPECT_TRUE(executor.isIdle()) << "the resumption goes with what it would resume";
    executor.run();
    EXPECT_THAT(events, ElementsAre());
}

TEST_F(AwaitTest, doesNotUseTheOperationOfACancelledTask) {
    const auto handle = scope.spawn([this]() -> Task<void> {
        note("begun");
        co_await Await<Operation>(std::in_place, *this);
    });
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("begun"));
}

TEST_F(AwaitTest, tellsTheOperationItsExecutor) {
    startAwaiting(scope);
    EXPECT_EQ(&completion.executor(), &executor);
}

}  // namespace

}  // namespace quillbar
