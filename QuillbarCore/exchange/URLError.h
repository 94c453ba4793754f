// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace quillbar {

/// A transport error: no complete HTTP answer arrived, or a stream's connection could not be made
/// or broke. The HTTP status of a request's answer is never a transport error, with one exception:
/// the refusal of a host that does not serve this region. `what()` is an English text for the log,
/// on one line.
class URLError final : public std::runtime_error {
public:
    enum class Code {
        cancelled,               ///< our own side ended the transfer or the connection
        timedOut,                ///< no progress, no handshake or no sign of life in time
        cannotFindHost,          ///< the host's name does not resolve
        cannotConnect,           ///< refused, unreachable, or the upgrade is refused
        proxyFailed,             ///< the proxy is not found, refuses, or breaks off
        connectionLost,          ///< broke before the answer was complete, or without a close frame
        secureConnectionFailed,  ///< TLS failed, or the certificate cannot be trusted
        tooLarge,                ///< the body or the message exceeds what is accepted
        notServedHere,           ///< this host does not serve this region
        badURL,                  ///< not a URL, or of a scheme that is not supported
        other,
    };

    /// `httpStatus` is the status with which a server refused to upgrade a stream's connection; 0
    /// for every other error.
    URLError(Code code, const std::string& text, int httpStatus = 0)
        : std::runtime_error(text)
        , m_code(code)
        , m_httpStatus(httpStatus) {}

    [[nodiscard]] Code code() const noexcept { return m_code; }
    [[nodiscard]] int httpStatus() const noexcept { return m_httpStatus; }

private:
    Code m_code;
    int m_httpStatus;
};

}  // namespace quillbar
