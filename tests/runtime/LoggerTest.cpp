// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/PlatformLog.h"
#include "QuillbarCore/runtime/UnblockedWrite.h"
#include "tests/support/CapturedLog.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <span>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Logger kLogger("Coins");

TEST(LoggerTest, givesItsLinesToTheSink) {
    const CapturedLog log;
    kLogger.log("{} coins in {} s", 3, 1.5);
    kLogger.error("no {}", "answer");
    kLogger.log("no arguments: 100 %");
    EXPECT_THAT(log.lines(),
                ElementsAre("Coins|default|3 coins in 1.5 s",
                            "Coins|error|no answer",
                            "Coins|default|no arguments: 100 %"));
}

TEST(LoggerTest, givesItsLinesToThePreviousSinkWhenOneIsRemoved) {
    const CapturedLog outer;
    {
        const CapturedLog inner;
        kLogger.log("inner");
        EXPECT_THAT(inner.lines(), ElementsAre("Coins|default|inner"));
    }
    kLogger.log("outer");
    EXPECT_THAT(outer.lines(), ElementsAre("Coins|default|outer"));
}

TEST(LoggerTest, tellsWhichSinkWasThere) {
    const CapturedLog outer;
    CapturedLog inner;
    EXPECT_EQ(Logger::setSink(nullptr), &inner);
    EXPECT_EQ(Logger::setSink(&inner), nullptr);
}

TEST(LoggerTest, mayBeUsedFromAnyThread) {
    const CapturedLog log;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int line = 0; line < 100; ++line) {
                kLogger.log("line {}", line);
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(log.lines().size(), 400U);
}

class Pipe {
public:
    Pipe() { EXPECT_EQ(::pipe(m_ends.data()), 0); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    Pipe(Pipe&&) = delete;
    Pipe& operator=(Pipe&&) = delete;
    ~Pipe() {
        closeReading();
        closeWriting();
    }

    [[nodiscard]] int writing() const { return m_ends[1]; }
    void closeReading() { close(m_ends[0]); }
    void closeWriting() { close(m_ends[1]); }

    // All that was written.
    [[nodiscard]] std::string readAll() {
        closeWriting();
        std::string text;
        std::array<char, 4096> buffer{};
        for (;;) {
            const ssize_t count = ::read(m_ends[0], buffer.data(), buffer.size());
            if (count <= 0) {
                return text;
            }
            text.append(buffer.data(), static_cast<std::size_t>(count));
        }
    }

private:
    static void close(int& end) {
        if (end >= 0) {
            ::close(std::exchange(end, -1));
        }
    }

    std::array<int, 2> m_ends{-1, -1};
};

// Runs `action` in a process of its own with that standard error, and no sink but the platform's.
// Returns how the process ended, as waitpid does.
int statusOfProcess(int standardError, const std::function<void()>& action) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(standardError, STDERR_FILENO);
        Logger::setSink(nullptr);
        action();
        ::_exit(0);
    }
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return status;
}

TEST(LoggerTest, writesToStandardErrorWithoutASink) {
    Pipe pipe;
    EXPECT_EQ(statusOfProcess(pipe.writing(),
                              [] {
                                  ::unsetenv("JOURNAL_STREAM");
                                  kLogger.log("3 coins");
                                  kLogger.error("no answer");
                              }),
              0);
    EXPECT_EQ(pipe.readAll(),
              "quillbar: Coins default: 3 coins\n"
              "quillbar: Coins error: no answer\n");
}

TEST(LoggerTest, writesARepeatedLineOnce) {
    Pipe pipe;
    EXPECT_EQ(statusOfProcess(pipe.writing(),
                              [] {
                                  ::unsetenv("JOURNAL_STREAM");
                                  for (int times = 0; times < 1000; ++times) {
                                      kLogger.error("no answer");
                                  }
                              }),
              0);
    EXPECT_EQ(pipe.readAll(), "quillbar: Coins error: no answer\n");
}

TEST(LoggerTest, survivesAStandardErrorWhoseReaderHasGone) {
    Pipe pipe;
    pipe.closeReading();
    EXPECT_EQ(statusOfProcess(pipe.writing(),
                              [] {
                                  std::signal(SIGPIPE, SIG_IGN);
                                  kLogger.log("3 coins");
                              }),
              0);
}

TEST(LoggerTest, survivesAClosedStandardError) {
    EXPECT_EQ(statusOfProcess(STDERR_FILENO,
                              [] {
                                  ::close(STDERR_FILENO);
                                  kLogger.log("3 coins");
                              }),
              0);
}

