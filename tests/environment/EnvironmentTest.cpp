// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace quillbar {

namespace {

namespace fs = std::filesystem;

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

std::string valueOf(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "(not there)" : value;
}

// All variables but what the run's registration may say beside the locale and the zone.
std::vector<std::string> namesOfVariables() {
    std::vector<std::string> names;
    for (char* const* each = ::environ; *each != nullptr; ++each) {
        const std::string variable = *each;
        std::string name = variable.substr(0, variable.find('='));
        if (!name.starts_with("QUILLBAR_EXPECTED_") && !name.ends_with("SAN_OPTIONS")
            && !name.ends_with("SAN_SYMBOLIZER_PATH")) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

std::vector<std::string> filesIn(const fs::path& folder) {
    std::vector<std::string> files;
    if (fs::exists(folder)) {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (!entry.is_directory()) {
                files.push_back(entry.path());
            }
        }
    }
    return files;
}

// 7 September 2025 begins at one o'clock in Santiago: the clocks go forward at midnight.
std::string startOfTheSeventhOfSeptember() {
    std::tm day{};
    day.tm_year = 125;
    day.tm_mon = 8;
    day.tm_mday = 7;
    day.tm_isdst = -1;
    const std::time_t instant = std::mktime(&day);
    std::tm local{};
    ::localtime_r(&instant, &local);
    std::string text(32, '\0');
    text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M %z", &local));
    return text;
}

struct ClosePipe {
    void operator()(FILE* pipe) const { static_cast<void>(::pclose(pipe)); }
};

// What a command prints on its standard output.
std::string outputOf(const std::string& command) {
    const std::unique_ptr<FILE, ClosePipe> pipe(::popen(command.c_str(), "r"));
    std::string output;
    std::array<char, 4096> part{};
    while (pipe && std::fgets(part.data(), part.size(), pipe.get()) != nullptr) {
        output += part.data();
    }
    return output;
}

TEST(Environment, numbersTakeTheDecimalPointOfTheRun) {
    EXPECT_EQ(std::localeconv()->decimal_point, valueOf("QUILLBAR_EXPECTED_DECIMAL_POINT"));
}

TEST(Environment, aDayBeginsWhereTheZoneOfTheRunSays) {
    EXPECT_EQ(startOfTheSeventhOfSeptember(), valueOf("QUILLBAR_EXPECTED_MIDNIGHT"));
}

TEST(Environment, testsComeInTheOrderOfTheRun) {
    EXPECT_EQ(GTEST_FLAG_GET(shuffle) ? "shuffled" : "declared",
              valueOf("QUILLBAR_EXPECTED_ORDER"));
}

TEST(Environment, hasTheseVariablesAndNoOther) {
    EXPECT_THAT(namesOfVariables(),
                UnorderedElementsAre("DBUS_SESSION_BUS_ADDRESS",
                                     "DBUS_SYSTEM_BUS_ADDRESS",
                                     "FONTCONFIG_FILE",
                                     "HOME",
                                     "LC_ALL",
                                     "LOCPATH",
                                     "PATH",
                                     "QT_QPA_PLATFORM",
                                     "QUILLBAR_TEST_FOLDER",
                                     "QUILLBAR_TEST_PROCESS",
                                     "TMPDIR",
                                     "TZ",
                                     "XDG_CACHE_HOME",
                                     "XDG_CONFIG_DIRS",
                                     "XDG_CONFIG_HOME",
                                     "XDG_DATA_DIRS",
                                     "XDG_DATA_HOME",
                                     "XDG_RUNTIME_DIR",
                                     "XDG_STATE_HOME"));
    EXPECT_EQ(valueOf("PATH"), "/usr/bin:/bin:/usr/sbin:/sbin");
    EXPECT_EQ(valueOf("QT_QPA_PLATFORM"), "offscreen");
}

TEST(Environment, foldersAreTheProgramsOwnAndEmpty) {
    const std::string folder = valueOf("QUILLBAR_TEST_FOLDER");
    EXPECT_THAT(folder, StartsWith("/tmp/quillbar-tests-"));
    for (const char* const name : {"HOME",
                                   "TMPDIR",
                                   "XDG_CACHE_HOME",
                                   "XDG_CONFIG_HOME",
                                   "XDG_DATA_HOME",
                                   "XDG_RUNTIME_DIR",
                                   "XDG_STATE_HOME"}) {
        EXPECT_THAT(valueOf(name), StartsWith(folder + "/")) << name;
        EXPECT_TRUE(fs::is_directory(valueOf(name))) << name;
        EXPECT_THAT(filesIn(valueOf(name)), IsEmpty()) << name;
    }
    for (const char* const name : {"XDG_CONFIG_DIRS", "XDG_DATA_DIRS"}) {
        EXPECT_THAT(valueOf(name), StartsWith(folder + "/")) << name;
        EXPECT_THAT(filesIn(valueOf(name)), IsEmpty()) << name;
    }
    EXPECT_EQ(fs::current_path(), valueOf("HOME"));
    EXPECT_EQ(fs::status(valueOf("XDG_RUNTIME_DIR")).permissions(), fs::perms::owner_all);
    EXPECT_THAT(TemporaryFolder().path(), StartsWith(valueOf("TMPDIR")));
}

TEST(Environment, foldersGoWithTheProgram) {
    // Nothing says to the program that it was started by this one, so it makes folders of its own.
    const std::string output =
        outputOf("env -u QUILLBAR_TEST_PROCESS " + fs::read_symlink("/proc/self/exe").string()
                 + " --gtest_filter=Environment.tellsItsFolder");
    const std::string mark = "folder=";
    const auto start = output.find(mark);
    ASSERT_NE(start, std::string::npos) << output;
    const std::string folder =
        output.substr(start + mark.size(), output.find('\n', start) - start - mark.size());
    EXPECT_THAT(folder, StartsWith("/tmp/quillbar-tests-"));
    EXPECT_NE(folder, valueOf("QUILLBAR_TEST_FOLDER"));
    EXPECT_FALSE(fs::exists(folder));
}

TEST(Environment, tellsItsFolder) {
    std::cout << "folder=" << valueOf("QUILLBAR_TEST_FOLDER") << '\n';
    EXPECT_TRUE(fs::exists(valueOf("QUILLBAR_TEST_FOLDER")));
}

TEST(Environment, nobodyListensAtTheBuses) {
    for (const char* const name : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"}) {
        const std::string address = valueOf(name);
        const std::string kind = "unix:path=";
        ASSERT_THAT(address, StartsWith(kind));
        EXPECT_THAT(address, HasSubstr(valueOf("QUILLBAR_TEST_FOLDER")));
        EXPECT_FALSE(fs::exists(address.substr(kind.size())));
    }
}

TEST(Environment, filesAreMadeReadableByOthersAndWritableByTheUserAlone) {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(mask, mode_t{022});
}

TEST(Environment, noSignalIsIgnoredOrBlocked) {
    for (const int number :
         {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGUSR1, SIGUSR2, SIGCHLD}) {
        struct sigaction action {};
        ASSERT_EQ(::sigaction(number, nullptr, &action), 0);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << number;
    }
    sigset_t blocked;
    ASSERT_EQ(::sigprocmask(SIG_SETMASK, nullptr, &blocked), 0);
    EXPECT_TRUE(::sigisemptyset(&blocked));
}

TEST(Environment, asManyFilesAsUsualCanBeOpen) {
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    EXPECT_EQ(limit.rlim_cur, std::min(rlim_t{1024}, limit.rlim_max));
}

}  // namespace

}  // namespace quillbar
