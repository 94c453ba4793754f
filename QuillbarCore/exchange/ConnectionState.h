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
    /// A connection was requested; its first price may not have arrived yet.
    connected,
    /// A connection has ended; the next attempt is waiting.
    waitingRetry,
};

}  // namespace quillbar
