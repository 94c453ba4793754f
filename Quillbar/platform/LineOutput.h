// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <string_view>

namespace quillbar {

/// Standard output as a stream of lines for one reader. Main thread; SIGPIPE must be ignored.
class LineOutput final {
public:
    /// Writes to `descriptor`, which stays the caller's. `onClosed` is called once, from the event
    /// loop, when it is a pipe or socket whose reader has gone, even if nothing is written.
    explicit LineOutput(int descriptor, std::function<void()> onClosed);
    LineOutput(const LineOutput&) = delete;
    LineOutput& operator=(const LineOutput&) = delete;
    LineOutput(LineOutput&&) = delete;
    LineOutput& operator=(LineOutput&&) = delete;
    ~LineOutput();

    /// Writes the line and a line feed at once, waiting for a slow reader. Returns false when the
    /// line could not be written: the reader has gone, or the disk is full.
    [[nodiscard]] bool print(std::string_view line) const;

private:
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace quillbar
