// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/DisplayFailure.h"

#include <qlogging.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

namespace quillbar {

namespace {

// Named for the child processes it starts: they run before threads exist.
TEST(DisplayFailureDeathTest, isASentenceAndAnExitStatus) {
    EXPECT_EXIT(
        {
            const DisplayFailure failure("quillbar", "no display", 7);
            qFatal("no plugin could be initialized");
        },
        ::testing::ExitedWithCode(7),
        "^quillbar: no display\n$");
}

TEST(DisplayFailureDeathTest, leavesOtherMessagesAsTheyAre) {
    EXPECT_EXIT(
        {
            const DisplayFailure failure("quillbar", "no display", 7);
            qWarning("cannot connect to display :9");
            std::_Exit(0);
        },
        ::testing::ExitedWithCode(0),
        "cannot connect to display :9");
}

TEST(DisplayFailureDeathTest, endsWithTheObject) {
    EXPECT_EXIT(
        {
            { const DisplayFailure failure("quillbar", "no display", 7); }
            qFatal("something else");
        },
        ::testing::KilledBySignal(SIGABRT),
        "something else");
}

}  // namespace

}  // namespace quillbar
