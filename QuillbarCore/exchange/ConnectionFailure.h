// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

namespace quillbar {

/// Why a connection to the exchange could not be made, or ended. A plain value.
struct ConnectionFailure final {
    enum class Kind {
        hostNotFound,    ///< the server's name does not resolve
        cannotConnect,   ///< refused or unreachable
        proxyFailed,     ///< the proxy is missing, or refused to connect
        timedOut,        ///< no handshake or no sign of life in time
        untrusted,       ///< TLS failed, or the certificate cannot be trusted
        refused,         ///< the server answered with the status of `httpStatus`
        closedByServer,  ///< the server sent a close frame
        lost,            ///< the connection broke
        notServedHere,   ///< no server that was asked serves this region
        tooLarge,        ///< a message is larger than what is accepted
        badAddress,      ///< not an address to connect to
        noServer,        ///< no server is left to try
        cancelled,       ///< our own side ended it
        unknown,         ///< anything else, such as a broken protocol
    };

    Kind kind = Kind::unknown;
    /// The status with which a server refused, for `refused`; 0 for every other kind.
    int httpStatus = 0;

    /// What the error (not null) means for a connection; `unknown` for errors that are neither a
    /// `URLError`, a `BinanceError` nor `Cancelled`. Pure.
    [[nodiscard]] static ConnectionFailure of(const std::exception_ptr& error);

    [[nodiscard]] bool operator==(const ConnectionFailure&) const = default;
};

}  // namespace quillbar
