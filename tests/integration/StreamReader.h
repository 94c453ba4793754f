// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/AsyncStream.h"
#include "tests/integration/EventLoop.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// Reads a stream to its end, in a task of its own, and keeps what came.
class StreamReader final {
public:
    StreamReader(EventLoop& loop, AsyncStream<std::string> stream)
        : m_scope(std::in_place, loop.executor()) {
        m_scope->spawn(read(std::move(stream)));
    }

    /// Waits until that many buffers have come.
    [[nodiscard]] bool receives(std::size_t count) {
        return spinUntil([this, count] { return buffers.size() >= count || isEnded; })
               && buffers.size() >= count;
    }

    /// Waits for the end.
    [[nodiscard]] bool ends() {
        return spinUntil([this] { return isEnded; });
    }

    /// Drops the stream, as a consumer that has gone.
    void abandon() { m_scope.reset(); }

    std::vector<std::string> buffers;
    bool isEnded = false;
    /// The error the stream ended with; nothing when it ended normally.
    std::optional<URLError::Code> error;
    int httpStatus = 0;
    std::string errorText;

private:
    Task<void> read(AsyncStream<std::string> stream) {
        try {
            while (auto buffer = co_await stream.next()) {
                buffers.push_back(std::move(*buffer));
            }
        } catch (const URLError& failure) {
            error = failure.code();
            httpStatus = failure.httpStatus();
            errorText = failure.what();
        }
        isEnded = true;
    }

    // Last: its task uses `this`.
    std::optional<TaskScope> m_scope;
};

}  // namespace quillbar
