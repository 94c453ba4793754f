// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/UnblockedWrite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quillbar {

namespace {

// A reader and a writer of something that holds only so much.
class Channel {
public:
    Channel(int reader, int writer)
        : m_reader(reader)
        , m_writer(writer) {}
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;
    Channel(Channel&&) = delete;
    Channel& operator=(Channel&&) = delete;
    ~Channel() {
        ::close(m_reader);
        ::close(m_writer);
    }

    [[nodiscard]] int writer() const { return m_writer; }

    // Writes until nothing more is taken; how much was.
    [[nodiscard]] std::size_t fill() const {
        std::size_t total = 0;
        // A pipe that has no room for many may still have some for one.
        for (const std::string& bytes : {std::string(1000, 'a'), std::string("a")}) {
            ssize_t written = 0;
            while ((written = writeUnblocked(m_writer, bytes)) > 0) {
                total += static_cast<std::size_t>(written);
            }
            EXPECT_EQ(written, -1);
            EXPECT_EQ(errno, EAGAIN);
        }
        return total;
    }

    void drain(std::size_t size) const {
        std::array<char, 1000> buffer{};
        while (size > 0) {
            const ssize_t count = ::read(m_reader, buffer.data(), std::min(buffer.size(), size));
            ASSERT_GT(count, 0);
            size -= static_cast<std::size_t>(count);
        }
    }

    void expectThatItNeverWaits() const {
        const int flags = ::fcntl(m_writer, F_GETFL);
        const std::size_t size = fill();
        EXPECT_GT(size, 0U);
        drain(size);
        EXPECT_EQ(writeUnblocked(m_writer, "b"), 1);
        EXPECT_EQ(::fcntl(m_writer, F_GETFL), flags);
    }

private:
    int m_reader;
    int m_writer;
};

/// Nothing can be opened while this lives.
class NoFreeDescriptor {
public:
    NoFreeDescriptor() {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &m_before), 0);
        // Not zero, because ::poll refuses more descriptors than the limit.
        set({.rlim_cur = 1, .rlim_max = m_before.rlim_max});
    }
    NoFreeDescriptor(const NoFreeDescriptor&) = delete;
    NoFreeDescriptor& operator=(const NoFreeDescriptor&) = delete;
    NoFreeDescriptor(NoFreeDescriptor&&) = delete;
    NoFreeDescriptor& operator=(NoFreeDescriptor&&) = delete;
    ~NoFreeDescriptor() { set(m_before); }

private:
    static void set(const rlimit& limit) { EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0); }

    rlimit m_before{};
};

TEST(UnblockedWriteTest, neverWaitsForTheReaderOfAPipe) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    Channel(ends[0], ends[1]).expectThatItNeverWaits();
}

TEST(UnblockedWriteTest, neverWaitsForTheReaderOfAPipeThatCannotBeOpenedAgain) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    const Channel channel(ends[0], ends[1]);
    const NoFreeDescriptor none;
    channel.expectThatItNeverWaits();
    channel.drain(1);
    EXPECT_EQ(writeUnblocked(channel.writer(), std::string(1'000'000, 'a')), PIPE_BUF)
        << "more might wait";
}

TEST(UnblockedWriteTest, neverWaitsForTheReaderOfASocket) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    Channel(ends[0], ends[1]).expectThatItNeverWaits();
}

TEST(UnblockedWriteTest, neverWaitsForATerminalThatIsStopped) {
    const int screen = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_EQ(::grantpt(screen), 0);
    ASSERT_EQ(::unlockpt(screen), 0);
    Channel(screen, ::open(::ptsname(screen), O_RDWR | O_NOCTTY | O_CLOEXEC))
        .expectThatItNeverWaits();
}

TEST(UnblockedWriteTest, saysThatAPipeHasNoReader) {
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    ::close(ends[0]);
    EXPECT_EQ(writeUnblocked(ends[1], "a"), -1);
    EXPECT_EQ(errno, EPIPE);
    ::close(ends[1]);
    std::signal(SIGPIPE, SIG_DFL);
}

TEST(UnblockedWriteTest, saysWhyAFileTakesNothing) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(writeUnblocked(full, "a"), -1);
    EXPECT_EQ(errno, ENOSPC);
    ::close(full);
    EXPECT_EQ(writeUnblocked(full, "a"), -1);
    EXPECT_EQ(errno, EBADF);
}

}  // namespace

}  // namespace quillbar
