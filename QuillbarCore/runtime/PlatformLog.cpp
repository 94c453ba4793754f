// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/PlatformLog.h"

#include "QuillbarCore/runtime/OutsideText.h"
#include "QuillbarCore/runtime/UnblockedWrite.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <sys/stat.h>
#include <sys/uio.h>
#include <syslog.h>
#include <unistd.h>
#include <utility>
#include <vector>

// The journal would record this file as the source of every line.
#define SD_JOURNAL_SUPPRESS_LOCATION
#include <systemd/sd-journal.h>

namespace quillbar {

namespace {

bool isJournal(int descriptor, const char* journalStream) {
    struct stat status {};
    return journalStream != nullptr && ::fstat(descriptor, &status) == 0
           && fmt::format("{}:{}", status.st_dev, status.st_ino) == journalStream;
}

}  // namespace

PlatformLog::PlatformLog(int standardError, const char* journalStream, Journal journal)
    : m_standardError(standardError)
    , m_journal(std::move(journal))
    , m_isStandardErrorJournal(isJournal(standardError, journalStream)) {}

void PlatformLog::write(std::string_view category, LogLevel level, std::string_view text) noexcept {
    try {
        // Cut after cleaning, because replacing invalid UTF-8 makes the text longer.
        const std::string line = OutsideText::shortened(OutsideText::oneLine(text), kLongestText);
        if (!m_isStandardErrorJournal || !writeToJournal(category, level, line)) {
            writeToStandardError(category, level, line);
        }
    } catch (...) {
        // Out of memory: lose the line rather than end the program.
    }
}

bool PlatformLog::sendToJournal(std::span<std::string> fields, const char* socket) {
    // sd_journal_sendv reports success when nobody listens.
    if (::access(socket, F_OK) != 0) {
        return false;
    }
    std::vector<iovec> vectors;
    std::transform(
        fields.begin(), fields.end(), std::back_inserter(vectors), [](std::string& field) {
            return iovec{field.data(), field.size()};
        });
    return ::sd_journal_sendv(vectors.data(), static_cast<int>(vectors.size())) == 0;
}

bool PlatformLog::writeToJournal(std::string_view category,
                                 LogLevel level,
                                 std::string_view text) const {
    std::array<std::string, 5> fields{
        fmt::format("MESSAGE={}", text),
        fmt::format("PRIORITY={}", level == LogLevel::error ? LOG_ERR : LOG_NOTICE),
        "SYSLOG_IDENTIFIER=quillbar",
        fmt::format("QUILLBAR_SUBSYSTEM={}", Logger::kSubsystem),
        fmt::format("QUILLBAR_CATEGORY={}", category),
    };
    return m_journal(fields);
}

void PlatformLog::writeToStandardError(std::string_view category,
                                       LogLevel level,
                                       std::string_view text) const {
    const std::string_view levelName = level == LogLevel::error ? "error" : "default";
    const std::string line = fmt::format("quillbar: {} {}: {}\n", category, levelName, text);
    // One call, so that lines of several threads do not mix. It does not wait for the log's reader.
    [[maybe_unused]] const auto written = writeUnblocked(m_standardError, line);
}

}  // namespace quillbar