TEST(LoggerTest, dropsALineRatherThanWaitForASlowReader) {
    Pipe pipe;
    std::string before;
    for (const std::string bytes(4096, 'a'); writeUnblocked(pipe.writing(), bytes) > 0;) {
        before += bytes;
    }
    EXPECT_EQ(statusOfProcess(pipe.writing(),
                              [] {
                                  ::unsetenv("JOURNAL_STREAM");
                                  ::alarm(10);
                                  kLogger.log("3 coins");
                              }),
              0);
    EXPECT_EQ(pipe.readAll(), before);
}

// A platform log on a pipe, and a journal that records.
struct PlatformLogTest : ::testing::Test {
    // The log of a process whose $JOURNAL_STREAM is this.
    [[nodiscard]] PlatformLog logWith(const char* journalStream) {
        return PlatformLog(pipe.writing(), journalStream, [this](std::span<std::string> fields) {
            if (!isJournalThere) {
                return false;
            }
            journalled.assign(fields.begin(), fields.end());
            return true;
        });
    }

    [[nodiscard]] std::string streamOfPipe() const {
        struct stat status {};
        EXPECT_EQ(::fstat(pipe.writing(), &status), 0);
        return fmt::format("{}:{}", status.st_dev, status.st_ino);
    }

    Pipe pipe;
    bool isJournalThere = true;
    std::vector<std::string> journalled;
};

TEST_F(PlatformLogTest, writesOneLineWhateverItsTextHolds) {
    logWith(nullptr).write("Coins", LogLevel::error, "a\nb\r\nc\t\x1B[2Jd\x7F\xC3\xA9");
    EXPECT_EQ(pipe.readAll(), "quillbar: Coins error: a b  c  [2Jd \xC3\xA9\n");
}

TEST_F(PlatformLogTest, removesControlAndDirectionCharacters) {
    logWith(nullptr).write("Coins", LogLevel::error, "a\u009b2Jb\u202ec\u2028d\xff");
    EXPECT_EQ(pipe.readAll(), "quillbar: Coins error: a 2Jbc d\uFFFD\n");
}

TEST_F(PlatformLogTest, cutsALineThatAnotherProgramMadeLong) {
    logWith(nullptr).write("Coins", LogLevel::error, std::string(1001, 'a'));
    EXPECT_EQ(pipe.readAll(), "quillbar: Coins error: " + std::string(1000, 'a') + "…\n");
}

TEST_F(PlatformLogTest, cutsALineThatBecomesLongByCleaning) {
    logWith(nullptr).write("Coins", LogLevel::error, std::string(1000, '\xff'));
    std::string kept;
    for (int character = 0; character < 333; ++character) {
        kept += "\uFFFD";
    }
    EXPECT_EQ(pipe.readAll(), "quillbar: Coins error: " + kept + "…\n");
}

TEST_F(PlatformLogTest, writesToStandardErrorWhenThatIsNotTheJournal) {
    logWith("1:2").write("Coins", LogLevel::standard, "text");
    EXPECT_EQ(pipe.readAll(), "quillbar: Coins default: text\n");
    EXPECT_THAT(journalled, IsEmpty());
}

TEST_F(PlatformLogTest, sendsToTheJournalWhenStandardErrorIsTheJournal) {
    logWith(streamOfPipe().c_str()).write("Coins", LogLevel::standard, "two\nlines\u202e");
    EXPECT_EQ(pipe.readAll(), "");
    EXPECT_THAT(journalled,
                ElementsAre("MESSAGE=two lines",
                            "PRIORITY=5",
                            "SYSLOG_IDENTIFIER=quillbar",
                            "QUILLBAR_SUBSYSTEM=io.github.quillbar.Quillbar",
                            "QUILLBAR_CATEGORY=Coins"));
}

TEST_F(PlatformLogTest, sendsAnErrorWithItsPriority) {
    logWith(streamOfPipe().c_str()).write("Coins", LogLevel::error, "text");
    ASSERT_EQ(journalled.size(), 5U);
    EXPECT_EQ(journalled[1], "PRIORITY=3");
}

TEST_F(PlatformLogTest, writesToStandardErrorWhenNoJournalTakesTheLine) {
    isJournalThere = false;
    logWith(streamOfPipe().c_str()).write("Coins", LogLevel::standard, "text");
    EXPECT_EQ(pipe.readAll(), "quillbar: Coins default: text\n");
}

TEST_F(PlatformLogTest, findsNoJournalWhereNoneListens) {
    std::vector<std::string> fields{"MESSAGE=text"};
    EXPECT_FALSE(PlatformLog::sendToJournal(fields, "/nonexistent/socket"));
}

}  // namespace

}  // namespace quillbar
