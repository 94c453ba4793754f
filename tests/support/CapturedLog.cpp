// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/CapturedLog.h"

#include <fmt/format.h>

namespace quillbar {

CapturedLog::CapturedLog()
    : m_previous(Logger::setSink(this)) {}

CapturedLog::~CapturedLog() {
    Logger::setSink(m_previous);
}

void CapturedLog::write(std::string_view category, LogLevel level, std::string_view text) noexcept {
    const std::lock_guard lock(m_mutex);
    m_lines.push_back(
        fmt::format("{}|{}|{}", category, level == LogLevel::error ? "error" : "default", text));
}

std::vector<std::string> CapturedLog::lines() const {
    const std::lock_guard lock(m_mutex);
    return m_lines;
}

std::vector<std::string> CapturedLog::lines(std::string_view category) const {
    const std::string prefix = fmt::format("{}|", category);
    std::vector<std::string> matching;
    for (const std::string& line : lines()) {
        if (line.starts_with(prefix)) {
            matching.push_back(line);
        }
    }
    return matching;
}

void CapturedLog::clear() {
    const std::lock_guard lock(m_mutex);
    m_lines.clear();
}

}  // namespace quillbar
