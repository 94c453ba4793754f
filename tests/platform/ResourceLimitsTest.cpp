// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/ResourceLimits.h"
#include "QuillbarCore/runtime/AtomicFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <pthread.h>
#include <sys/resource.h>
#include <thread>

namespace quillbar {

namespace {

constexpr rlim_t kKilobyte = 1024;

using ::testing::ExitedWithCode;

void limit(__rlimit_resource resource, rlim_t soft, rlim_t hard) {
    const rlimit limits{soft, hard};
    if (::setrlimit(resource, &limits) != 0) {
        std::_Exit(99);
    }
}

rlim_t softLimit(__rlimit_resource resource) {
    rlimit limits{};
    return ::getrlimit(resource, &limits) == 0 ? limits.rlim_cur : 0;
}

/// What the C library does at the start of a program whose limit is so low.
void limitThreads(std::size_t stack) {
    pthread_attr_t attributes{};
    if (::pthread_getattr_default_np(&attributes) != 0
        || ::pthread_attr_setstacksize(&attributes, stack) != 0
        || ::pthread_setattr_default_np(&attributes) != 0) {
        std::_Exit(99);
    }
    ::pthread_attr_destroy(&attributes);
}

std::size_t stackOfANewThread() {
    std::size_t size = 0;
    std::thread([&size] {
        pthread_attr_t attributes{};
        if (::pthread_getattr_np(::pthread_self(), &attributes) == 0) {
            ::pthread_attr_getstacksize(&attributes, &size);
            ::pthread_attr_destroy(&attributes);
        }
    }).join();
    return size;
}

/// Ends the process: 0 when nothing is lacking, 1 with the sentence of what is.
[[noreturn]] void prepareAndExit() {
    const auto lack = ResourceLimits::prepare();
    std::fputs(lack.value_or("").c_str(), stderr);
    std::fflush(stderr);
    std::_Exit(lack ? 1 : 0);
}

// Named for the child processes it starts: they run before threads exist.
TEST(ResourceLimitsDeathTest, areLeftAloneWhereTheyAreHighEnough) {
    EXPECT_EXIT(
        {
            limit(RLIMIT_NOFILE, 64, 64);
            limit(RLIMIT_STACK, 256 * kKilobyte, 256 * kKilobyte);
            prepareAndExit();
        },
        ExitedWithCode(0),
        "");
}

TEST(ResourceLimitsDeathTest, areRaisedWhereTheSystemAllowsIt) {
    EXPECT_EXIT(
        {
            limit(RLIMIT_NOFILE, 20, 100);
            limit(RLIMIT_STACK, 128 * kKilobyte, 1024 * kKilobyte);
            const bool lacks = ResourceLimits::prepare().has_value();
            const bool areRaised =
                softLimit(RLIMIT_NOFILE) == 64 && softLimit(RLIMIT_STACK) == 256 * kKilobyte;
            std::_Exit(!lacks && areRaised ? 0 : 1);
        },
        ExitedWithCode(0),
        "");
}

TEST(ResourceLimitsDeathTest, areRaisedForNewThreadsToo) {
    EXPECT_EXIT(
        {
            limit(RLIMIT_STACK, 128 * kKilobyte, 1024 * kKilobyte);
            limitThreads(128 * kKilobyte);
            const bool lacks = ResourceLimits::prepare().has_value();
            std::_Exit(!lacks && stackOfANewThread() >= 256 * kKilobyte ? 0 : 1);
        },
        ExitedWithCode(0),
        "");
}

TEST(ResourceLimitsDeathTest, tooFewFilesAreTold) {
    EXPECT_EXIT(
        {
            limit(RLIMIT_NOFILE, 20, 63);
            prepareAndExit();
        },
        ExitedWithCode(1),
        "可以打开的文件太少：ulimit -n 为 63，至少需要 64");
}

TEST(ResourceLimitsDeathTest, tooLittleStackIsTold) {
    EXPECT_EXIT(
        {
            limit(RLIMIT_STACK, 128 * kKilobyte, 128 * kKilobyte);
            prepareAndExit();
        },
        ExitedWithCode(1),
        "栈空间太小：ulimit -s 为 128，至少需要 256");
}

TEST(ResourceLimitsDeathTest, aFileThatMayNotGrowIsAnErrorAndNoSignal) {
    EXPECT_EXIT(
        {
            const TemporaryFolder folder;
            limit(RLIMIT_FSIZE, 0, 0);
            const bool lacks = ResourceLimits::prepare().has_value();
            int code = 0;
            try {
                AtomicFile::write(folder.path() / "document.json", "{}");
            } catch (const FileError& error) {
                code = error.code();
            }
            std::_Exit(!lacks && code == EFBIG ? 0 : 1);
        },
        ExitedWithCode(0),
        "");
}

}  // namespace

}  // namespace quillbar
