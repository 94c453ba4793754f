// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/QtWorker.h"
#include "tests/integration/EventLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

namespace quillbar {
namespace {

// Waits for a promise on the caller's thread; false when it is not kept.
bool isKept(const std::future<void>& promise) {
    return promise.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
}

class QtWorkerTest : public testing::Test {
protected:
    EventLoop m_loop;
    std::unique_ptr<Worker> m_worker = makeQtWorker();
};

TEST_F(QtWorkerTest, runsAJobElsewhereAndDeliversItsResultHere) {
    std::thread::id resumedOn;
    const auto decode = [&](Worker& worker) -> Task<std::thread::id> {
        const auto job = [] { return std::this_thread::get_id(); };
        const std::thread::id ranOn = co_await offload(worker, job);
        resumedOn = std::this_thread::get_id();
        co_return ranOn;
    };
    const std::thread::id ranOn = m_loop.run(decode(*m_worker));
    EXPECT_NE(ranOn, std::this_thread::get_id());
    EXPECT_EQ(resumedOn, std::this_thread::get_id());
}

TEST_F(QtWorkerTest, deliversWhatAJobThrows) {
    const auto decode = [](Worker& worker) -> Task<int> {
        const auto job = []() -> int { throw std::invalid_argument("bad number"); };
        const int value = co_await offload(worker, job);
        co_return value;
    };
    EXPECT_THROW(m_loop.run(decode(*m_worker)), std::invalid_argument);
}

TEST_F(QtWorkerTest, runsJobsOneAfterAnotherInOrder) {
    std::string order;
    std::promise<void> last;
    for (const char name : {'a', 'b', 'c', 'd'}) {
        m_worker->run([&order, name] { order += name; });
    }
    m_worker->run([&last] { last.set_value(); });
    ASSERT_TRUE(isKept(last.get_future()));
    EXPECT_EQ(order, "abcd");
}

TEST_F(QtWorkerTest, runsJobsThatComeWhenAllBeforeAreDone) {
    // Often, because nobody tells when the thread has found no further job.
    for (int round = 0; round < 100; ++round) {
        const auto done = std::make_shared<std::promise<void>>();
        m_worker->run([done] { done->set_value(); });
        ASSERT_TRUE(isKept(done->get_future())) << round;
    }
}

TEST_F(QtWorkerTest, abandonsTheResultOfACancelledTaskAndLetsTheJobEnd) {
    std::promise<void> gate;
    std::promise<void> ended;
    bool hasResult = false;
    const auto decode = [&](Worker& worker) -> Task<void> {
        const auto job = [&gate, &ended] {
            isKept(gate.get_future());
            ended.set_value();
            return 1;
        };
        co_await offload(worker, job);
        hasResult = true;
    };
    const auto handle = m_loop.spawn(decode(*m_worker));
    spinUntilIdle();
    handle.cancel();
    ASSERT_TRUE(spinUntil([&] { return !handle.isRunning(); }));
    gate.set_value();
    ASSERT_TRUE(isKept(ended.get_future()));
    m_worker.reset();
    spinUntilIdle();
    EXPECT_FALSE(hasResult);
}

TEST_F(QtWorkerTest, dropsTheWaitingJobsAndWaitsForTheRunningOneWhenItIsDestroyed) {
    std::promise<void> started;
    std::promise<void> dropped;
    bool hasEnded = false;
    std::atomic<bool> hasRunNext = false;
    m_worker->run([&] {
        started.set_value();
        isKept(dropped.get_future());
        hasEnded = true;
    });
    const auto tellsItsEnd = [&dropped](int*) { dropped.set_value(); };
    m_worker->run([&, held = std::shared_ptr<int>(nullptr, tellsItsEnd)] { hasRunNext = true; });
    ASSERT_TRUE(isKept(started.get_future()));
    m_worker.reset();
    EXPECT_TRUE(hasEnded);
    EXPECT_FALSE(hasRunNext);
}

}  // namespace
}  // namespace quillbar
