// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/SharedLoad.h"
#include "tests/runtime/TaskFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A load takes five seconds; its result tells which load it was.
struct SharedLoadTest : TaskFixture {
    Task<std::string> loadOnce() {
        const int number = ++loads;
        const Trace trace(*this, fmt::format("load {}", number));
        co_await pause(5s);
        if (fails) {
            throw std::runtime_error(fmt::format("error {}", number));
        }
        co_return fmt::format("data {}", number);
    }

    Task<void> noteOutcome(std::string name) {
        try {
            const std::string value = co_await load->get();
            note(name + "=" + value);
        } catch (const Cancelled&) {
            note(name + " cancelled");
        } catch (const std::exception& error) {
            note(name + "!" + error.what());
        }
    }

    TaskScope::Handle call(std::string name) {
        auto handle = scope.spawn(noteOutcome(std::move(name)));
        executor.run();
        return handle;
    }

    int loads = 0;
    bool fails = false;
    std::optional<SharedLoad<std::string>> load{std::in_place, executor, [this] {
                                                    return loadOnce();
                                                }};
};

TEST_F(SharedLoadTest, loadsOnceForAllWhoComeWhileItRuns) {
    EXPECT_FALSE(load->isInFlight());
    call("1");
    EXPECT_TRUE(load->isInFlight());
    time.advance(3s);
    call("2");
    EXPECT_EQ(loads, 1);
    time.advance(2s);
    EXPECT_THAT(events, ElementsAre("~load 1", "1=data 1", "2=data 1"));
    EXPECT_FALSE(load->isInFlight());
}

TEST_F(SharedLoadTest, loadsAgainOnceItHasLoaded) {
    call("1");
    time.advance(5s);
    (void)takeEvents();
    call("2");
    time.advance(5s);
    EXPECT_EQ(loads, 2);
    EXPECT_THAT(events, ElementsAre("~load 2", "2=data 2"));
}

TEST_F(SharedLoadTest, throwsTheErrorToAllWhoWaitAndLoadsAgain) {
    fails = true;
    call("1");
    call("2");
    time.advance(5s);
    EXPECT_THAT(takeEvents(), ElementsAre("~load 1", "1!error 1", "2!error 1"));
    EXPECT_FALSE(load->isInFlight());
    EXPECT_THAT(log.lines(), IsEmpty());
    fails = false;
    call("3");
    time.advance(5s);
    EXPECT_THAT(events, ElementsAre("~load 2", "3=data 2"));
}

TEST_F(SharedLoadTest, throwsWhatTheLoadThrowsBeforeItIsATask) {
    load.emplace(executor, [this]() -> Task<std::string> {
        ++loads;
        throw std::runtime_error("no task");
    });
    call("1");
    EXPECT_THAT(events, ElementsAre("1!no task"));
    EXPECT_FALSE(load->isInFlight());
}

TEST_F(SharedLoadTest, goesOnWhenOneCallerIsCancelled) {
    call("1");
    const auto second = call("2");
    call("3");
    second.cancel();
    executor.run();
    EXPECT_THAT(takeEvents(), ElementsAre("2 cancelled"));
    time.advance(5s);
    EXPECT_THAT(events, ElementsAre("~load 1", "1=data 1", "3=data 1"));
}

TEST_F(SharedLoadTest, goesOnWhenEveryCallerIsCancelled) {
    const auto only = call("1");
    only.cancel();
    executor.run();
    EXPECT_TRUE(load->isInFlight());
    call("2");
    EXPECT_EQ(loads, 1);
    time.advance(5s);
    EXPECT_THAT(events, ElementsAre("1 cancelled", "~load 1", "2=data 1"));
}

TEST_F(SharedLoadTest, endsTheLoadAndEveryWaitWhenDestroyed) {
    call("1");
    call("2");
    load.reset();
    EXPECT_EQ(time.sleepingCount(), 0U);
    EXPECT_THAT(events, ElementsAre("~load 1"));
    executor.run();
    EXPECT_THAT(events, ElementsAre("~load 1", "1 cancelled", "2 cancelled"));
}

TEST_F(SharedLoadTest, keepsTheResultForAWaiterWhenDestroyed) {
    const Deferred<std::string> data;
    load.emplace(executor, [&data]() -> Task<std::string> { co_return co_await data.wait(); });
    call("1");
    data.setValue("data");
    executor.runOne();
    EXPECT_FALSE(load->isInFlight());
    load.reset();
    executor.run();
    EXPECT_THAT(events, ElementsAre("1=data"));
}

}  // namespace

}  // namespace quillbar
