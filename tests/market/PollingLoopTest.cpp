// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/PollingLoop.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Polls every 30 s, and gives up 60 s after the last demand. Times are seconds since the start.
class PollingLoopTest : public ::testing::Test {
protected:
    PollingLoopTest() { rebuild(); }

    void rebuild() { rebuild(m_time.sleeper()); }

    void rebuild(Sleeper sleeper) {
        m_loop = std::make_unique<PollingLoop>(
            m_executor,
            m_time.clock(),
            std::move(sleeper),
            PollingLoop::Timing{.interval = Seconds(30), .idleTimeout = Seconds(60)},
            [this] { return refresh(); });
    }

    Task<void> refresh() {
        m_refreshes.push_back((m_time.now() - m_start).count());
        if (m_refreshLasts > Seconds(0)) {
            Task<void> wait = m_work.sleeper()(m_refreshLasts);
            co_await std::move(wait);
        }
        ++m_completed;
    }

    void lookEvery(double seconds, double until) {
        for (double at = 0; at < until; at += seconds) {
            m_loop->recordDemand();
            m_time.advance(Seconds(seconds));
        }
    }

    /// Acts when this sleep ends: before the loop does, when both end at once and this one began
    /// first.
    template <class Action>
    void afterSleep(ManualTime& time, double seconds, Action action) {
        m_scope.spawn([&time, seconds, action]() -> Task<void> {
            Task<void> sleep = time.sleeper()(Seconds(seconds));
            co_await std::move(sleep);
            action();
        });
        m_executor.run();
    }

    ManualExecutor m_executor;
    ManualTime m_time{m_executor};
    // Apart, so that the loop's own sleeps can be counted.
    ManualTime m_work{m_executor};
    TimePoint m_start = m_time.now();
    Seconds m_refreshLasts{};
    std::vector<double> m_refreshes;
    int m_completed = 0;
    std::unique_ptr<PollingLoop> m_loop;
    // Last: its tasks use the loop.
    TaskScope m_scope{m_executor};
};

TEST_F(PollingLoopTest, doesNothingBeforeItIsStarted) {
    m_time.advance(Seconds(1000));
    EXPECT_TRUE(m_refreshes.empty());
    EXPECT_FALSE(m_loop->isRunning());
}

TEST_F(PollingLoopTest, refreshesAtOnceAndThenAtEachInterval) {
    m_loop->start();
    lookEvery(5, 95);
    EXPECT_THAT(m_refreshes, ElementsAre(0, 30, 60, 90));
    EXPECT_TRUE(m_loop->isRunning());
}

TEST_F(PollingLoopTest, keepsGoingUntilMoreThanTheIdleTimeHasPassed) {
    m_loop->start();
    // The waking at 60 s finds the last demand exactly 60 s ago; the one at 90 s finds it gone.
    m_time.advance(Seconds(60));
    EXPECT_THAT(m_refreshes, ElementsAre(0, 30, 60));
    EXPECT_TRUE(m_loop->isRunning());
    m_time.advance(Seconds(30));
    EXPECT_THAT(m_refreshes, ElementsAre(0, 30, 60));
    EXPECT_FALSE(m_loop->isRunning());
    EXPECT_EQ(m_time.sleepingCount(), 0U);
}

TEST_F(PollingLoopTest, stopsAfterTheFirstSleepThatEndsTooLongAfterTheLastLook) {
    m_loop->start();
    lookEvery(5, 40);
    m_time.advance(Seconds(1000));
    // Last looked at 35 s: 90 s is still within 60 s of it, 120 s is not.
    EXPECT_THAT(m_refreshes, ElementsAre(0, 30, 60, 90));
    EXPECT_FALSE(m_loop->isRunning());
}

TEST_F(PollingLoopTest, stopsThoughTheClockIsSetBack) {
    m_loop->start();
    m_time.advance(Seconds(15));
    m_time.setClock(m_start - Seconds(8 * 3600));
    m_time.advance(Seconds(30 + 60));
    EXPECT_TRUE(m_loop->isRunning());
    m_time.advance(Seconds(30));
    EXPECT_FALSE(m_loop->isRunning());
}

TEST_F(PollingLoopTest, keepsGoingForThoseWhoLookThoughTheClockIsSetBack) {
    m_loop->start();
    lookEvery(5, 25);
    m_time.setClock(m_start - Seconds(8 * 3600));
    m_time.advance(Seconds(5));
    lookEvery(5, 300);
    EXPECT_TRUE(m_loop->isRunning());
}

TEST_F(PollingLoopTest, startsAgainAfterItStoppedItself) {
    m_loop->start();
    m_time.advance(Seconds(100));
    ASSERT_FALSE(m_loop->isRunning());
    m_loop->start();
    m_executor.run();
    EXPECT_THAT(m_refreshes, ElementsAre(0, 30, 60, 100));
}

TEST_F(PollingLoopTest, countsAStartAsDemandOnlyWhenItStarts) {
    m_loop->start();
    m_time.advance(Seconds(59));
    m_loop->start();
    m_time.advance(Seconds(31));
    EXPECT_FALSE(m_loop->isRunning());
}

TEST_F(PollingLoopTest, neverRunsTwice) {
    m_loop->start();
    m_loop->start();
    m_executor.run();
    EXPECT_THAT(m_refreshes, ElementsAre(0));
    EXPECT_EQ(m_time.sleepingCount(), 1U);
}

