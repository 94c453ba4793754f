// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Worker.h"
#include "tests/runtime/TaskFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// One thread that runs the jobs in their order.
class ThreadWorker final : public Worker {
public:
    ThreadWorker()
        : m_thread([this] { work(); }) {}
    ThreadWorker(const ThreadWorker&) = delete;
    ThreadWorker& operator=(const ThreadWorker&) = delete;
    ThreadWorker(ThreadWorker&&) = delete;
    ThreadWorker& operator=(ThreadWorker&&) = delete;
    ~ThreadWorker() override {
        {
            const std::lock_guard lock(m_mutex);
            m_isClosed = true;
        }
        m_changed.notify_all();
        m_thread.join();
    }

    void run(std::function<void()> job) override {
        {
            const std::lock_guard lock(m_mutex);
            m_jobs.push_back(std::move(job));
            ++m_unfinished;
        }
        m_changed.notify_all();
    }

    // Blocks until every job has been run.
    void finish() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_unfinished == 0; });
    }

private:
    void work() {
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [this] { return m_isClosed || !m_jobs.empty(); });
            if (m_jobs.empty()) {
                return;
            }
            auto job = std::move(m_jobs.front());
            m_jobs.pop_front();
            lock.unlock();
            job();
            job = nullptr;
            lock.lock();
            --m_unfinished;
            m_changed.notify_all();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_jobs;
    int m_unfinished = 0;
    bool m_isClosed = false;
    // Last: it uses what is above.
    std::thread m_thread;
};

// Keeps its jobs until told to run them.
class HeldWorker final : public Worker {
public:
    void run(std::function<void()> job) override { jobs.push_back(std::move(job)); }

    void runAll() {
        for (const auto& job : std::exchange(jobs, {})) {
            job();
        }
    }

    std::vector<std::function<void()>> jobs;
};

class RefusingWorker final : public Worker {
public:
    void run(std::function<void()> /*job*/) override { throw std::runtime_error("refused"); }
};

struct WorkerTest : TaskFixture {
    template <class Function>
    TaskScope::Handle startOffload(Worker& worker, Function function) {
        return start([this, &worker, function = std::move(function)]() -> Task<void> {
            try {
                const std::string result = co_await offload(worker, function);
                note(result);
            } catch (const Cancelled&) {
                note("cancelled");
            } catch (const std::exception& error) {
                note(error.what());
            }
        });
    }
};

std::string worked() {
    return "worked";
}

std::string failed() {
    throw std::runtime_error("could not decode");
}

TEST_F(WorkerTest, givesTheResultOfTheFunction) {
    InlineWorker worker;
    startOffload(worker, worked);
    EXPECT_THAT(events, ElementsAre("worked"));
}

TEST_F(WorkerTest, throwsWhatTheFunctionThrows) {
    InlineWorker worker;
    startOffload(worker, failed);
    EXPECT_THAT(events, ElementsAre("could not decode"));
}

TEST_F(WorkerTest, throwsWhatTheWorkerThrows) {
    RefusingWorker worker;
    const auto handle = startOffload(worker, worked);
    EXPECT_THAT(events, ElementsAre("refused"));
    EXPECT_FALSE(handle.isRunning());
}

TEST_F(WorkerTest, letsOtherTasksRunMeanwhile) {
    HeldWorker worker;
    startOffload(worker, worked);
    start([this]() -> Task<void> {
        note("meanwhile");
        co_return;
    });
    worker.runAll();
    EXPECT_THAT(events, ElementsAre("meanwhile")) << "the result comes from the queue";
    executor.run();
    EXPECT_THAT(events, ElementsAre("meanwhile", "worked"));
}

TEST_F(WorkerTest, abandonsTheResultForACancelledTask) {
    HeldWorker worker;
    const auto handle = startOffload(worker, worked);
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("cancelled"));
    worker.runAll();
    executor.run();
    EXPECT_THAT(events, ElementsAre("cancelled"));
}

