// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Executor.h"
#include "tests/runtime/TaskFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace quillbar {

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Counts how often it is asked to run.
class WakeCountingExecutor final : public Executor {
public:
    void post(std::function<void()> function) override { function(); }

    int wakes = 0;

private:
    void wake() noexcept override { ++wakes; }
};

struct WakingTest : ::testing::Test {
    // Takes this many turns.
    void spawnTurns(int count) {
        scope.spawn([count]() -> Task<void> {
            for (int i = 1; i < count; ++i) {
                co_await yieldTurn();
            }
        });
    }

    WakeCountingExecutor executor;
    TaskScope scope{executor};
};

TEST_F(WakingTest, asksToRunOnceForAllThatIsQueuedBeforeItRuns) {
    EXPECT_EQ(executor.wakes, 0);
    spawnTurns(1);
    spawnTurns(1);
    EXPECT_EQ(executor.wakes, 1);
}

TEST_F(WakingTest, asksAgainBeforeItResumesWhileMoreIsQueued) {
    int wakesInside = 0;
    scope.spawn([&]() -> Task<void> {
        wakesInside = executor.wakes;
        co_return;
    });
    spawnTurns(1);
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(wakesInside, 2);
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(executor.wakes, 2) << "nothing is left to run";
}

TEST_F(WakingTest, asksOnceForWhatIsQueuedWhileMoreWaits) {
    scope.spawn([this]() -> Task<void> {
        spawnTurns(1);
        co_return;
    });
    spawnTurns(1);
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(executor.wakes, 2);
}

TEST_F(WakingTest, asksAgainForWhatIsQueuedWhileItRuns) {
    spawnTurns(3);
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(executor.wakes, 2);
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(executor.wakes, 3);
    EXPECT_TRUE(executor.runOne());
    EXPECT_EQ(executor.wakes, 3);
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(WakingTest, asksAgainAfterARunThatFoundNothing) {
    {
        TaskScope inner(executor);
        inner.spawn([]() -> Task<void> { co_return; });
    }
    EXPECT_FALSE(executor.runOne());
    spawnTurns(1);
    EXPECT_EQ(executor.wakes, 2);
}

using ExecutorTest = TaskFixture;

TEST_F(ExecutorTest, isIdleWithNothingQueued) {
    EXPECT_TRUE(executor.isIdle());
    EXPECT_FALSE(executor.runOne());
    scope.spawn([]() -> Task<void> { co_return; });
    EXPECT_FALSE(executor.isIdle());
    EXPECT_TRUE(executor.runOne());
    EXPECT_TRUE(executor.isIdle());
}

TEST_F(ExecutorTest, resumesInTurns) {
    const auto twice = [this](std::string name) -> Task<void> {
        note(name + "1");
        co_await yieldTurn();
        note(name + "2");
    };
    scope.spawn(twice("a"));
    scope.spawn(twice("b"));
    executor.run();
    EXPECT_THAT(events, ElementsAre("a1", "b1", "a2", "b2"));
}

TEST_F(ExecutorTest, queuesACoroutineOnce) {
    ReadyNode node;
    executor.enqueue(node);
    executor.enqueue(node);
    node.unlink();
    EXPECT_TRUE(executor.isIdle());
}

TEST_F(ExecutorTest, runsANestedLoopInsideATask) {
    start([this]() -> Task<void> {
        scope.spawn([this]() -> Task<void> {
            note("nested");
            co_return;
        });
        note("in");
        executor.run();
        note("out");
        co_return;
    });
    EXPECT_THAT(events, ElementsAre("in", "nested", "out"));
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(ExecutorTest, postsInOrderAndNeverInline) {
    executor.post([this] {
        note("first");
        executor.post([this] { note("third"); });
    });
    executor.post([this] { note("second"); });
    EXPECT_THAT(events, IsEmpty());
    executor.run();
    EXPECT_THAT(events, ElementsAre("first", "second", "third"));
}

TEST_F(ExecutorTest, takesPostsOfOtherThreadsAndRunsThemOnItsOwn) {
    constexpr std::size_t kThreads = 4;
    constexpr std::size_t kPosts = 500;
    std::vector<std::thread::id> ranOn;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (std::size_t post = 0; post < kPosts; ++post) {
                executor.post([&] { ranOn.push_back(std::this_thread::get_id()); });
            }
        });
    }
    while (ranOn.size() < kThreads * kPosts) {
        executor.run();
        std::this_thread::yield();
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(ranOn.size(), kThreads * kPosts);
    EXPECT_THAT(ranOn, Each(std::this_thread::get_id()));
}

}  // namespace

}  // namespace quillbar
