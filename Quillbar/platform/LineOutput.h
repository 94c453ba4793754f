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

/// Standard output as a stream of lines for one reader, which may be slow: nothing here ever waits
/// for it. Main thread; SIGPIPE must be ignored.
class LineOutput final {
public:
    /// Writes to `descriptor`, which stays the caller's. `onClosed` is called once at most, from the
    /// event loop, when the reader of a pipe or socket has gone, even if nothing is written, or when
    /// a line that had to wait cannot be written.
    explicit LineOutput(int descriptor, std::function<void()> onClosed);
    LineOutput(const LineOutput&) = delete;
    LineOutput& operator=(const LineOutput&) = delete;
    LineOutput(LineOutput&&) = delete;
    LineOutput& operator=(LineOutput&&) = delete;
    ~LineOutput();

    /// Writes the line and a line feed at once. When the reader is slow, the line waits until there
    /// is room, and takes the place of another that waits: who reads late wants the newest. A line
    /// that was begun is always ended. Returns false when lines can no longer be written: the reader
    /// has gone, or the disk is full.
    [[nodiscard]] bool print(std::string_view line);

    /// Calls `done` once, from the event loop, when nothing waits to be written any more. Never when
    /// that fails; then `onClosed` is called.
    void whenWritten(std::function<void()> done);

private:
    bool flush();
    void flushLater();
    void fail();

    int m_descriptor;
    std::function<void()> m_onClosed;
    std::function<void()> m_done;
    // What is left of the line that was begun.
    std::string m_begun;
    std::optional<std::string> m_next;
    bool m_isBroken = false;
    // Of a pipe or a socket.
    std::unique_ptr<QSocketNotifier> m_closed;
    // Of what can be full for a while; null for a file.
    std::unique_ptr<QSocketNotifier> m_writable;
};

}  // namespace quillbar
