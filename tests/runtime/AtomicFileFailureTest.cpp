// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/AtomicFile.h"
#include "tests/runtime/AtomicFileFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quillbar {

namespace {

using std::filesystem::path;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

using AtomicFileFailureTest = AtomicFileFixture;

// Every call of a write into a folder that exists, in order; those from kFirstAfterRename on come
// when the new bytes are in place.
constexpr std::size_t kFirstAfterRename = 7;
constexpr std::size_t kOpeningOfFolder = 5;
constexpr std::size_t kCloseOfFolder = 8;
constexpr std::size_t kCalls = 9;

void failAt(HookedFileOperations& operations, std::size_t call, int code) {
    operations.before = [call, code](std::size_t number, std::string_view /*name*/) {
        return number == call ? code : 0;
    };
}

TEST_F(AtomicFileFailureTest, synchronisesTheBytesBeforeTheyTakeTheirPlaceAndTheFolderAfter) {
    AtomicFile::write(file, "new", operations);
    EXPECT_THAT(operations.calls,
                ElementsAre("makeDirectory",
                            "openTemporary",
                            "write",
                            "synchronise",
                            "close",
                            "openDirectory",
                            "rename",
                            "synchronise",
                            "close"));
}

TEST_F(AtomicFileFailureTest, doesNotWaitForTheDiskWhenItNeedNotSurviveAPowerCut) {
    AtomicFile::write(file, "new", operations, AtomicFile::Durability::process);
    EXPECT_THAT(operations.calls,
                ElementsAre("makeDirectory", "openTemporary", "write", "close", "rename"));
    EXPECT_EQ(AtomicFile::read(file), "new");
    EXPECT_THAT(namesIn(folder), ElementsAre("document.json"));
}

TEST_F(AtomicFileFailureTest, keepsTheOldBytesWholeWhicheverCallFails) {
    for (std::size_t failing = 0; failing < kCalls; ++failing) {
        SCOPED_TRACE(failing);
        AtomicFile::write(file, "old");
        HookedFileOperations failingOnce;
        failAt(failingOnce, failing, ENOSPC);
        const Failure failure = writeFailure(file, failingOnce);
        if (failing == kCloseOfFolder) {
            EXPECT_EQ(failure.text, "");
        } else {
            const bool isAboutTheFolder =
                failing == 0 || failing == kOpeningOfFolder || failing >= kFirstAfterRename;
            EXPECT_THAT(failure.text, HasSubstr((isAboutTheFolder ? folder : file).string()));
            EXPECT_THAT(failure.text, EndsWith(reasonOf(ENOSPC)));
            EXPECT_EQ(failure.code, ENOSPC);
        }
        EXPECT_EQ(AtomicFile::read(file), failing < kFirstAfterRename ? "old" : "new");
        EXPECT_THAT(namesIn(folder), ElementsAre("document.json"));
    }
}

TEST_F(AtomicFileFailureTest, leavesNoPartOfAFileWhereThereWasNoneWhicheverCallFails) {
    const path deep = folder / "a" / "b" / "document.json";
    bool isFailing = true;
    for (std::size_t call = 0; isFailing; ++call) {
        SCOPED_TRACE(call);
        HookedFileOperations failingOnce;
        failAt(failingOnce, call, EIO);
        isFailing = !writeFailure(deep, failingOnce).text.empty();
        const bool isRenamed =
            std::count(failingOnce.calls.begin(), failingOnce.calls.end(), "synchronise") == 2;
        if (isRenamed) {
            EXPECT_EQ(AtomicFile::read(deep), "new");
        } else if (std::filesystem::exists(deep.parent_path())) {
            EXPECT_THAT(namesIn(deep.parent_path()), ElementsAre());
        }
        std::filesystem::remove_all(folder / "a");
    }
}

TEST_F(AtomicFileFailureTest, saysWhichStepFailed) {
    const auto failureAt = [this](std::size_t failing) {
        HookedFileOperations failingOnce;
        failAt(failingOnce, failing, EIO);
        return writeFailure(file, failingOnce).text;
    };
    const std::string reason = reasonOf(EIO);
    const auto about = [&](std::string_view what, const path& which) {
        return fmt::format("cannot {} {}: {}", what, which.string(), reason);
    };
    EXPECT_EQ(failureAt(0), about("make the folder", folder));
    EXPECT_EQ(failureAt(1), about("create a file beside", file));
    EXPECT_EQ(failureAt(2), about("write", file));
    EXPECT_EQ(failureAt(3), about("synchronise", file));
    EXPECT_EQ(failureAt(4), about("close", file));
    EXPECT_EQ(failureAt(5), about("open the folder", folder));
    EXPECT_EQ(failureAt(6), about("replace", file));
    EXPECT_EQ(failureAt(7), about("synchronise the folder", folder));
}

TEST_F(AtomicFileFailureTest, saysWhichOfSeveralFoldersCannotBeMade) {
    const path outer = folder / "a";
    const path inner = outer / "b";
    const auto failureAt = [&](std::size_t failing) {
        HookedFileOperations failingOnce;
        failAt(failingOnce, failing, EIO);
        return writeFailure(inner / "document.json", failingOnce).text;
    };
    const auto about = [](const path& which) {
        return fmt::format("cannot make the folder {}: {}", which.string(), reasonOf(EIO));
    };
    // The inner folder is tried first, and once more after the outer one has been made.
    EXPECT_EQ(failureAt(0), about(inner));
    EXPECT_EQ(failureAt(1), about(outer));
    EXPECT_EQ(failureAt(2), about(inner));
}

TEST_F(AtomicFileFailureTest, acceptsAFolderThatCannotBeSynchronised) {
    failAt(operations, kFirstAfterRename, EINVAL);
    AtomicFile::write(file, "new", operations);
    EXPECT_EQ(AtomicFile::read(file), "new");
}

TEST_F(AtomicFileFailureTest, continuesAfterShortWrites) {
    operations.longestWrite = 3;
    AtomicFile::write(file, "0123456789", operations);
    EXPECT_EQ(std::count(operations.calls.begin(), operations.calls.end(), "write"), 4);
    EXPECT_EQ(AtomicFile::read(file), "0123456789");
}

TEST_F(AtomicFileFailureTest, repeatsACallThatASignalInterrupted) {
    for (const std::string_view interrupted : {"write", "synchronise", "close"}) {
        SCOPED_TRACE(interrupted);
        HookedFileOperations interruptedTwice;
        interruptedTwice.longestWrite = 2;
        int interruptions = 0;
        interruptedTwice.before = [&](std::size_t /*number*/, std::string_view name) {
            return name == interrupted && interruptions++ % 2 == 0 ? EINTR : 0;
        };
        AtomicFile::write(file, interrupted, interruptedTwice);
        EXPECT_GT(interruptions, 0);
        EXPECT_EQ(AtomicFile::read(file), interrupted);
        EXPECT_THAT(namesIn(folder), ElementsAre("document.json"));
    }
}

TEST_F(AtomicFileFailureTest, closesEveryDescriptorWhicheverCallFails) {
    const auto openDescriptors = [] { return namesIn("/proc/self/fd").size(); };
    const std::size_t before = openDescriptors();
    for (std::size_t failing = 0; failing < kCalls; ++failing) {
        HookedFileOperations failingOnce;
        failAt(failingOnce, failing, EIO);
        (void)writeFailure(file, failingOnce);
    }
    (void)readFailure(folder);
    EXPECT_EQ(openDescriptors(), before);
}

/// Standard input is closed while this lives, so the next file that is opened has the number 0.
class ClosedStandardInput {
public:
    ClosedStandardInput()
        : m_kept(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
        ::close(STDIN_FILENO);
    }
    ClosedStandardInput(const ClosedStandardInput&) = delete;
    ClosedStandardInput& operator=(const ClosedStandardInput&) = delete;
    ClosedStandardInput(ClosedStandardInput&&) = delete;
    ClosedStandardInput& operator=(ClosedStandardInput&&) = delete;
    ~ClosedStandardInput() {
        if (m_kept >= 0) {
            ::dup2(m_kept, STDIN_FILENO);
            ::close(m_kept);
        }
    }

private:
    int m_kept;
};

TEST_F(AtomicFileFailureTest, worksWithADescriptorOfZero) {
    const ClosedStandardInput closed;
    AtomicFile::write(file, "new", operations);
    EXPECT_EQ(AtomicFile::read(file), "new");
    for (std::size_t failing = 0; failing < kCalls; ++failing) {
        HookedFileOperations failingOnce;
        failAt(failingOnce, failing, EIO);
        (void)writeFailure(file, failingOnce);
        EXPECT_EQ(::fcntl(STDIN_FILENO, F_GETFD), -1) << failing << " left it open";
    }
}

// Ends of the process

enum class Moment { beforeCall, afterCall };

// Writes "new" in a process that is killed at a call. Whether it was.
bool isKilledWriting(const path& to, std::size_t call, Moment moment) {
    const pid_t child = ::fork();
    if (child == 0) {
        HookedFileOperations killing;
        killing.longestWrite = 2;
        const auto killAtCall = [call](std::size_t number) {
            if (number == call) {
                ::raise(SIGKILL);
            }
        };
        if (moment == Moment::beforeCall) {
            killing.before = [&](std::size_t number, std::string_view /*name*/) {
                killAtCall(number);
                return 0;
            };
        } else {
            killing.after = killAtCall;
        }
        AtomicFile::write(to, "new", killing);
        ::_exit(0);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

TEST_F(AtomicFileFailureTest, leavesTheOldOrTheNewFileWheneverTheProcessIsKilled) {
    // One write more than above: two bytes, then one.
    constexpr std::size_t kRename = kFirstAfterRename;
    for (const Moment moment : {Moment::beforeCall, Moment::afterCall}) {
        std::size_t call = 0;
        AtomicFile::write(file, "old");
        while (isKilledWriting(file, call, moment)) {
            SCOPED_TRACE(call);
            const bool isRenamed =
                call > kRename || (call == kRename && moment != Moment::beforeCall);
            EXPECT_EQ(AtomicFile::read(file), isRenamed ? "new" : "old");
            AtomicFile::write(file, "old");
            ++call;
        }
        EXPECT_EQ(call, kCalls + 1);
        EXPECT_EQ(AtomicFile::read(file), "new");
    }
}

TEST_F(AtomicFileFailureTest, neverMixesTwoWriters) {
    constexpr int kRounds = 40;
    constexpr std::size_t kSize = 100'000;
    AtomicFile::write(file, std::string(kSize, 'a'));
    std::atomic<int> writing{2};
    const auto writeAll = [&](char letter) {
        HookedFileOperations inPieces;
        inPieces.longestWrite = 10'000;
        for (int round = 0; round < kRounds; ++round) {
            AtomicFile::write(file, std::string(kSize, letter), inPieces);
        }
        --writing;
    };
    std::thread first(writeAll, 'a');
    std::thread second(writeAll, 'b');
    int mixtures = 0;
    do {
        const std::string content = AtomicFile::read(file);
        const bool isOnes = content == std::string(kSize, 'a');
        const bool isOthers = content == std::string(kSize, 'b');
        mixtures += isOnes || isOthers ? 0 : 1;
    } while (writing > 0);
    first.join();
    second.join();
    EXPECT_EQ(mixtures, 0);
    EXPECT_THAT(namesIn(folder), ElementsAre("document.json"));
}

}  // namespace

}  // namespace quillbar
