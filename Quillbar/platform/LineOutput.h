// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillbar {

/// Standard output as a stream of lines for one reader. The reader may be slow; nothing here waits
/// for it. Main thread; SIGPIPE must be ignored.
class LineOutput final {
public:
    /// Writes to `descriptor`, which stays the caller's. `onClosed` is called once at most, from
    /// the event loop, when the reader of a pipe or socket has gone, even if nothing is written, or
    /// when a line that had to wait cannot be written.
    explicit LineOutput(int descriptor, std::function<void()> onClosed);
    LineOutput(const LineOutput&) = delete;
    LineOutput& operator=(const LineOutput&) = delete;
    LineOutput(LineOutput&&) = delete;
    LineOutput& operator=(LineOutput&&) = delete;
    ~LineOutput();

    /// Writes the line and a line feed at once. If the reader is slow, the line waits until there
    /// is room, and replaces a line that is waiting: a late reader wants the newest one. A line
    /// that was begun is always completed. Returns false when no more lines can be written, because
    /// the reader has gone or the disk is full.
    [[nodiscard]] bool print(std::string_view line);

    /// Calls `done` once, from the event loop, when nothing waits to be written any more. Never
    /// when that fails; then `onClosed` is called.
    void whenWritten(std::function<void()> done);

private:
    bool flush();
    void flushLater();
    void fail();

    int m_descriptor;
    std::function<void()> m_onClosed;
    std::function<void()> m_done;
    // The rest of the line that was begun.
    std::string m_begun;
    std::optional<std::string> m_next;
    bool m_isBroken = false;
    // Tells when the other end of a pipe or a socket is closed; null for a file.
    std::unique_ptr<QSocketNotifier> m_closed;
    // Tells when a pipe or a socket that was full takes bytes again; null for a file.
    std::unique_ptr<QSocketNotifier> m_writable;
};

}  // namespace quillbar
