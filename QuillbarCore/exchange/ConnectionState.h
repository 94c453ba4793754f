// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar {

/// What the price stream is doing.
enum class ConnectionState {
    /// Nothing is subscribed, or no endpoint is left to try.
    disconnected,
    /// A connection is about to be made.
    connecting,
    /// A connection has been asked for; its first price may still be on the way.
    connected,
    /// A connection has ended, and the next one waits for its time.
    waitingRetry,
};

}  // namespace quillbar
