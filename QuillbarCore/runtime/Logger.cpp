// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Logger.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <iterator>
#include <sys/stat.h>
#include <sys/uio.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

namespace quillbar {

namespace {

std::string_view nameOf(LogLevel level) {
    return level == LogLevel::error ? "error" : "default";
}

// Standard error is the journal's own socket when $JOURNAL_STREAM names its device and inode.
bool standardErrorIsJournal() {
    const char* const stream = std::getenv("JOURNAL_STREAM");
    struct stat status {};
    return stream != nullptr && ::fstat(STDERR_FILENO, &status) == 0
           && fmt::format("{}:{}", status.st_dev, status.st_ino) == stream;
}

class PlatformSink final : public LogSink {
public:
    void write(std::string_view category, LogLevel level, std::string_view text) noexcept override {
        try {
            if (!m_toJournal || !writeToJournal(category, level, text)) {
                writeToStandardError(category, level, text);
            }
        } catch (...) {
            // A line that cannot be built (out of memory) is not worth the program.
        }
    }

private:
    static bool writeToJournal(std::string_view category, LogLevel level, std::string_view text) {
        std::array<std::string, 5> fields{
            fmt::format("MESSAGE={}", text),
            fmt::format("PRIORITY={}", level == LogLevel::error ? LOG_ERR : LOG_NOTICE),
            fmt::format("QUILLBAR_SUBSYSTEM={}", Logger::kSubsystem),
            fmt::format("QUILLBAR_CATEGORY={}", category),
            fmt::format("SYSLOG_IDENTIFIER={}", "quillbar"),
        };
        std::array<iovec, 5> vectors{};
        std::transform(fields.begin(), fields.end(), vectors.begin(), [](std::string& field) {
            return iovec{field.data(), field.size()};
        });
        return ::sd_journal_sendv(vectors.data(), static_cast<int>(vectors.size())) == 0;
    }

    static void writeToStandardError(std::string_view category,
                                     LogLevel level,
                                     std::string_view text) {
        std::string line = fmt::format("quillbar: {} {}: {}", category, nameOf(level), text);
        // One line of log is one line on the terminal, whatever an error's text holds.
        std::replace_if(
            line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
        line += '\n';
        // One call, so that lines of several threads do not mix. A closed standard error is no
        // reason to stop.
        [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
    }

    const bool m_toJournal = standardErrorIsJournal();
};

// Never destroyed: objects that log may be destroyed after it.
LogSink& platformSink() {
    static auto* const sink = new PlatformSink;
    return *sink;
}

std::atomic<LogSink*> currentSink{nullptr};

}  // namespace

LogSink* Logger::setSink(LogSink* sink) noexcept {
    return currentSink.exchange(sink);
}

void Logger::write(LogLevel level, std::string text) const noexcept {
    LogSink* const sink = currentSink.load();
    (sink != nullptr ? *sink : platformSink()).write(m_category, level, text);
}

}  // namespace quillbar
