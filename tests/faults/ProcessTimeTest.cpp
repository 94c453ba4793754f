// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Time.h"
#include "tests/faults/ProcessTime.h"

#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

TEST(ProcessTimeTest, standsStillUntilItIsLetPass) {
    const auto monotonic = std::chrono::steady_clock::now();
    const auto wall = std::chrono::system_clock::now();
    ProcessTime::settle();
    EXPECT_EQ(std::chrono::steady_clock::now(), monotonic);
    ProcessTime::pass(90s);
    EXPECT_EQ(std::chrono::steady_clock::now() - monotonic, 90s);
    EXPECT_EQ(std::chrono::system_clock::now() - wall, 90s);
}

TEST(ProcessTimeTest, movesTheWallClockAlone) {
    const auto monotonic = std::chrono::steady_clock::now();
    const auto wall = std::chrono::system_clock::now();
    const std::time_t seconds = std::time(nullptr);
    ProcessTime::moveWallClock(-1h);
    EXPECT_EQ(std::chrono::steady_clock::now(), monotonic);
    EXPECT_EQ(wall - std::chrono::system_clock::now(), 1h);
    EXPECT_EQ(seconds - std::time(nullptr), 3600);
    ProcessTime::moveWallClock(1h);
}

TEST(ProcessTimeTest, countsASleepOnTheWallClockAndSinceTheMachinesStart) {
    const auto monotonic = std::chrono::steady_clock::now();
    const auto wall = std::chrono::system_clock::now();
    const MonotonicClock sinceStart = bootClock();
    const Seconds before = sinceStart();
    ProcessTime::sleepMachine(10min);
    EXPECT_EQ(std::chrono::steady_clock::now(), monotonic);
    EXPECT_EQ(std::chrono::system_clock::now() - wall, 10min);
    EXPECT_DOUBLE_EQ((sinceStart() - before).count(), 600);
}

TEST(ProcessTimeTest, endsTheTimersOfThisThreadWhenTheyAreDue) {
    bool isOver = false;
    QTimer::singleShot(60s, [&isOver] { isOver = true; });
    ProcessTime::pass(59s);
    ProcessTime::settle();
    EXPECT_FALSE(isOver);
    ProcessTime::pass(1s);
    ProcessTime::settle();
    EXPECT_TRUE(isOver);
}

TEST(ProcessTimeTest, endsTheTimersOfAnotherThreadWhenTheyAreDue) {
    QThread thread;
    QTimer timer;
    std::atomic<int> count = 0;
    timer.setInterval(10s);
    timer.moveToThread(&thread);
    QObject::connect(
        &timer, &QTimer::timeout, &timer, [&count] { ++count; }, Qt::DirectConnection);
    thread.start();
    QMetaObject::invokeMethod(&timer, qOverload<>(&QTimer::start));
    ProcessTime::settle();
    ProcessTime::pass(9s);
    ProcessTime::settle();
    EXPECT_EQ(count, 0);
    for (int round = 1; round <= 3; ++round) {
        ProcessTime::pass(10s);
        ProcessTime::settle();
        EXPECT_EQ(count, round);
    }
    QMetaObject::invokeMethod(&timer, &QTimer::stop, Qt::BlockingQueuedConnection);
    thread.quit();
    thread.wait();
}

}  // namespace

}  // namespace quillbar
