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

/// Passes the lines of a log on, but a line that repeats only once a minute, with its count: a
/// server that is down for a night, or that talks nonsense, must not fill the log. A line counts as
/// repeated when the category, the level and the text are the same, and it came before within a
/// minute.
///
/// A server that varies its nonsense must not fill it either: of one category and level at most
/// `kMostLines` different lines are written within a minute, and then how many more there were.
///
/// The counts are told when the next line of whatever text is written after the minute; there is no
/// timer that would wake the machine. May be called from any thread.
class CalmLog final : public LogSink {
public:
    /// A monotonic clock.
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    static constexpr std::chrono::seconds kInterval{60};
    /// How many different lines are remembered; with more, the oldest may be written again early.
    static constexpr std::size_t kRemembered = 64;

    /// How many different lines of one category and level a minute may have.
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

    // The lines of one category and level, within the minute that the first of them began.
    struct Share {
        std::string_view category;
        LogLevel level;
        std::chrono::steady_clock::time_point since;
        std::size_t written = 0;
        std::size_t leftOut = 0;
    };

    void writeUnlessRepeated(std::string_view category, LogLevel level, std::string_view text);
    // Tells how often the lines repeated whose minute is over, and forgets those that did not.
    void settle(std::chrono::steady_clock::time_point now);
    // Tells how many lines were left out in each minute that is over, and forgets it.
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
