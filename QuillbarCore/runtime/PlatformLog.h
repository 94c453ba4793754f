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

/// The platform's log. If standard error is the journal (a service, a desktop's autostart) and the
/// journal accepts it, a line goes to the journal, with the subsystem and the category as fields.
/// Otherwise it goes to standard error as one line of text. If standard error is closed, or full
/// because its reader is slow, the line is lost and nothing waits, provided that the program
/// ignores SIGPIPE.
///
/// `OutsideText::oneLine` cleans each text, so that an error's text from a server or another
/// program cannot forge lines or control a terminal. A text of more than `kLongestText` bytes is
/// cut and ends with "…".
class PlatformLog final : public LogSink {
public:
    /// Where a text is cut, in bytes; the "…" that follows is not counted.
    static constexpr std::size_t kLongestText = 1000;

    /// Takes a line's fields, each "NAME=value"; false when there is no journal. May throw.
    using Journal = std::function<bool(std::span<std::string> fields)>;

    /// `journalStream` is $JOURNAL_STREAM, the device and inode of the journal's own stream; null
    /// when it is not set. Only the constructor reads it.
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