TEST_F(WorkerTest, abandonsAResultThatIsOnItsWay) {
    HeldWorker worker;
    const auto handle = startOffload(worker, worked);
    worker.runAll();
    handle.cancel();
    executor.run();
    EXPECT_THAT(events, ElementsAre("cancelled"));
}

TEST_F(WorkerTest, abandonsTheResultForADestroyedTask) {
    HeldWorker worker;
    {
        TaskScope inner(executor);
        inner.spawn([this, &worker]() -> Task<void> {
            const std::string result = co_await offload(worker, worked);
            note(result);
        });
        executor.run();
    }
    worker.runAll();
    executor.run();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(WorkerTest, keepsWhatTheFunctionHoldsUntilItHasRun) {
    HeldWorker worker;
    auto held = std::make_shared<std::string>("held");
    const std::weak_ptr<std::string> watched = held;
    const auto handle = startOffload(worker, [held = std::move(held)] { return *held; });
    handle.cancel();
    executor.run();
    EXPECT_FALSE(watched.expired());
    worker.runAll();
    executor.run();
    EXPECT_TRUE(watched.expired());
}

TEST_F(WorkerTest, carriesValuesThatCannotBeCopied) {
    InlineWorker worker;
    start([this, &worker]() -> Task<void> {
        const auto make = [] { return std::make_unique<int>(4); };
        const std::unique_ptr<int> box = co_await offload(worker, make);
        note(fmt::format("{}", *box));
    });
    EXPECT_THAT(events, ElementsAre("4"));
}

TEST_F(WorkerTest, runsOnAnotherThreadAndAnswersOnThisOne) {
    ThreadWorker worker;
    const auto thisThread = std::this_thread::get_id();
    scope.spawn([&]() -> Task<void> {
        const auto whereAmI = [] { return std::this_thread::get_id(); };
        const auto there = co_await offload(worker, whereAmI);
        note(there == thisThread ? "worked here" : "worked there");
        note(std::this_thread::get_id() == thisThread ? "answered here" : "answered there");
    });
    executor.run();
    worker.finish();
    executor.run();
    EXPECT_THAT(events, ElementsAre("worked there", "answered here"));
}

TEST_F(WorkerTest, carriesExceptionsFromAnotherThread) {
    ThreadWorker worker;
    startOffload(worker, failed);
    worker.finish();
    executor.run();
    EXPECT_THAT(events, ElementsAre("could not decode"));
}

TEST_F(WorkerTest, doesTheWorkOfManyTasksWhileTheExecutorRuns) {
    constexpr int kTasks = 300;
    ThreadWorker worker;
    int sum = 0;
    int ended = 0;
    for (int i = 0; i < kTasks; ++i) {
        scope.spawn([&, i]() -> Task<void> {
            const auto text = [i] { return std::string(static_cast<std::size_t>(i), 'x'); };
            const std::string first = co_await offload(worker, text);
            const std::string second = co_await offload(worker, text);
            sum += static_cast<int>(first.size() + second.size());
            ++ended;
        });
    }
    while (ended < kTasks) {
        executor.run();
        std::this_thread::yield();
    }
    EXPECT_EQ(sum, kTasks * (kTasks - 1));
}

TEST_F(WorkerTest, abandonsTheWorkOfAnotherThreadAtAnyMoment) {
    constexpr int kRounds = 300;
    ThreadWorker worker;
    int answered = 0;
    for (int round = 0; round < kRounds; ++round) {
        TaskScope inner(executor);
        const auto handle = inner.spawn([&]() -> Task<void> {
            const std::string result = co_await offload(worker, worked);
            answered += result == "worked" ? 1 : 0;
        });
        executor.run();
        if (round % 3 == 0) {
            handle.cancel();
        } else if (round % 3 == 1) {
            worker.finish();
        }
        executor.run();
    }
    worker.finish();
    executor.run();
    EXPECT_GE(answered, kRounds / 3);
}

}  // namespace

}  // namespace quillbar
