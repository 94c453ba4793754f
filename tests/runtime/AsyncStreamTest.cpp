// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/AsyncStream.h"
#include "tests/runtime/TaskFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Stream = AsyncStream<std::string>;
using Source = StreamSource<std::string>;

struct AsyncStreamTest : TaskFixture {
    AsyncStreamTest() {
        auto [made, itsSource] = Stream::make();
        stream = std::move(made);
        source = std::move(itsSource);
    }

    // Notes all that comes, and how it ends.
    Task<void> noteAll(Stream& from) {
        try {
            while (auto value = co_await from.next()) {
                note(*value);
            }
            note("end");
        } catch (const std::exception& error) {
            note(error.what());
        } catch (const Cancelled&) {
            note("cancelled");
        }
    }

    TaskScope::Handle consume() {
        return start([this] { return noteAll(stream); });
    }

    void dropStream() { stream = Stream(); }
    void dropSource() { source.reset(); }

    Stream stream;
    std::optional<Source> source;
};

TEST_F(AsyncStreamTest, deliversInOrderWhatWasPushedBeforeAndAfterTheConsumerCame) {
    source->push("a");
    source->push("b");
    consume();
    EXPECT_THAT(events, ElementsAre("a", "b"));
    source->push("c");
    EXPECT_THAT(events, ElementsAre("a", "b")) << "a push resumes nothing inline";
    source->push("d");
    executor.run();
    EXPECT_THAT(events, ElementsAre("a", "b", "c", "d"));
}

TEST_F(AsyncStreamTest, endsAfterWhatWasPushedBefore) {
    source->push("a");
    source->finish();
    EXPECT_TRUE(source->isTerminated());
    consume();
    EXPECT_THAT(events, ElementsAre("a", "end"));
}

TEST_F(AsyncStreamTest, endsForAConsumerThatWaits) {
    consume();
    source->finish();
    executor.run();
    EXPECT_THAT(events, ElementsAre("end"));
}

TEST_F(AsyncStreamTest, staysEndedHoweverOftenItIsAsked) {
    source->finish();
    consume();
    consume();
    EXPECT_THAT(events, ElementsAre("end", "end"));
}

TEST_F(AsyncStreamTest, failsAfterWhatWasPushedBefore) {
    consume();
    source->push("a");
    source->push("b");
    source->fail(std::runtime_error("reset"));
    executor.run();
    EXPECT_THAT(events, ElementsAre("a", "b", "reset"));
    consume();
    EXPECT_THAT(events, ElementsAre("a", "b", "reset", "reset"));
}

TEST_F(AsyncStreamTest, failsWithAnErrorCaughtElsewhere) {
    source->fail(std::make_exception_ptr(std::out_of_range("caught")));
    consume();
    EXPECT_THAT(events, ElementsAre("caught"));
}

TEST_F(AsyncStreamTest, ignoresWhatComesAfterItsEnd) {
    source->push("a");
    source->finish();
    source->push("b");
    source->fail(std::runtime_error("late"));
    consume();
    EXPECT_THAT(events, ElementsAre("a", "end"));
}

TEST_F(AsyncStreamTest, endsWhenItsLastSourceIsDestroyed) {
    consume();
    std::optional<Source> copy = source;
    dropSource();
    executor.run();
    EXPECT_THAT(events, IsEmpty());
    copy->push("a");
    copy.reset();
    executor.run();
    EXPECT_THAT(events, ElementsAre("a", "end"));
}

TEST_F(AsyncStreamTest, tellsTheProducerThatTheConsumerHasGone) {
    source->onTermination([this] { note("terminated"); });
    EXPECT_FALSE(source->isTerminated());
    dropStream();
    EXPECT_TRUE(source->isTerminated());
    EXPECT_THAT(events, ElementsAre("terminated"));
    source->push("a");
    source->finish();
    dropSource();
    EXPECT_THAT(events, ElementsAre("terminated")) << "once";
}

TEST_F(AsyncStreamTest, tellsTheProducerOfEachEnd) {
    source->onTermination([this] { note("terminated"); });
    source->finish();
    EXPECT_THAT(events, ElementsAre("terminated"));
    source->onTermination([this] { note("at once"); });
    EXPECT_THAT(events, ElementsAre("terminated", "at once"));
}

TEST_F(AsyncStreamTest, tellsTheProducerWhenItsLastSourceIsDestroyed) {
    source->onTermination([this] { note("terminated"); });
    dropSource();
    EXPECT_THAT(events, ElementsAre("terminated"));
}

TEST_F(AsyncStreamTest, isDroppedWithATaskThatIsCancelledOrDestroyed) {
    std::optional<TaskScope> inner(std::in_place, executor);
    source->onTermination([this] { note("terminated"); });
    inner->spawn([this, taken = std::move(stream)]() mutable { return noteAll(taken); });
    executor.run();
    inner.reset();
    EXPECT_THAT(events, ElementsAre("terminated"));
}

