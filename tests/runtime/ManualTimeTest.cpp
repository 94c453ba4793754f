// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/manual/ManualTime.h"
#include "tests/runtime/TaskFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ManualTimeTest : TaskFixture {
    // Seconds since the test's start on the wall clock.
    [[nodiscard]] double elapsed() const { return (time.now() - begin).count(); }

    void noteInstant(const std::string& name) { note(fmt::format("{} at {}", name, elapsed())); }

    TaskScope::Handle startPause(const std::string& name, Seconds span) {
        return start([this, name, span]() -> Task<void> {
            co_await pause(span);
            noteInstant(name);
        });
    }

    const TimePoint begin = time.now();
};

TEST_F(ManualTimeTest, beginsWhereItIsTold) {
    EXPECT_EQ(begin, TimePoint(1794657600s));
    EXPECT_EQ(ManualTime(executor, TimePoint(5s)).now(), TimePoint(5s));
}

TEST_F(ManualTimeTest, wakesInOrderEachAtItsInstant) {
    startPause("third", 3s);
    startPause("first", 1s);
    startPause("second", 2500ms);
    EXPECT_EQ(time.sleepingCount(), 3U);
    time.advance(10s);
    EXPECT_THAT(events, ElementsAre("first at 1", "second at 2.5", "third at 3"));
    EXPECT_EQ(elapsed(), 10);
    EXPECT_EQ(time.sleepingCount(), 0U);
}

TEST_F(ManualTimeTest, wakesThoseDueAtOneInstantInTheirOrder) {
    startPause("a", 2s);
    startPause("b", 2s);
    time.advance(1s);
    startPause("c", 1s);
    time.advance(1s);
    EXPECT_THAT(events, ElementsAre("a at 2", "b at 2", "c at 2"));
}

TEST_F(ManualTimeTest, wakesAtItsDueTimeAndNotBefore) {
    startPause("it", 2s);
    time.advance(1999ms);
    EXPECT_THAT(events, IsEmpty());
    time.advance(1ms);
    EXPECT_THAT(events, ElementsAre("it at 2"));
}

TEST_F(ManualTimeTest, wakesASleeperWhoseTimeIsASumOfFractions) {
    startPause("it", 1s);
    for (int i = 0; i < 10; ++i) {
        time.advance(Seconds(0.1));
    }
    EXPECT_EQ(events.size(), 1U);
}

TEST_F(ManualTimeTest, doesNotDriftOverManySteps) {
    for (int i = 0; i < 36'000; ++i) {
        time.advance(Seconds(0.1));
    }
    EXPECT_NEAR(elapsed(), 3600, 1e-6);
}

TEST_F(ManualTimeTest, stepsThroughSleepsThatBeginOnTheWay) {
    start([this]() -> Task<void> {
        for (int i = 0; i < 3; ++i) {
            co_await pause(2s);
            noteInstant("loop");
            scope.spawn([this]() -> Task<void> {
                co_await pause(1s);
                noteInstant("nested");
            });
        }
    });
    time.advance(7s);
    EXPECT_THAT(
        events,
        ElementsAre(
            "loop at 2", "nested at 3", "loop at 4", "nested at 5", "loop at 6", "nested at 7"));
}

TEST_F(ManualTimeTest, runsWhatIsQueuedBeforeTimePasses) {
    scope.spawn([this]() -> Task<void> {
        noteInstant("begun");
        co_await pause(1s);
        noteInstant("woken");
    });
    time.advance(1s);
    EXPECT_THAT(events, ElementsAre("begun at 0", "woken at 1"));
}

TEST_F(ManualTimeTest, wakesASleepOfNoTimeAtTheNextStep) {
    startPause("it", 0s);
    EXPECT_THAT(events, IsEmpty());
    time.advance(0s);
    EXPECT_THAT(events, ElementsAre("it at 0"));
}

TEST_F(ManualTimeTest, wakesAllLateAfterAJump) {
    startPause("second", 2s);
    startPause("first", 1s);
    startPause("later", 100s);
    time.jump(50s);
    EXPECT_THAT(events, ElementsAre("first at 50", "second at 50"));
    time.advance(50s);
    EXPECT_THAT(events, ElementsAre("first at 50", "second at 50", "later at 100"));
}

TEST_F(ManualTimeTest, doesNotMakeUpForTheSleepsMissedInAJump) {
    start([this]() -> Task<void> {
        for (;;) {
            co_await pause(1s);
            noteInstant("tick");
        }
    });
    time.jump(30s);
    EXPECT_THAT(events, ElementsAre("tick at 30"));
    time.advance(1s);
    EXPECT_THAT(events, ElementsAre("tick at 30", "tick at 31"));
}

TEST_F(ManualTimeTest, setsTheWallClockAlone) {
    startPause("it", 10s);
    const Clock clock = time.clock();
    time.setClock(begin + 1h);
    executor.run();
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(clock(), begin + 1h);
    time.advance(9s);
    EXPECT_THAT(events, IsEmpty());
    time.advance(1s);
    EXPECT_THAT(events, ElementsAre("it at 3610"));
    time.setClock(begin - 24h);
    EXPECT_EQ(clock(), begin - 24h);
}

TEST_F(ManualTimeTest, goesOnFromAClockThatIsSetOnTheWay) {
    start([this]() -> Task<void> {
        co_await pause(1s);
        time.setClock(begin + 1000s);
    });
    startPause("it", 3s);
    time.advance(5s);
    EXPECT_THAT(events, ElementsAre("it at 1002"));
    EXPECT_EQ(elapsed(), 1004);
}

TEST_F(ManualTimeTest, hasAMonotonicClockThatGoesOnWhateverTheWallClockIsSetTo) {
    const MonotonicClock clock = time.monotonicClock();
    const Seconds start = clock();
    time.advance(5s);
    time.setClock(begin - 24h);
    EXPECT_EQ(clock() - start, 5s);
    time.jump(1h);
    EXPECT_EQ(clock() - start, 1h + 5s);
    EXPECT_EQ(time.now(), begin - 23h);
}

TEST_F(ManualTimeTest, forgetsACancelledSleep) {
    const auto handle = startPause("it", 1s);
    EXPECT_EQ(time.sleepingCount(), 1U);
    handle.cancel();
    EXPECT_EQ(time.sleepingCount(), 0U);
    time.advance(1s);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ManualTimeTest, remembersEveryLengthAskedFor) {
    startPause("a", 1500ms);
    startPause("b", 3s);
    time.advance(2s);
    startPause("c", 0s);
    EXPECT_THAT(time.requested, ElementsAre(1.5, 3, 0));
}

}  // namespace

}  // namespace quillbar
