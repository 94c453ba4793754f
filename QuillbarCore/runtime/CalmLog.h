// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Logger.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// Passes log lines on, but a repeated line only once a minute, with its count: a server that is
/// down for a night must not fill the log. A line is repeated when one with the same category,
/// level and text was passed on less than a minute before.
///
/// At most `kMostLines` different lines of one category and level are written within a minute, and
/// then the number of lines that were left out: a server that sends different nonsense each time
/// must not fill the log either.
///
/// The counts are written before the first line, of any text, that comes after the minute. There is
/// no timer, because it would wake the machine. May be called from any thread.
class CalmLog final : public LogSink {
public:
    /// A monotonic clock.
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    static constexpr std::chrono::seconds kInterval{60};
    /// How many different lines are remembered. With more, the oldest ones may be written again
    /// within their minute.
    static constexpr std::size_t kRemembered = 64;

    /// The most different lines of one category and level within a minute.
    static constexpr std::size_t kMostLines = 20;

    /// The log outlives this object.
    CalmLog(LogSink& log, Now now);

    void write(std::string_view category, LogLevel level, std::string_view text) noexcept override;

private:
    struct Line {
        std::string_view category;
        LogLevel level;
        std::string text;
        std::chrono::steady_clock::time_point writtenAt;
        std::size_t repetitions = 0;
    };

    // The count of lines of one category and level, in the minute that began with the first of
    // them.
    struct Share {
        std::string_view category;
        LogLevel level;
        std::chrono::steady_clock::time_point since;
        std::size_t written = 0;
        std::size_t leftOut = 0;
    };

    void writeUnlessRepeated(std::string_view category, LogLevel level, std::string_view text);
    // For lines whose minute is over: writes how often they were repeated, and forgets those that
    // were not.
    void settle(std::chrono::steady_clock::time_point now);
    // For each share whose minute is over: writes how many lines were left out, and forgets the
    // share.
    void settleShares(std::chrono::steady_clock::time_point now);
    Share& shareOf(std::string_view category, LogLevel level);
    void tellRepetitions(const Line& line);

    LogSink& m_log;
    Now m_now;
    std::mutex m_lock;
    // Guarded by the lock, the oldest first.
    std::vector<Line> m_lines;
    std::vector<Share> m_shares;
};

}  // namespace quillbar
