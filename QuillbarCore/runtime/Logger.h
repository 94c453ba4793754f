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
/// Lines go to the `PlatformLog`: to the journal, or to standard error when the program was started
/// by hand. A repeated line is written once a minute, with its count (`CalmLog`). A program that
/// logs must ignore SIGPIPE, which would end it once the reader of its standard error has gone. May
/// be used from any thread.
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

    /// Sends every log line of the process to `sink`, which the caller owns; null restores the
    /// platform's log. Returns the previous sink. Call it on the main thread, while no other thread
    /// logs.
    static LogSink* setSink(LogSink* sink) noexcept;

private:
    void write(LogLevel level, std::string_view text) const noexcept;

    std::string_view m_category;
};

}  // namespace quillbar
