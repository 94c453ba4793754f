// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/UnblockedWrite.h"
#include "tests/label/LabelProgramFixture.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QSocketNotifier>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace quillbar {

namespace {

using ::testing::EndsWith;

// The program's standard output or error as a pipe that nobody reads.
class FullPipe {
public:
    FullPipe() {
        EXPECT_EQ(::pipe2(m_ends.data(), O_CLOEXEC), 0);
        while (writeUnblocked(m_ends[1], std::string(4096, '.')) > 0) {}
    }
    FullPipe(const FullPipe&) = delete;
    FullPipe& operator=(const FullPipe&) = delete;
    FullPipe(FullPipe&&) = delete;
    FullPipe& operator=(FullPipe&&) = delete;
    ~FullPipe() {
        ::close(m_ends[0]);
        ::close(m_ends[1]);
    }

    void becomes(QProcess& process, int descriptor) const {
        process.setChildProcessModifier(
            [writer = m_ends[1], descriptor] { ::dup2(writer, descriptor); });
    }

    // What stands in the pipe, read until it ends with that.
    [[nodiscard]] bool yields(std::string_view last) const {
        ::fcntl(m_ends[0], F_SETFL, O_NONBLOCK);
        const QSocketNotifier readable(m_ends[0], QSocketNotifier::Read);
        std::string text;
        return spinUntil([&] {
            std::array<char, 4096> buffer{};
            const ssize_t count = ::read(m_ends[0], buffer.data(), buffer.size());
            text.append(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
            return text.ends_with(last);
        });
    }

private:
    std::array<int, 2> m_ends{-1, -1};
};

class LabelProgramEndTest : public LabelProgramFixture {
protected:
    // Until the program has had a line to write.
    [[nodiscard]] bool hasAPrice() {
        return spinUntil(
            [&] { return m_binance.openStreams() == 1 && m_binance.requests().size() > 1; });
    }

    // Every lookup of a name from here on lasts.
    void theResolverDoesNotAnswer() {
        m_environment.insert(QStringLiteral("LD_PRELOAD"),
                             QStringLiteral(QUILLBAR_SILENT_RESOLVER));
        m_environment.insert(QStringLiteral("QUILLBAR_REST_ENDPOINTS"),
                             QStringLiteral("https://exchange.test/api/v3"));
        m_environment.insert(QStringLiteral("QUILLBAR_STREAM_ENDPOINTS"),
                             QStringLiteral("wss://exchange.test"));
    }
};

TEST_F(LabelProgramEndTest, endsAtOnceWhileItsReaderIsSlow) {
    const FullPipe output;
    output.becomes(m_label, STDOUT_FILENO);
    for (const int signal : {SIGINT, SIGTERM}) {
        run({QStringLiteral("--follow")});
        ASSERT_TRUE(hasAPrice());
        send(signal);
        EXPECT_EQ(exitStatus(kAtOnce), 0) << signal;
        m_binance.forgetRequests();
    }
}

TEST_F(LabelProgramEndTest, endsAtOnceWhileNobodyReadsItsLog) {
    const FullPipe errors;
    errors.becomes(m_label, STDERR_FILENO);
    theWatchlistIs("nonsense");
    run({QStringLiteral("--follow")});
    ASSERT_TRUE(printsLine("BTC 67,"));
    send(SIGTERM);
    EXPECT_EQ(exitStatus(kAtOnce), 0);
}

TEST_F(LabelProgramEndTest, keepsItsLineForAReaderWhoComesLate) {
    const FullPipe output;
    output.becomes(m_label, STDOUT_FILENO);
    theWatchlistIs(R"({"schemaVersion":1,"coins":[]})");
    run({QStringLiteral("--once")});
    EXPECT_TRUE(output.yields("Quillbar\n"));
    EXPECT_EQ(exitStatus(), 3);
}

TEST_F(LabelProgramEndTest, endsAtOnceWhileANameIsLookedUp) {
    theResolverDoesNotAnswer();
    for (const int signal : {SIGINT, SIGTERM}) {
        m_errors.clear();
        run({QStringLiteral("--follow")});
        ASSERT_TRUE(complainsOf("looking up exchange.test\n"));
        send(signal);
        EXPECT_EQ(exitStatus(kAtOnce), 0) << signal;
    }
}

TEST_F(LabelProgramEndTest, failsWhenItsLineCannotBeWritten) {
    theWatchlistIs(R"({"schemaVersion":1,"coins":[]})");
    for (const char* const command : {"\"$0\" --once >/dev/full",
                                      "\"$0\" --once >&-",
                                      "\"$0\" --boards >/dev/full",
                                      "\"$0\" --help >/dev/full",
                                      "\"$0\" --version >&-"}) {
        SCOPED_TRACE(command);
        runInShell(command);
        EXPECT_EQ(exitStatus(), 4);
    }
    EXPECT_EQ(m_output, "");
}

TEST_F(LabelProgramEndTest, failsWithItsStatusEvenIfNobodyCanBeTold) {
    for (const char* const command :
         {"\"$0\" --bogus 2>&-", "\"$0\" --bogus 2>/dev/full", "\"$0\" --bogus 0<&- >&- 2>&-"}) {
        SCOPED_TRACE(command);
        runInShell(command);
        EXPECT_EQ(exitStatus(), 2);
    }
}

TEST_F(LabelProgramEndTest, printsWithoutAnInputAndALog) {
    runInShell("\"$0\" --once 0<&- 2>&-");
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, EndsWith("%\n"));
}

TEST_F(LabelProgramEndTest, tooFewOpenFilesAreTold) {
    runInShell("ulimit -n 8; exec \"$0\" --once");
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_TRUE(complainsOf("ulimit -n"));
}

}  // namespace

}  // namespace quillbar
