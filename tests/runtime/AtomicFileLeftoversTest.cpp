// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/runtime/AtomicFileFixture.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace quillbar {

namespace {

using std::chrono::seconds;
using std::filesystem::path;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

/// What processes that were killed while they wrote have left.
struct AtomicFileLeftoversTest : AtomicFileFixture {
    /// Makes a file that was written so long before now; after, when negative.
    void leave(const std::string& name, seconds age) {
        std::ofstream(folder / name) << "half of the by";
        std::filesystem::last_write_time(folder / name,
                                         std::filesystem::file_time_type::clock::now() - age);
    }
};

TEST_F(AtomicFileLeftoversTest, areRemovedByTheNextSave) {
    AtomicFile::write(file, "old");
    const pid_t writer = ::fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
        HookedFileOperations killed;
        killed.before = [](std::size_t /*number*/, std::string_view name) {
            return name == "rename" ? ::raise(SIGKILL) : 0;
        };
        AtomicFile::write(file, "new", killed);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(writer, &status, 0), writer);
    ASSERT_TRUE(WIFSIGNALED(status));
    std::vector<std::string> names = namesIn(folder);
    ASSERT_EQ(names.size(), 2U);
    const std::string left = names.front() == "document.json" ? names.back() : names.front();

    AtomicFile::write(file, "newer");
    EXPECT_THAT(namesIn(folder), UnorderedElementsAre("document.json", left))
        << "it may be that of a process that writes just now";
    leave(left, seconds{61});
    AtomicFile::write(file, "newest");
    EXPECT_THAT(namesIn(folder), ElementsAre("document.json"));
    EXPECT_EQ(AtomicFile::read(file), "newest");
}

TEST_F(AtomicFileLeftoversTest, areRemovedAfterTheClockWasSetBack) {
    leave(".document.json.saving-abcdef", -seconds{3600});
    AtomicFile::write(file, "new");
    EXPECT_THAT(namesIn(folder), ElementsAre("document.json"));
}

TEST_F(AtomicFileLeftoversTest, stayWhenASaveDoesNotWaitForTheDisk) {
    leave(".document.json.saving-abcdef", seconds{61});
    AtomicFile::write(file, "new", operations, AtomicFile::Durability::process);
    EXPECT_THAT(namesIn(folder),
                UnorderedElementsAre("document.json", ".document.json.saving-abcdef"));
}

TEST_F(AtomicFileLeftoversTest, otherFilesAreNotRemoved) {
    const std::vector<std::string> kept{".document.json.saving-abcde",
                                        ".document.json.saving-abcdefg",
                                        ".document.json.backup",
                                        ".other.json.saving-abcdef",
                                        "document.json.saving-abcdef",
                                        "document.json.bak"};
    for (const std::string& name : kept) {
        leave(name, seconds{1'000'000});
    }
    std::filesystem::create_directory(folder / ".document.json.saving-folder");
    std::filesystem::last_write_time(
        folder / ".document.json.saving-folder",
        std::filesystem::file_time_type::clock::now() - seconds{1'000'000});
    AtomicFile::write(file, "new");
    const auto names = namesIn(folder);
    EXPECT_EQ(names.size(), kept.size() + 2);
    for (const std::string& name : kept) {
        EXPECT_THAT(names, Contains(name));
    }
    EXPECT_THAT(names, Contains(".document.json.saving-folder"));
}

TEST_F(AtomicFileLeftoversTest, doNotFailTheSaveWhenTheyCannotBeRemoved) {
    leave(".document.json.saving-abcdef", seconds{61});
    operations.before = [](std::size_t /*number*/, std::string_view name) {
        return name == "remove" ? EACCES : 0;
    };
    AtomicFile::write(file, "new", operations);
    EXPECT_EQ(AtomicFile::read(file), "new");
    EXPECT_THAT(operations.calls, Contains("remove"));
}

TEST_F(AtomicFileLeftoversTest, stayWhenASaveFails) {
    leave(".document.json.saving-abcdef", seconds{61});
    operations.before = [](std::size_t /*number*/, std::string_view name) {
        return name == "rename" ? EIO : 0;
    };
    EXPECT_EQ(writeFailure(file, operations).code, EIO);
    EXPECT_THAT(namesIn(folder), ElementsAre(".document.json.saving-abcdef"));
}

}  // namespace

}  // namespace quillbar