// The stream is a local of the coroutine that waits for it, and so destroyed after the wait.
TEST_F(AsyncStreamTest, mayLiveInTheCoroutineThatAwaitsIt) {
    std::optional<TaskScope> inner(std::in_place, executor);
    source->onTermination([this] { note("terminated"); });
    inner->spawn([this]() -> Task<void> {
        Stream local = std::move(stream);
        while (auto value = co_await local.next()) {
            note(*value);
        }
        note("not reached");
    });
    executor.run();
    source->push("a");
    executor.run();
    source->push("queued, and never delivered");
    inner.reset();
    executor.run();
    EXPECT_THAT(events, ElementsAre("a", "terminated"));
}

TEST_F(AsyncStreamTest, endsForAConsumerWhenItIsDestroyedUnderIt) {
    consume();
    dropStream();
    executor.run();
    EXPECT_THAT(events, ElementsAre("end"));
}

TEST_F(AsyncStreamTest, keepsTheStreamWhenAWaitIsCancelled) {
    const auto handle = consume();
    handle.cancel();
    source->push("a");
    executor.run();
    EXPECT_THAT(takeEvents(), ElementsAre("cancelled"));
    EXPECT_FALSE(source->isTerminated());
    consume();
    EXPECT_THAT(events, ElementsAre("a"));
}

TEST_F(AsyncStreamTest, deliversWhatWasPushedBeforeTheConsumerWasCancelled) {
    const auto handle = consume();
    source->push("a");
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("a", "cancelled"));
}

TEST_F(AsyncStreamTest, hasEndedWhenItIsDefaultConstructed) {
    dropStream();
    consume();
    EXPECT_THAT(events, ElementsAre("end"));
}

TEST_F(AsyncStreamTest, callsOnlyTheLastCallback) {
    source->onTermination([this] { note("first"); });
    source->onTermination([this] { note("second"); });
    dropStream();
    EXPECT_THAT(events, ElementsAre("second"));
}

TEST_F(AsyncStreamTest, letsItsCallbackDestroyBothEnds) {
    source->onTermination([this] {
        dropSource();
        dropStream();
        note("both gone");
    });
    source->finish();
    EXPECT_THAT(events, ElementsAre("both gone"));
}

TEST_F(AsyncStreamTest, letsItsCallbackDestroyTheSourceWhenTheConsumerGoes) {
    source->onTermination([this] {
        dropSource();
        note("source gone");
    });
    dropStream();
    EXPECT_THAT(events, ElementsAre("source gone"));
}

TEST_F(AsyncStreamTest, endsItsOldStreamWhenAnotherIsAssigned) {
    source->onTermination([this] { note("first terminated"); });
    auto [other, otherSource] = Stream::make();
    stream = std::move(other);
    EXPECT_THAT(takeEvents(), ElementsAre("first terminated"));
    otherSource.push("a");
    consume();
    EXPECT_THAT(events, ElementsAre("a"));
}

TEST_F(AsyncStreamTest, carriesValuesThatCannotBeCopied) {
    auto [boxes, boxSource] = AsyncStream<std::unique_ptr<int>>::make();
    boxSource.push(std::make_unique<int>(3));
    start([this, taken = std::move(boxes)]() mutable -> Task<void> {
        const auto value = co_await taken.next();
        note(fmt::format("{}", **value));
    });
    EXPECT_THAT(events, ElementsAre("3"));
}

TEST_F(AsyncStreamTest, givesOtherTasksTurnsDuringAFlood) {
    constexpr int kValues = 10'000;
    int received = 0;
    bool isOver = false;
    int turns = 0;
    int longestRun = 0;
    scope.spawn([&]() -> Task<void> {
        while (auto value = co_await stream.next()) {
            ++received;
        }
        isOver = true;
    });
    scope.spawn([&]() -> Task<void> {
        int before = 0;
        while (!isOver) {
            ++turns;
            longestRun = std::max(longestRun, received - before);
            before = received;
            co_await yieldTurn();
        }
    });
    for (int i = 0; i < kValues; ++i) {
        source->push("value");
    }
    source->finish();
    executor.run();
    EXPECT_EQ(received, kValues);
    EXPECT_GE(turns, kValues / 256);
    EXPECT_LE(longestRun, 256);
}

TEST_F(AsyncStreamTest, cancelsAConsumerThatWaitsForItsTurn) {
    for (int i = 0; i < 1000; ++i) {
        source->push("value");
    }
    int received = 0;
    TaskScope::Handle consumer;
    consumer = scope.spawn([&]() -> Task<void> {
        while (auto value = co_await stream.next()) {
            ++received;
        }
    });
    executor.runOne();
    const int beforeTurn = received;
    EXPECT_LT(beforeTurn, 1000);
    consumer.cancel();
    executor.run();
    EXPECT_EQ(received, beforeTurn + 1) << "the one that was there before the cancellation";
    EXPECT_FALSE(consumer.isRunning());
}

}  // namespace

}  // namespace quillbar
