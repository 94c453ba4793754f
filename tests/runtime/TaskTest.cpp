// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Cancelled.h"
#include "QuillbarCore/runtime/Deferred.h"
#include "QuillbarCore/runtime/Task.h"
#include "tests/runtime/TaskFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using TaskTest = TaskFixture;

static_assert(!std::is_base_of_v<std::exception, Cancelled>);
static_assert(!std::is_copy_constructible_v<Task<int>>);

Task<int> noteAndAnswer(TaskFixture& test) {
    test.note("ran");
    co_return 42;
}

Task<std::unique_ptr<std::string>> boxed(std::string text) {
    co_return std::make_unique<std::string>(std::move(text));
}

Task<void> keeping(std::shared_ptr<int> /*kept*/) {
    co_return;
}

// Naps at the innermost of `depth` levels.
Task<void> napping(TaskFixture& test, int depth) {
    const Trace trace(test, fmt::format("level {}", depth));
    if (depth == 0) {
        co_await test.pause(10s);
    } else {
        co_await napping(test, depth - 1);
    }
    test.note(fmt::format("level {} woke", depth));
}

Task<int> failing(TaskFixture& test, int depth) {
    const Trace trace(test, fmt::format("level {}", depth));
    if (depth == 0) {
        throw std::runtime_error("boom");
    }
    const int value = co_await failing(test, depth - 1);
    test.note("not reached");
    co_return value;
}

Task<int> countedDown(TaskFixture& test, int from) {
    if (from == 0) {
        co_await test.pause(1s);
        co_return 0;
    }
    const int below = co_await countedDown(test, from - 1);
    co_return below + 1;
}

// The span of the machine stack over which its calls came.
class StackSpan {
public:
    void mark() {
        const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
        m_lowest = std::min(m_lowest, here);
        m_highest = std::max(m_highest, here);
    }
    [[nodiscard]] std::uintptr_t bytes() const { return m_highest - m_lowest; }

private:
    std::uintptr_t m_lowest = UINTPTR_MAX;
    std::uintptr_t m_highest = 0;
};

Task<int> markedOne(StackSpan& span) {
    span.mark();
    co_return 1;
}

Task<int> markedOneLater(StackSpan& span) {
    co_await yieldTurn();
    span.mark();
    co_return 1;
}

TEST_F(TaskTest, runsNothingBeforeItIsAwaited) {
    {
        const Task<int> task = noteAndAnswer(*this);
        executor.run();
    }
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(TaskTest, givesItsValueToTheTaskThatAwaitsIt) {
    start([this]() -> Task<void> {
        const int value = co_await noteAndAnswer(*this);
        note(fmt::format("got {}", value));
    });
    EXPECT_THAT(events, ElementsAre("ran", "got 42"));
}

TEST_F(TaskTest, runsWhenAwaitedNotWhenMade) {
    start([this]() -> Task<void> {
        Task<int> task = noteAndAnswer(*this);
        note("made");
        const int value = co_await std::move(task);
        note(fmt::format("got {}", value));
    });
    EXPECT_THAT(events, ElementsAre("made", "ran", "got 42"));
}

TEST_F(TaskTest, givesAValueThatCannotBeCopied) {
    start([this]() -> Task<void> {
        const std::unique_ptr<std::string> value = co_await boxed("text");
        note(*value);
    });
    EXPECT_THAT(events, ElementsAre("text"));
}

TEST_F(TaskTest, takesItsParametersWithItWhenNobodyAwaitsIt) {
    const auto kept = std::make_shared<int>(1);
    {
        const Task<void> task = keeping(kept);
        EXPECT_EQ(kept.use_count(), 2);
    }
    EXPECT_EQ(kept.use_count(), 1);
}

TEST_F(TaskTest, movesItsFrameAndDestroysTheOneItHadBefore) {
    const auto first = std::make_shared<int>(1);
    const auto second = std::make_shared<int>(2);
    Task<void> task = keeping(first);
    Task<void> other = keeping(second);
    task = std::move(other);
    EXPECT_EQ(first.use_count(), 1);
    EXPECT_EQ(second.use_count(), 2);
    task = Task<void>();
    EXPECT_EQ(second.use_count(), 1);
}

TEST_F(TaskTest, throwsItsErrorThroughEveryLevelThatDoesNotCatchIt) {
    start([this]() -> Task<void> {
        try {
            co_await failing(*this, 3);
        } catch (const std::runtime_error& error) {
            note(error.what());
        }
    });
    EXPECT_THAT(events, ElementsAre("~level 0", "~level 1", "~level 2", "~level 3", "boom"));
}

TEST_F(TaskTest, throwsAnErrorThatComesAfterASuspension) {
    start([this]() -> Task<void> {
        const auto late = [this]() -> Task<int> {
            co_await pause(1s);
            throw std::runtime_error("late");
        };
        try {
            co_await late();
        } catch (const std::runtime_error& error) {
            note(error.what());
        }
    });
    time.advance(1s);
    EXPECT_THAT(events, ElementsAre("late"));
}

TEST_F(TaskTest, isCancelledAtItsInnermostAwait) {
    const auto handle = start([this]() -> Task<void> {
        try {
            co_await napping(*this, 2);
        } catch (const Cancelled&) {
            note("cancelled");
            throw;
        }
    });
    EXPECT_EQ(time.sleepingCount(), 1U);
    handle.cancel();
    EXPECT_EQ(time.sleepingCount(), 0U);
    EXPECT_THAT(events, IsEmpty()) << "cancelling resumes nothing inline";
    executor.run();
    EXPECT_THAT(events, ElementsAre("~level 0", "~level 1", "~level 2", "cancelled"));
    EXPECT_FALSE(handle.isRunning());
}

TEST_F(TaskTest, failsEveryFurtherAwaitOnceItIsCancelled) {
    const auto handle = start([this]() -> Task<void> {
        for (int attempt = 0; attempt < 3; ++attempt) {
            try {
                co_await pause(10s);
                note("woke");
            } catch (const Cancelled&) {
                note("cancelled");
            }
        }
        note("end");
    });
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("cancelled", "cancelled", "cancelled", "end"));
    EXPECT_EQ(time.sleepingCount(), 0U);
}

