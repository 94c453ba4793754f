// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Logger.h"

#include "QuillbarCore/runtime/CalmLog.h"
#include "QuillbarCore/runtime/PlatformLog.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <span>
#include <unistd.h>

namespace quillbar {

namespace {

// Neither object is ever destroyed: objects that log may be destroyed after it.
LogSink& platformLog() {
    static auto* const log =
        new PlatformLog(STDERR_FILENO, std::getenv("JOURNAL_STREAM"), [](auto fields) {
            return PlatformLog::sendToJournal(fields);
        });
    static auto* const calm = new CalmLog(*log, std::chrono::steady_clock::now);
    return *calm;
}

std::atomic<LogSink*> currentSink{nullptr};

}  // namespace

LogSink* Logger::setSink(LogSink* sink) noexcept {
    return currentSink.exchange(sink);
}

void Logger::write(LogLevel level, std::string_view text) const noexcept {
    LogSink* const sink = currentSink.load();
    (sink != nullptr ? *sink : platformLog()).write(m_category, level, text);
}

}  // namespace quillbar
