// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/core.h>

#include <string_view>
#include <utility>

namespace quillbar {

/// How much a log line matters: an ordinary notice, or a failure.
enum class LogLevel { standard, error };

/// Where log lines go.
class LogSink {
public:
    LogSink() = default;
    LogSink(const LogSink&) = delete;
    LogSink& operator=(const LogSink&) = delete;
    LogSink(LogSink&&) = delete;
    LogSink& operator=(LogSink&&) = delete;
    virtual ~LogSink() = default;

    /// Takes one line, without a line feed. May be called from any thread. Does not throw.
    virtual void write(std::string_view category,
                       LogLevel level,
                       std::string_view text) noexcept = 0;
};

/// The log handle of one component. A small value: copy it freely.
///
/// Lines go to the `PlatformLog`: the journal, or standard error when the program runs by hand; one
/// that repeats goes there once a minute, with its count (`CalmLog`). A program that logs ignores
/// SIGPIPE, or a standard error whose reader has gone ends it. May be used from any thread.
class Logger {
public:
    /// The subsystem of every line: the application's id.
    static constexpr std::string_view kSubsystem = "io.github.quillbar.Quillbar";

    /// `category` is the component's name; it must outlive the program, as a literal does.
    constexpr explicit Logger(std::string_view category) noexcept
        : m_category(category) {}

    /// Logs a notice, at the default level.
    template <class... Arguments>
    void log(fmt::format_string<Arguments...> format, Arguments&&... arguments) const {
        write(LogLevel::standard, fmt::format(format, std::forward<Arguments>(arguments)...));
    }

    /// Logs a failure.
    template <class... Arguments>
    void error(fmt::format_string<Arguments...> format, Arguments&&... arguments) const {
        write(LogLevel::error, fmt::format(format, std::forward<Arguments>(arguments)...));
    }

    /// Sends every line of the process to `sink`, which stays the caller's; null restores the
    /// platform's log. Returns the sink before. For the main thread, while nothing logs elsewhere.
    static LogSink* setSink(LogSink* sink) noexcept;

private:
    void write(LogLevel level, std::string_view text) const noexcept;

    std::string_view m_category;
};

}  // namespace quillbar