TEST_F(PollingLoopTest, thatIsStoppedSleepsNoMore) {
    m_loop->start();
    m_executor.run();
    m_loop->stop();
    EXPECT_FALSE(m_loop->isRunning());
    m_time.advance(Seconds(100));
    EXPECT_THAT(m_refreshes, ElementsAre(0));
    EXPECT_EQ(m_time.sleepingCount(), 0U);
}

TEST_F(PollingLoopTest, thatIsStoppedBeforeItBeganRefreshesNothing) {
    m_loop->start();
    m_loop->stop();
    m_executor.run();
    EXPECT_THAT(m_refreshes, IsEmpty());
    EXPECT_THAT(m_time.requested, IsEmpty());
}

TEST_F(PollingLoopTest, thatIsReplacedBeforeItBeganLeavesTheRefreshToItsSuccessor) {
    m_loop->start();
    m_loop->stop();
    m_loop->start();
    m_executor.run();
    EXPECT_THAT(m_refreshes, ElementsAre(0));
    EXPECT_EQ(m_time.sleepingCount(), 1U);
}

TEST_F(PollingLoopTest, thatIsStoppedAsItsRefreshEndsDoesNotSleep) {
    m_refreshLasts = Seconds(10);
    afterSleep(m_work, 10, [this] { m_loop->stop(); });
    m_loop->start();
    m_executor.run();
    m_work.jump(Seconds(10));
    EXPECT_EQ(m_completed, 1);
    EXPECT_THAT(m_time.requested, IsEmpty());
}

TEST_F(PollingLoopTest, thatIsStoppedAsItsSleepEndsRefreshesNoMore) {
    afterSleep(m_time, 30, [this] { m_loop->stop(); });
    m_loop->start();
    m_executor.run();
    m_time.jump(Seconds(30));
    EXPECT_THAT(m_refreshes, ElementsAre(0));
    EXPECT_FALSE(m_loop->isRunning());
}

TEST_F(PollingLoopTest, thatIsReplacedAsItsSleepEndsLeavesTheRefreshToItsSuccessor) {
    afterSleep(m_time, 30, [this] {
        m_loop->stop();
        m_loop->start();
    });
    m_loop->start();
    m_executor.run();
    m_time.jump(Seconds(30));
    EXPECT_THAT(m_refreshes, ElementsAre(0, 30));
    EXPECT_TRUE(m_loop->isRunning());
    EXPECT_EQ(m_time.sleepingCount(), 1U);
}

TEST_F(PollingLoopTest, endsWhenItsSleepFailsAndCanBeStartedAgain) {
    rebuild([](Seconds /*span*/) -> Task<void> {
        throw std::runtime_error("no timer");
        co_return;
    });
    m_loop->start();
    m_executor.run();
    EXPECT_FALSE(m_loop->isRunning());
    m_loop->start();
    m_executor.run();
    EXPECT_THAT(m_refreshes, ElementsAre(0, 0));
}

TEST_F(PollingLoopTest, thatIsReplacedDoesNotEndItsSuccessor) {
    m_loop->start();
    m_executor.run();
    m_loop->stop();
    m_loop->start();
    // The first loop's cancelled sleep is delivered here, after the second has begun.
    m_executor.run();
    EXPECT_TRUE(m_loop->isRunning());
    EXPECT_EQ(m_time.sleepingCount(), 1U);
    lookEvery(5, 30);
    EXPECT_THAT(m_refreshes, ElementsAre(0, 0, 30));
}

TEST_F(PollingLoopTest, cancelsTheRefreshInFlight) {
    m_refreshLasts = Seconds(10);
    m_loop->start();
    m_executor.run();
    EXPECT_EQ(m_work.sleepingCount(), 1U);
    m_loop->stop();
    m_executor.run();
    EXPECT_EQ(m_work.sleepingCount(), 0U);
    EXPECT_EQ(m_completed, 0);
}

TEST_F(PollingLoopTest, measuresTheIntervalFromTheEndOfARefresh) {
    m_refreshLasts = Seconds(10);
    m_loop->start();
    m_executor.run();
    m_time.advance(Seconds(10));
    m_work.advance(Seconds(10));
    EXPECT_EQ(m_completed, 1);
    m_time.advance(Seconds(29));
    EXPECT_EQ(m_refreshes.size(), 1U);
    m_time.advance(Seconds(1));
    EXPECT_THAT(m_refreshes, ElementsAre(0, 40));
}

TEST_F(PollingLoopTest, endsWhenItIsDestroyed) {
    m_refreshLasts = Seconds(10);
    m_loop->start();
    m_executor.run();
    m_loop.reset();
    EXPECT_EQ(m_work.sleepingCount(), 0U);
    m_time.advance(Seconds(100));
    EXPECT_EQ(m_completed, 0);
}

TEST_F(PollingLoopTest, wakesOnceAfterAMachineSlept) {
    m_loop->start();
    m_executor.run();
    m_loop->recordDemand();
    m_time.jump(Seconds(3600));
    EXPECT_THAT(m_refreshes, ElementsAre(0));
    EXPECT_FALSE(m_loop->isRunning());
}

}  // namespace

}  // namespace quillbar
