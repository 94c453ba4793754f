// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/LineOutput.h"
#include "Quillbar/platform/TerminationSignals.h"
#include "tests/qtsupport/SpinUntil.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace quillbar {

namespace {

class Pipe {
public:
    Pipe() { EXPECT_EQ(::pipe2(m_ends.data(), O_CLOEXEC), 0); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    Pipe(Pipe&&) = delete;
    Pipe& operator=(Pipe&&) = delete;
    ~Pipe() {
        closeReader();
        ::close(m_ends[1]);
    }

    [[nodiscard]] int writer() const { return m_ends[1]; }

    [[nodiscard]] std::string read() const {
        std::array<char, 256> buffer{};
        const ssize_t count = ::read(m_ends[0], buffer.data(), buffer.size());
        return {buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
    }

    void closeReader() {
        if (m_ends[0] >= 0) {
            ::close(std::exchange(m_ends[0], -1));
        }
    }

private:
    std::array<int, 2> m_ends{-1, -1};
};

// A write to a closed pipe must fail instead of ending the process.
class LineOutputTest : public ::testing::Test {
protected:
    TerminationSignals m_signals{[] {}};
    Pipe m_pipe;
};

TEST_F(LineOutputTest, writesEachLineAtOnce) {
    const LineOutput output(m_pipe.writer(), [] {});
    EXPECT_TRUE(output.print("BTC 1.00"));
    EXPECT_EQ(m_pipe.read(), "BTC 1.00\n");
    EXPECT_TRUE(output.print(""));
    EXPECT_EQ(m_pipe.read(), "\n");
}

TEST_F(LineOutputTest, saysWhenNobodyReads) {
    const LineOutput output(m_pipe.writer(), [] {});
    m_pipe.closeReader();
    EXPECT_FALSE(output.print("BTC 1.00"));
}

TEST_F(LineOutputTest, noticesThatTheReaderHasGoneWithoutWriting) {
    int closed = 0;
    const LineOutput output(m_pipe.writer(), [&closed] { ++closed; });
    m_pipe.closeReader();
    EXPECT_TRUE(spinUntil([&closed] { return closed > 0; }));
    EXPECT_EQ(closed, 1);
}

TEST_F(LineOutputTest, writesToAFileWithoutWatchingIt) {
    const int file = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    {
        const LineOutput output(file, [] { ADD_FAILURE(); });
        EXPECT_TRUE(output.print("BTC 1.00"));
    }
    ::close(file);
}

TEST_F(LineOutputTest, saysWhenTheDiskIsFull) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    EXPECT_FALSE(LineOutput(full, [] {}).print("BTC 1.00"));
    ::close(full);
}

}  // namespace

}  // namespace quillbar
