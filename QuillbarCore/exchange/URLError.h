// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace quillbar {

/// A transport error: no HTTP answer came whole, or a stream's connection broke. An HTTP status,
/// whatever it is, is never one. `what()` is an English text for the log, on one line.
class URLError final : public std::runtime_error {
public:
    enum class Code {
        cancelled,               ///< our own side ended the transfer or the connection
        timedOut,                ///< no progress, no handshake or no sign of life in time
        cannotFindHost,          ///< the host's (or the proxy's) name does not resolve
        cannotConnect,           ///< refused, unreachable, or the proxy would not connect
        connectionLost,          ///< broke before the answer was whole, or without a farewell
        secureConnectionFailed,  ///< TLS failed, or the certificate cannot be trusted
        tooLarge,                ///< the body or the message exceeds what is accepted
        badURL,                  ///< not a URL, or not of a scheme that is spoken here
        other,
    };

    URLError(Code code, const std::string& text)
        : std::runtime_error(text)
        , m_code(code) {}

    [[nodiscard]] Code code() const noexcept { return m_code; }

private:
    Code m_code;
};

}  // namespace quillbar
