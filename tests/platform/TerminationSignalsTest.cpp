// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/TerminationSignals.h"
#include "tests/qtsupport/SpinUntil.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

namespace quillbar {

namespace {

TEST(TerminationSignals, callBackFromTheEventLoopOnce) {
    for (const int signal : {SIGINT, SIGTERM}) {
        int terminations = 0;
        const TerminationSignals signals([&terminations] { ++terminations; });
        ::raise(signal);
        ::raise(signal);
        EXPECT_EQ(terminations, 0);
        EXPECT_TRUE(spinUntil([&terminations] { return terminations > 0; }));
        EXPECT_EQ(terminations, 1);
    }
}

// ThreadSanitizer tells when the handler and the destructor do not agree.
TEST(TerminationSignals, mayReachAnyThread) {
    bool isTerminated = false;
    std::thread thread;
    {
        const TerminationSignals signals([&isTerminated] { isTerminated = true; });
        thread = std::thread([] { ::raise(SIGTERM); });
        EXPECT_TRUE(spinUntil([&isTerminated] { return isTerminated; }));
    }
    thread.join();
}

// Named for the child processes it starts: they run before threads exist.
TEST(TerminationSignalsDeathTest, letASecondSignalEndAProcessThatDoesNotEnd) {
    for (const int first : {SIGINT, SIGTERM}) {
        for (const int second : {SIGINT, SIGTERM}) {
            EXPECT_EXIT(
                {
                    const TerminationSignals signals([] {}, std::chrono::milliseconds{0});
                    ::raise(first);
                    ::raise(second);
                    std::_Exit(0);
                },
                ::testing::KilledBySignal(second),
                "");
        }
    }
}

TEST(TerminationSignals, ignoreAClosedPipe) {
    const TerminationSignals signals([] { ADD_FAILURE(); });
    EXPECT_EQ(::raise(SIGPIPE), 0);
}

TEST(TerminationSignals, putBackTheDefaults) {
    {
        const TerminationSignals signals([] {});
    }
    for (const int signal : {SIGINT, SIGTERM, SIGPIPE}) {
        struct sigaction action {};
        ::sigaction(signal, nullptr, &action);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << signal;
    }
}

}  // namespace

}  // namespace quillbar
