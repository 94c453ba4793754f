// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Deferred.h"
#include "tests/runtime/TaskFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <optional>
#include <stdexcept>
#include <string>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct DeferredTest : TaskFixture {
    Task<void> noteOutcome(std::string name) {
        try {
            const std::string value = co_await deferred.wait();
            note(name + "=" + value);
        } catch (const Cancelled&) {
            note(name + " cancelled");
        } catch (const std::exception& error) {
            note(name + "!" + error.what());
        }
    }

    TaskScope::Handle wait(std::string name) {
        auto handle = scope.spawn(noteOutcome(std::move(name)));
        executor.run();
        return handle;
    }

    void fail(const std::string& text) {
        deferred.setError(std::make_exception_ptr(std::runtime_error(text)));
    }

    Deferred<std::string> deferred;
};

TEST_F(DeferredTest, givesItsValueToAllWhoWaitAndAllWhoComeLater) {
    EXPECT_FALSE(deferred.isSettled());
    wait("1");
    wait("2");
    deferred.setValue("v");
    EXPECT_TRUE(deferred.isSettled());
    EXPECT_THAT(events, IsEmpty()) << "settling resumes nothing inline";
    executor.run();
    EXPECT_THAT(events, ElementsAre("1=v", "2=v"));
    wait("3");
    EXPECT_THAT(events, ElementsAre("1=v", "2=v", "3=v"));
}

TEST_F(DeferredTest, throwsItsErrorToAllWhoWaitAndAllWhoComeLater) {
    wait("1");
    wait("2");
    fail("x");
    EXPECT_TRUE(deferred.isSettled());
    executor.run();
    wait("3");
    EXPECT_THAT(events, ElementsAre("1!x", "2!x", "3!x"));
}

TEST_F(DeferredTest, isSettledOnce) {
    deferred.setValue("first");
    deferred.setValue("second");
    fail("late");
    wait("1");
    EXPECT_THAT(events, ElementsAre("1=first"));
}

TEST_F(DeferredTest, keepsItsFirstError) {
    fail("first");
    fail("second");
    deferred.setValue("late");
    wait("1");
    EXPECT_THAT(events, ElementsAre("1!first"));
}

TEST_F(DeferredTest, cancelsOneWaiterWithoutTheOthers) {
    wait("1");
    const auto second = wait("2");
    wait("3");
    second.cancel();
    executor.run();
    EXPECT_THAT(takeEvents(), ElementsAre("2 cancelled"));
    deferred.setValue("v");
    executor.run();
    EXPECT_THAT(events, ElementsAre("1=v", "3=v"));
}

TEST_F(DeferredTest, forgetsADestroyedWaiter) {
    std::optional<TaskScope> inner(std::in_place, executor);
    wait("1");
    inner->spawn(noteOutcome("2"));
    executor.run();
    inner.reset();
    deferred.setValue("v");
    executor.run();
    EXPECT_THAT(events, ElementsAre("1=v"));
}

TEST_F(DeferredTest, sharesItsValueWithItsCopies) {
    const Deferred<std::string> copy = deferred;
    wait("1");
    copy.setValue("v");
    executor.run();
    EXPECT_TRUE(deferred.isSettled());
    EXPECT_THAT(events, ElementsAre("1=v"));
}

}  // namespace

}  // namespace quillbar
