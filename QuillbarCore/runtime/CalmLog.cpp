// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/CalmLog.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace quillbar {

CalmLog::CalmLog(LogSink& log, Now now)
    : m_log(log)
    , m_now(std::move(now)) {}

void CalmLog::write(std::string_view category, LogLevel level, std::string_view text) noexcept {
    try {
        const std::lock_guard lock(m_lock);
        const auto now = m_now();
        settle(now);
        settleShares(now);
        writeUnlessRepeated(category, level, text);
    } catch (...) {
        // Out of memory: write the line anyway.
        m_log.write(category, level, text);
    }
}

void CalmLog::writeUnlessRepeated(std::string_view category,
                                  LogLevel level,
                                  std::string_view text) {
    const auto known = std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& line) {
        return line.category == category && line.level == level && line.text == text;
    });
    if (known != m_lines.end()) {
        ++known->repetitions;
        return;
    }
    Share& share = shareOf(category, level);
    if (share.written == kMostLines) {
        ++share.leftOut;
        return;
    }
    ++share.written;
    if (m_lines.size() == kRemembered) {
        tellRepetitions(m_lines.front());
        m_lines.erase(m_lines.begin());
    }
    m_lines.push_back({category, level, std::string(text), m_now()});
    m_log.write(category, level, text);
}

void CalmLog::settle(std::chrono::steady_clock::time_point now) {
    std::vector<Line> repeated;
    std::erase_if(m_lines, [&](Line& line) {
        const bool isOver = now - line.writtenAt >= kInterval;
        if (isOver && line.repetitions > 0) {
            repeated.push_back(std::move(line));
        }
        return isOver;
    });
    for (Line& line : repeated) {
        tellRepetitions(line);
        line.writtenAt = now;
        line.repetitions = 0;
        m_lines.push_back(std::move(line));
    }
}

void CalmLog::settleShares(std::chrono::steady_clock::time_point now) {
    std::erase_if(m_shares, [&](const Share& share) {
        const bool isOver = now - share.since >= kInterval;
        if (isOver && share.leftOut > 0) {
            m_log.write(share.category,
                        share.level,
                        fmt::format("left out {} more lines within a minute", share.leftOut));
        }
        return isOver;
    });
}

CalmLog::Share& CalmLog::shareOf(std::string_view category, LogLevel level) {
    const auto known = std::find_if(m_shares.begin(), m_shares.end(), [&](const Share& share) {
        return share.category == category && share.level == level;
    });
    if (known != m_shares.end()) {
        return *known;
    }
    return m_shares.emplace_back(Share{.category = category, .level = level, .since = m_now()});
}

void CalmLog::tellRepetitions(const Line& line) {
    if (line.repetitions > 0) {
        m_log.write(line.category,
                    line.level,
                    fmt::format("{} (repeated {} times)", line.text, line.repetitions));
    }
}

}  // namespace quillbar
