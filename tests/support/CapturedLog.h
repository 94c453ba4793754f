// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Logger.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// Takes every log line of the process while it lives.
class CapturedLog final : public LogSink {
public:
    CapturedLog();
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;
    CapturedLog(CapturedLog&&) = delete;
    CapturedLog& operator=(CapturedLog&&) = delete;
    ~CapturedLog() override;

    void write(std::string_view category, LogLevel level, std::string_view text) noexcept override;

    /// The lines so far, as "category|level|text", with the level "default" or "error".
    [[nodiscard]] std::vector<std::string> lines() const;

    /// The lines so far of one category, in the same form.
    [[nodiscard]] std::vector<std::string> lines(std::string_view category) const;

    void clear();

private:
    LogSink* m_previous;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
};

}  // namespace quillbar
