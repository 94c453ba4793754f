// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/LineOutput.h"
#include "Quillbar/platform/TerminationSignals.h"
#include "QuillbarCore/runtime/UnblockedWrite.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QSocketNotifier>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <string>
#include <string_view>
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
        std::array<char, 4096> buffer{};
        const ssize_t count = ::read(m_ends[0], buffer.data(), buffer.size());
        return {buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
    }

    /// Reading does not wait from here on.
    void neverWaits() const { ::fcntl(m_ends[0], F_SETFL, O_NONBLOCK); }

    /// Writes until nothing more is taken. Reading does not wait from here on, either.
    void fill() const {
        neverWaits();
        while (writeUnblocked(m_ends[1], std::string(4096, '.')) > 0) {}
    }

    /// What comes, until it ends with that. Reading does not wait from here on.
    [[nodiscard]] std::string readUntil(std::string_view last) const {
        neverWaits();
        const QSocketNotifier readable(m_ends[0], QSocketNotifier::Read);
        std::string text;
        EXPECT_TRUE(spinUntil([&] {
            text += read();
            return text.ends_with(last);
        }));
        return text;
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
    LineOutput output(m_pipe.writer(), [] {});
    EXPECT_TRUE(output.print("BTC 1.00"));
    EXPECT_EQ(m_pipe.read(), "BTC 1.00\n");
    EXPECT_TRUE(output.print(""));
    EXPECT_EQ(m_pipe.read(), "\n");
}

TEST_F(LineOutputTest, saysWhenNobodyReads) {
    LineOutput output(m_pipe.writer(), [] {});
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
        LineOutput output(file, [] { ADD_FAILURE(); });
        EXPECT_TRUE(output.print("BTC 1.00"));
    }
    ::close(file);
}

TEST_F(LineOutputTest, keepsTheNewestLineForASlowReader) {
    LineOutput output(m_pipe.writer(), [] { ADD_FAILURE(); });
    int written = 0;
    m_pipe.fill();
    EXPECT_TRUE(output.print("one"));
    EXPECT_TRUE(output.print("two"));
    EXPECT_TRUE(output.print("three"));
    output.whenWritten([&written] { ++written; });
    spinUntilIdle();
    EXPECT_EQ(written, 0);
    EXPECT_THAT(m_pipe.readUntil("three\n"), ::testing::EndsWith(".one\nthree\n"));
    EXPECT_TRUE(spinUntil([&written] { return written > 0; }));
    EXPECT_EQ(written, 1);
    EXPECT_TRUE(output.print("four"));
    EXPECT_EQ(m_pipe.read(), "four\n");
}

TEST_F(LineOutputTest, endsALineThatWasBegun) {
    LineOutput output(m_pipe.writer(), [] { ADD_FAILURE(); });
    const std::string one(1'000'000, '1');
    EXPECT_TRUE(output.print(one));
    EXPECT_TRUE(output.print("two"));
    // Not compared by gtest, which would print it all.
    EXPECT_TRUE(m_pipe.readUntil("two\n") == one + "\ntwo\n");
}

TEST_F(LineOutputTest, saysThatTheReaderOfALineThatWaitsHasGone) {
    int closed = 0;
    LineOutput output(m_pipe.writer(), [&closed] { ++closed; });
    m_pipe.fill();
    EXPECT_TRUE(output.print("one"));
    EXPECT_TRUE(output.print("two"));
    output.whenWritten([] { ADD_FAILURE(); });
    m_pipe.closeReader();
    EXPECT_TRUE(spinUntil([&closed] { return closed > 0; }));
    spinUntilIdle();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(output.print("three"));
}

TEST_F(LineOutputTest, tellsFromTheEventLoopThatEverythingIsWritten) {
    LineOutput output(m_pipe.writer(), [] {});
    int written = 0;
    EXPECT_TRUE(output.print("BTC 1.00"));
    output.whenWritten([&written] { ++written; });
    EXPECT_EQ(written, 0);
    EXPECT_TRUE(spinUntil([&written] { return written == 1; }));
}

TEST_F(LineOutputTest, saysWhenTheDiskIsFull) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    EXPECT_FALSE(LineOutput(full, [] {}).print("BTC 1.00"));
    ::close(full);
}

}  // namespace

}  // namespace quillbar
