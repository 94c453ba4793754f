// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Logger.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace quillbar {

/// The platform's log. Lines go to the journal, with the subsystem and the category as fields of
/// their own, when the process's standard error is the journal (a service, a desktop's autostart)
/// and the journal takes them; else to standard error, each as one line of text. A standard error
/// that is closed, or full because its reader is slow, loses the line and stops nothing, provided
/// that the program ignores SIGPIPE.
///
/// One line of log is one line and commands no terminal, whatever a server or another program put
/// into an error's text (`OutsideText::oneLine`). Its text has at most `kLongestText` bytes, and one
/// "…" more when it was cut.
class PlatformLog final : public LogSink {
public:
    /// Where a text is cut, in bytes; the "…" that follows is not counted.
    static constexpr std::size_t kLongestText = 1000;

    /// Takes a line's fields, each "NAME=value"; false when there is no journal. May throw.
    using Journal = std::function<bool(std::span<std::string> fields)>;

    /// `journalStream` is $JOURNAL_STREAM, the device and inode of the journal's own stream; null
    /// when it is not set. Reads it here alone.
    PlatformLog(int standardError, const char* journalStream, Journal journal);

    void write(std::string_view category, LogLevel level, std::string_view text) noexcept override;

    /// Sends the fields to the journal that listens at `socket`; false when none does, as in a
    /// container.
    [[nodiscard]] static bool sendToJournal(std::span<std::string> fields,
                                            const char* socket = "/run/systemd/journal/socket");

private:
    [[nodiscard]] bool writeToJournal(std::string_view category,
                                      LogLevel level,
                                      std::string_view text) const;
    void writeToStandardError(std::string_view category,
                              LogLevel level,
                              std::string_view text) const;

    int m_standardError;
    Journal m_journal;
    bool m_isStandardErrorJournal;
};

}  // namespace quillbar
