// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/AtomicFile.h"
#include "tests/runtime/AtomicFileFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillbar {

namespace {

using std::filesystem::path;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

using AtomicFileTest = AtomicFileFixture;

// Reading

TEST_F(AtomicFileTest, readsWhatWasWritten) {
    std::string bytes(200'000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i * 31 % 256);
    }
    for (const std::string& content : {std::string(), std::string("a"), bytes}) {
        AtomicFile::write(file, content);
        EXPECT_EQ(AtomicFile::read(file), content);
    }
}

TEST_F(AtomicFileTest, readsUpToTheMaximumSizeAndNoMore) {
    AtomicFile::write(file, "12345");
    EXPECT_EQ(AtomicFile::read(file, 5), "12345");
    const Failure failure = readFailure(file, 4);
    EXPECT_EQ(failure.text, fmt::format("cannot read {}: over 4 bytes", file.string()));
    EXPECT_EQ(failure.code, EFBIG);
}

TEST_F(AtomicFileTest, cannotReadWhatIsMissing) {
    const Failure failure = readFailure(file);
    EXPECT_EQ(failure.text, fmt::format("cannot open {}: {}", file.string(), reasonOf(ENOENT)));
    EXPECT_EQ(failure.code, ENOENT);
}

TEST_F(AtomicFileTest, cannotReadAFolder) {
    const Failure failure = readFailure(folder);
    EXPECT_EQ(failure.text, fmt::format("cannot read {}: {}", folder.string(), reasonOf(EISDIR)));
    EXPECT_EQ(failure.code, EISDIR);
}

TEST_F(AtomicFileTest, cannotReadAPipeAndDoesNotWaitForItsWriter) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    const Failure failure = readFailure(file);
    EXPECT_EQ(failure.text, fmt::format("cannot read {}: not a regular file", file.string()));
    EXPECT_EQ(failure.code, 0);
}

TEST_F(AtomicFileTest, cannotReadASocket) {
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(file.string().size(), sizeof address.sun_path);
    file.string().copy(address.sun_path, file.string().size());
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(readFailure(file).code, ENXIO);
    ::close(descriptor);
}

TEST_F(AtomicFileTest, cannotReadAFileWhoseBytesCannotBeRead) {
    // A regular file in every respect, but that its first page is no memory.
    const path memory = "/proc/self/mem";
    const Failure failure = readFailure(memory);
    EXPECT_EQ(failure.text, fmt::format("cannot read {}: {}", memory.string(), reasonOf(EIO)));
    EXPECT_EQ(failure.code, EIO);
}

// Writing

TEST_F(AtomicFileTest, makesTheFileAndItsFoldersAccessibleToTheUserOnly) {
    const mode_t previous = ::umask(0);
    const path deep = folder / "a" / "b" / "document.json";
    AtomicFile::write(deep, "new");
    ::umask(previous);
    EXPECT_EQ(AtomicFile::read(deep), "new");
    EXPECT_EQ(modeOf(deep), 0600U);
    EXPECT_EQ(modeOf(folder / "a"), 0700U);
    EXPECT_EQ(modeOf(folder / "a" / "b"), 0700U);
}

TEST_F(AtomicFileTest, replacesTheFileAndLeavesNothingElse) {
    AtomicFile::write(file, "a long old content");
    ASSERT_EQ(::chmod(file.c_str(), 0644), 0);
    AtomicFile::write(file, "new");
    EXPECT_EQ(AtomicFile::read(file), "new");
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_THAT(namesIn(folder), ElementsAre("document.json"));
}

TEST_F(AtomicFileTest, writesAFileInTheCurrentFolder) {
    const path previous = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    AtomicFile::write("document.json", "new");
    std::filesystem::current_path(previous);
    EXPECT_EQ(AtomicFile::read(file), "new");
}

TEST_F(AtomicFileTest, keepsTheOldFileForAReaderThatHasItOpen) {
    AtomicFile::write(file, "old");
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    AtomicFile::write(file, "new");
    std::array<char, 8> buffer{};
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    ::close(descriptor);
    EXPECT_EQ(std::string_view(buffer.data(), static_cast<std::size_t>(count)), "old");
}

