// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/AsyncStream.h"

#include <string>

namespace quillbar {

/// One WebSocket connection, which delivers what comes in as a stream of byte buffers. Made anew
/// for each attempt.
class WebSocketConnecting {
public:
    WebSocketConnecting() = default;
    WebSocketConnecting(const WebSocketConnecting&) = delete;
    WebSocketConnecting& operator=(const WebSocketConnecting&) = delete;
    WebSocketConnecting(WebSocketConnecting&&) = delete;
    WebSocketConnecting& operator=(WebSocketConnecting&&) = delete;
    virtual ~WebSocketConnecting() = default;

    /// Starts the connection and returns at once. The stream yields one buffer for each message: a
    /// text message as its UTF-8 bytes, a binary one as it is. It ends normally when the server
    /// sends a close frame, and with a `URLError` when connecting fails or the connection breaks.
    /// Buffering is unbounded.
    ///
    /// Destroying the stream stops reading but does not close the connection: `cancel` does.
    ///
    /// For the main thread.
    [[nodiscard]] virtual AsyncStream<std::string> connect(const std::string& url) = 0;

    /// Closes the connection with the code 1001 (going away). The stream ends with
    /// `URLError::Code::cancelled` and drops the buffers that were not taken yet. Does nothing
    /// before `connect` and after an earlier `cancel`. May be called from any thread.
    virtual void cancel() = 0;
};

}  // namespace quillbar
