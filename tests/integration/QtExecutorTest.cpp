// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/AsyncStream.h"
#include "tests/integration/EventLoop.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace quillbar {
namespace {

using std::chrono::milliseconds;

TEST(QtExecutorTest, resumesTasksFromTheEventLoopAndNotInline) {
    EventLoop loop;
    std::vector<std::string> order;
    const auto say = [&order](std::string word) -> Task<void> {
        order.push_back(std::move(word));
        co_return;
    };
    loop.spawn(say("first"));
    loop.spawn(say("second"));
    order.emplace_back("after spawn");
    spinUntilIdle();
    EXPECT_EQ(order, (std::vector<std::string>{"after spawn", "first", "second"}));
}

TEST(QtExecutorTest, runsWhatAnotherThreadPostsOnItsOwnThread) {
    EventLoop loop;
    std::thread::id ranOn;
    std::thread other([&] { loop.executor().post([&] { ranOn = std::this_thread::get_id(); }); });
    other.join();
    EXPECT_EQ(ranOn, std::thread::id{});
    ASSERT_TRUE(spinUntil([&] { return ranOn != std::thread::id{}; }));
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST(QtExecutorTest, letsTimersRunWhileAFloodIsProcessed) {
    EventLoop loop;
    auto [stream, source] = AsyncStream<int>::make();
    int taken = 0;
    int takenAtTimer = -1;
    const auto consume = [&taken](AsyncStream<int> numbers) -> Task<void> {
        while (auto number = co_await numbers.next()) {
            ++taken;
        }
    };
    constexpr int kFlood = 100'000;
    for (int i = 0; i < kFlood; ++i) {
        source.push(i);
    }
    source.finish();
    QTimer::singleShot(0, [&] { takenAtTimer = taken; });
    loop.run(consume(std::move(stream)));
    EXPECT_EQ(taken, kFlood);
    EXPECT_GE(takenAtTimer, 0);
    EXPECT_LT(takenAtTimer, kFlood);
}

TEST(QtExecutorTest, dropsWhatIsPostedWhenItIsDestroyed) {
    auto executor = makeQtExecutor();
    bool hasRun = false;
    executor->post([&hasRun] { hasRun = true; });
    executor.reset();
    spinUntilIdle();
    EXPECT_FALSE(hasRun);
}

}  // namespace
}  // namespace quillbar