TEST_F(AtomicFileTest, cannotReplaceAFolder) {
    std::filesystem::create_directory(file);
    const Failure failure = writeFailure(file, operations);
    EXPECT_EQ(failure.text, fmt::format("cannot replace {}: {}", file.string(), reasonOf(EISDIR)));
    EXPECT_EQ(failure.code, EISDIR);
    EXPECT_THAT(namesIn(folder), ElementsAre("document.json"));
}

TEST_F(AtomicFileTest, cannotWriteBelowAFile) {
    AtomicFile::write(file, "old");
    const Failure failure = writeFailure(file / "document.json", operations);
    EXPECT_EQ(failure.code, ENOTDIR);
    EXPECT_THAT(failure.text, HasSubstr(file.string()));
    EXPECT_EQ(AtomicFile::read(file), "old");
}

// Symbolic links

TEST_F(AtomicFileTest, replacesTheTargetOfASymbolicLink) {
    const path real = folder / "elsewhere" / "real.json";
    AtomicFile::write(real, "old");
    std::filesystem::create_symlink(real, file);
    AtomicFile::write(file, "new");
    EXPECT_EQ(std::filesystem::read_symlink(file), real);
    EXPECT_EQ(AtomicFile::read(real), "new");
    EXPECT_THAT(namesIn(folder / "elsewhere"), ElementsAre("real.json"));
    EXPECT_THAT(namesIn(folder), UnorderedElementsAre("document.json", "elsewhere"));
}

TEST_F(AtomicFileTest, followsAChainOfRelativeSymbolicLinks) {
    std::filesystem::create_directories(folder / "one");
    std::filesystem::create_directories(folder / "two");
    AtomicFile::write(folder / "two" / "real.json", "old");
    std::filesystem::create_symlink("../two/real.json", folder / "one" / "link");
    std::filesystem::create_symlink("one/link", file);
    AtomicFile::write(file, "new");
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "one" / "link"));
    EXPECT_EQ(AtomicFile::read(folder / "two" / "real.json"), "new");
}

TEST_F(AtomicFileTest, makesTheMissingTargetOfASymbolicLink) {
    const path real = folder / "not yet" / "real.json";
    std::filesystem::create_symlink(real, file);
    AtomicFile::write(file, "new");
    EXPECT_EQ(std::filesystem::read_symlink(file), real);
    EXPECT_EQ(AtomicFile::read(real), "new");
    EXPECT_EQ(modeOf(folder / "not yet"), 0700U);
}

TEST_F(AtomicFileTest, followsAsManySymbolicLinksAsTheSystemDoesButOne) {
    const auto link = [this](int number) { return folder / fmt::format("link{}", number); };
    AtomicFile::write(link(0), "old");
    for (int number = 1; number <= 40; ++number) {
        std::filesystem::create_symlink(link(number - 1).filename(), link(number));
    }
    AtomicFile::write(link(39), "new");
    EXPECT_EQ(AtomicFile::read(link(0)), "new");
    EXPECT_EQ(failureOf([&] { AtomicFile::write(link(40), "newer"); }).code, ELOOP);
    EXPECT_EQ(AtomicFile::read(link(0)), "new");
}

TEST_F(AtomicFileTest, namesAnErrorThatTheSystemDoesNotKnow) {
    constexpr int kNoError = 9999;
    operations.before = [](std::size_t /*number*/, std::string_view name) {
        return name == "rename" ? kNoError : 0;
    };
    const Failure failure = writeFailure(file, operations);
    EXPECT_EQ(failure.text, fmt::format("cannot replace {}: unknown error", file.string()));
    EXPECT_EQ(failure.code, kNoError);
}

TEST_F(AtomicFileTest, cannotFollowSymbolicLinksInACircle) {
    std::filesystem::create_symlink("other", file);
    std::filesystem::create_symlink("document.json", folder / "other");
    const Failure failure = writeFailure(file, operations);
    EXPECT_EQ(failure.text, fmt::format("cannot follow {}: {}", file.string(), reasonOf(ELOOP)));
    EXPECT_EQ(failure.code, ELOOP);
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_THAT(namesIn(folder), UnorderedElementsAre("document.json", "other"));
}

}  // namespace

}  // namespace quillbar
