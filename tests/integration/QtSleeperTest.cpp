// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Cancelled.h"
#include "QuillbarCore/runtime/QtSleeper.h"
#include "tests/integration/EventLoop.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>

namespace quillbar {
namespace {

class QtSleeperTest : public testing::Test {
protected:
    enum class Fate { asleep, awake, cancelled };

    Task<void> sleep(Sleeper sleeper, double seconds) {
        try {
            co_await sleeper(Seconds(seconds));
            m_fate = Fate::awake;
        } catch (const Cancelled&) {
            m_fate = Fate::cancelled;
        }
    }

    Fate m_fate = Fate::asleep;
    EventLoop m_loop;
};

TEST_F(QtSleeperTest, neverWakesEarly) {
    const auto start = std::chrono::steady_clock::now();
    m_loop.run(sleep(makeQtSleeper(), 0.0305));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::microseconds(30'500));
}

TEST_F(QtSleeperTest, makesALongSleepOfSeveralTimers) {
    const auto start = std::chrono::steady_clock::now();
    m_loop.run(sleep(makeQtSleeper(Seconds(0.004)), 0.03));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST_F(QtSleeperTest, wakesAtTheNextTurnForNothingOrLess) {
    for (const double seconds : {0.0,
                                 -0.0,
                                 -1e300,
                                 -std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::denorm_min(),
                                 std::numeric_limits<double>::quiet_NaN()}) {
        m_fate = Fate::asleep;
        m_loop.run(sleep(makeQtSleeper(), seconds));
        EXPECT_EQ(m_fate, Fate::awake) << seconds;
    }
}

TEST_F(QtSleeperTest, sleepsOnForHugeSpansAndEndsWhenCancelled) {
    for (const double seconds : {2e6, 1e12, 1e300, std::numeric_limits<double>::infinity()}) {
        m_fate = Fate::asleep;
        const auto handle = m_loop.spawn(sleep(makeQtSleeper(), seconds));
        spinUntilIdle();
        EXPECT_EQ(m_fate, Fate::asleep) << seconds;
        handle.cancel();
        spinUntilIdle();
        EXPECT_EQ(m_fate, Fate::cancelled) << seconds;
    }
}

TEST_F(QtSleeperTest, wakesInTheOrderOfTheSpans) {
    std::string order;
    const auto note = [&order](Sleeper sleeper, double seconds, char name) -> Task<void> {
        co_await sleeper(Seconds(seconds));
        order += name;
    };
    m_loop.spawn(note(makeQtSleeper(), 0.06, 'c'));
    m_loop.spawn(note(makeQtSleeper(), 0.001, 'a'));
    m_loop.spawn(note(makeQtSleeper(), 0.03, 'b'));
    ASSERT_TRUE(spinUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, "abc");
}

}  // namespace
}  // namespace quillbar
