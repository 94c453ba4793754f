// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/CalmLog.h"
#include "tests/support/CapturedLog.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace quillbar {

namespace {

using std::chrono::seconds;
using ::testing::ElementsAre;
using ::testing::SizeIs;

struct CalmLogTest : ::testing::Test {
    void say(std::string_view text, LogLevel level = LogLevel::standard) {
        calm.write("Coins", level, text);
    }

    std::vector<std::string> takeLines() {
        std::vector<std::string> lines = written.lines();
        written.clear();
        return lines;
    }

    CapturedLog written;
    std::chrono::steady_clock::time_point now;
    CalmLog calm{written, [this] { return now; }};
};

TEST_F(CalmLogTest, writesDifferentLinesAsTheyCome) {
    say("one");
    say("two");
    say("two", LogLevel::error);
    calm.write("Other", LogLevel::standard, "two");
    EXPECT_THAT(
        takeLines(),
        ElementsAre(
            "Coins|default|one", "Coins|default|two", "Coins|error|two", "Other|default|two"));
}

TEST_F(CalmLogTest, writesARepeatedLineOnceAMinuteWithItsCount) {
    for (int second = 0; second < 180; ++second) {
        say("refused", LogLevel::error);
        now += seconds(1);
    }
    EXPECT_THAT(takeLines(),
                ElementsAre("Coins|error|refused",
                            "Coins|error|refused (repeated 59 times)",
                            "Coins|error|refused (repeated 60 times)"));
}

TEST_F(CalmLogTest, writesTheCountWithTheNextLineAfterTheMinute) {
    say("refused");
    say("refused");
    say("refused");
    now += seconds(59);
    say("one");
    now += seconds(1);
    say("two");
    EXPECT_THAT(takeLines(),
                ElementsAre("Coins|default|refused",
                            "Coins|default|one",
                            "Coins|default|refused (repeated 2 times)",
                            "Coins|default|two"));
}

TEST_F(CalmLogTest, writesALineAgainThatCameAMinuteAgo) {
    say("refused");
    now += seconds(60);
    say("refused");
    EXPECT_THAT(takeLines(), ElementsAre("Coins|default|refused", "Coins|default|refused"));
}

TEST_F(CalmLogTest, remembersARepeatedLineForAMinute) {
    say("refused");
    say("refused");
    now += seconds(60);
    say("one");
    takeLines();
    now += seconds(59);
    say("refused");
    EXPECT_THAT(takeLines(), SizeIs(0));
    now += seconds(60);
    say("refused");
    EXPECT_THAT(takeLines(), ElementsAre("Coins|default|refused (repeated 1 times)"));
}

TEST_F(CalmLogTest, losesNoCountWhenMoreLinesComeThanItRemembers) {
    say("refused");
    say("refused");
    // The lines belong to several categories, so that none has more than its share.
    constexpr std::array<std::string_view, 4> kCategories{"Coins", "REST", "Icons", "Boards"};
    for (std::size_t line = 0; line < CalmLog::kRemembered; ++line) {
        calm.write(kCategories.at(line % kCategories.size()),
                   LogLevel::standard,
                   fmt::format("line {}", line));
    }
    const std::vector<std::string> lines = takeLines();
    EXPECT_THAT(lines, SizeIs(CalmLog::kRemembered + 2));
    EXPECT_THAT(lines, ::testing::Contains("Coins|default|refused (repeated 1 times)"));
}

TEST_F(CalmLogTest, forgetsTheOldestLineWhenMoreComeThanItRemembers) {
    say("first");
    say("second");
    constexpr std::array<std::string_view, 4> kCategories{"REST", "Icons", "Boards", "Alerts"};
    for (std::size_t line = 0; line + 1 < CalmLog::kRemembered; ++line) {
        calm.write(kCategories.at(line % kCategories.size()),
                   LogLevel::standard,
                   fmt::format("line {}", line));
    }
    takeLines();
    say("second");
    EXPECT_THAT(takeLines(), SizeIs(0));
    say("first");
    EXPECT_THAT(takeLines(),
                ElementsAre("Coins|default|second (repeated 1 times)", "Coins|default|first"))
        << "and then the second";
}

TEST_F(CalmLogTest, leavesOutLinesBeyondTheLimitOfAMinute) {
    for (std::size_t line = 0; line < CalmLog::kMostLines + 5; ++line) {
        say(fmt::format("nonsense {}", line), LogLevel::error);
    }
    const std::vector<std::string> lines = takeLines();
    ASSERT_THAT(lines, SizeIs(20));
    EXPECT_EQ(lines.back(), "Coins|error|nonsense 19");
    say("one");
    calm.write("Other", LogLevel::error, "one");
    EXPECT_THAT(takeLines(), ElementsAre("Coins|default|one", "Other|error|one"));
    now += seconds(60);
    say("two", LogLevel::error);
    EXPECT_THAT(
        takeLines(),
        ElementsAre("Coins|error|left out 5 more lines within a minute", "Coins|error|two"));
}

TEST_F(CalmLogTest, countsARepeatedLineOnceTowardsTheLimit) {
    for (std::size_t time = 0; time < 2 * CalmLog::kMostLines; ++time) {
        say("refused");
    }
    say("one");
    EXPECT_THAT(takeLines(), ElementsAre("Coins|default|refused", "Coins|default|one"));
}

TEST_F(CalmLogTest, mayBeUsedFromAnyThread) {
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([this] {
            for (int line = 0; line < 100; ++line) {
                say("refused");
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    now += seconds(60);
    say("one");
    EXPECT_THAT(takeLines(),
                ElementsAre("Coins|default|refused",
                            "Coins|default|refused (repeated 399 times)",
                            "Coins|default|one"));
}

}  // namespace

}  // namespace quillbar