TEST_F(TaskTest, failsTheAwaitOfAReadyOperationOnceItIsCancelled) {
    const Deferred<int> settled;
    settled.setValue(1);
    const auto handle = start([&]() -> Task<void> {
        try {
            co_await pause(10s);
        } catch (const Cancelled&) {
            note("cancelled");
        }
        co_await settled.wait();
        note("not reached");
    });
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("cancelled"));
}

TEST_F(TaskTest, receivesAResultFromBeforeItsCancellation) {
    const Deferred<int> result;
    const auto handle = start([&]() -> Task<void> {
        const int value = co_await result.wait();
        note(fmt::format("got {}", value));
        co_await pause(0s);
        note("not reached");
    });
    result.setValue(5);
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("got 5"));
    EXPECT_FALSE(handle.isRunning());
}

TEST_F(TaskTest, passesACancellationThroughACatchOfErrors) {
    const auto handle = start([this]() -> Task<void> {
        for (;;) {
            try {
                co_await pause(1s);
            } catch (const std::exception&) {
                note("retry");
            }
        }
    });
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, IsEmpty());
    EXPECT_FALSE(handle.isRunning());
}

TEST_F(TaskTest, runsDestructorsButNoCatchBlockWhenDestroyed) {
    {
        TaskScope inner(executor);
        inner.spawn([this]() -> Task<void> {
            const Trace trace(*this, "outer");
            try {
                co_await napping(*this, 1);
            } catch (...) {
                note("caught");
                throw;
            }
        });
        executor.run();
        EXPECT_THAT(events, IsEmpty());
    }
    EXPECT_THAT(events, ElementsAre("~level 0", "~level 1", "~outer"));
    EXPECT_EQ(time.sleepingCount(), 0U);
}

TEST_F(TaskTest, knowsItsExecutor) {
    start([this]() -> Task<void> {
        const Executor& current = co_await CurrentExecutor();
        note(&current == &executor ? "this executor" : "another executor");
    });
    EXPECT_THAT(events, ElementsAre("this executor"));
}

TEST_F(TaskTest, knowsThatItIsCancelledWhenItReceivesAnEarlierResult) {
    const Deferred<int> result;
    const auto handle = start([&]() -> Task<void> {
        const bool isCancelledBefore = co_await IsCancelled();
        note(isCancelledBefore ? "cancelled" : "not cancelled");
        co_await result.wait();
        const bool isCancelledAfter = co_await IsCancelled();
        note(isCancelledAfter ? "cancelled" : "not cancelled");
    });
    EXPECT_THAT(events, ElementsAre("not cancelled"));
    result.setValue(5);
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("not cancelled", "cancelled"));
    EXPECT_FALSE(handle.isRunning());
}

TEST_F(TaskTest, isNotCancelledByTheCancellationOfAnother) {
    const Deferred<int> result;
    start([&]() -> Task<void> {
        co_await result.wait();
        const bool isCancelled = co_await IsCancelled();
        note(isCancelled ? "cancelled" : "not cancelled");
    });
    const auto other = start([&]() -> Task<void> { co_await result.wait(); });
    result.setValue(5);
    other.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("not cancelled"));
}

TEST_F(TaskTest, awaitsInALoopOnAStackThatDoesNotGrow) {
    constexpr int kCount = 100'000;
    StackSpan span;
    int sum = 0;
    start([&]() -> Task<void> {
        for (int i = 0; i < kCount; ++i) {
            const int one = co_await markedOne(span);
            sum += one;
        }
    });
    EXPECT_EQ(sum, kCount);
    EXPECT_LT(span.bytes(), 4096U);
}

TEST_F(TaskTest, awaitsWhatSuspendsInALoopOnAStackThatDoesNotGrow) {
    constexpr int kCount = 100'000;
    StackSpan span;
    int sum = 0;
    start([&]() -> Task<void> {
        for (int i = 0; i < kCount; ++i) {
            const int one = co_await markedOneLater(span);
            sum += one;
        }
    });
    EXPECT_EQ(sum, kCount);
    EXPECT_LT(span.bytes(), 4096U);
}

TEST_F(TaskTest, returnsThroughThousandsOfLevels) {
    start([this]() -> Task<void> {
        const int depth = co_await countedDown(*this, 2000);
        note(fmt::format("{} levels", depth));
    });
    time.advance(1s);
    EXPECT_THAT(events, ElementsAre("2000 levels"));
}

TEST_F(TaskTest, isCancelledThroughThousandsOfLevels) {
    const auto handle = start([this]() -> Task<void> {
        co_await countedDown(*this, 2000);
        note("not reached");
    });
    handle.cancel();
    executor.run();
    EXPECT_FALSE(handle.isRunning());
    EXPECT_THAT(events, IsEmpty());
}

}  // namespace

}  // namespace quillbar
