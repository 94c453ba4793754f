// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/WebSocketConnecting.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>

namespace quillbar {

/// When a WebSocket connection is given up.
struct WebSocketLimits {
    /// From the start to the upgrade: name, connection, proxy, TLS and the server's answer. Short
    /// enough for two hosts that a firewall swallows to be given up within half a minute.
    std::chrono::milliseconds handshake{12'000};
    /// How often the peer must show that it lives, see `URLSessionWebSocket`.
    std::chrono::milliseconds heartbeat{15'000};
    /// How long a connection that is closed may take to send its farewell.
    std::chrono::milliseconds farewell{5'000};
    /// The most bytes of a message, and of what is read ahead: a server that sends more has to
    /// wait.
    std::size_t messageSize = std::size_t{1024} * 1024;
    /// The most messages that may wait to be taken from the stream. QWebSocket of Qt 6.4 cannot be
    /// told to pause, so a server that sends more is left.
    std::size_t unreadMessages = 30'000;
    /// The most bytes that may wait to be sent. We say nothing but pings, and the answers to those
    /// of the peer.
    std::size_t unsentBytes = std::size_t{1024} * 1024;
};

/// A WebSocket connection to a `ws:` or `wss:` URL. It asks the application's proxy factory and
/// trusts the certificate authorities of the default SSL configuration.
///
/// The stream of `connect` ends normally when the server sends a close frame. It ends with
/// `URLError`:
///
/// | code | when |
/// |---|---|
/// | `cancelled` | `cancel` was called |
/// | `timedOut` | the handshake took too long, or the peer is dead |
/// | `cannotFindHost`, `cannotConnect` | no connection to the server, or it refuses the upgrade, whose status the error then carries |
/// | `proxyFailed` | no connection to the proxy, or it turns the connection away |
/// | `connectionLost` | the connection broke without a close frame |
/// | `secureConnectionFailed` | TLS failed; a certificate is expired, for another host, or of an unknown authority |
/// | `tooLarge` | a message is too large, or too many wait to be read |
/// | `badURL` | not a URL, or of another scheme |
/// | `other` | one side broke the protocol, as with a text that is not UTF-8, or the peer does not take the answers to its pings; Qt 6.4 takes the close codes 1012 to 1014 for that too |
///
/// A peer that went away without a word (a suspended laptop, a router that forgot the connection)
/// would leave the stream silent for ever, because nothing is ever sent that could fail. So a
/// heartbeat looks back at each interval: if nothing came in, it sends a ping; if nothing came in by
/// the next one, not even the pong, the peer is dead. That is noticed after two to three intervals,
/// at most 45 s: the server's own limit is 60 s, and a silent stream is replaced after 90 s. While
/// prices come in no ping is ever sent. The server's pings are answered, whatever becomes of the
/// stream.
///
/// Made, connected and destroyed on the main thread, which needs a QCoreApplication; `cancel` may be
/// called from any thread. Destroying it closes the connection as `cancel` does.
class URLSessionWebSocket final : public WebSocketConnecting {
public:
    explicit URLSessionWebSocket(WebSocketLimits limits = {});
    URLSessionWebSocket(const URLSessionWebSocket&) = delete;
    URLSessionWebSocket& operator=(const URLSessionWebSocket&) = delete;
    URLSessionWebSocket(URLSessionWebSocket&&) = delete;
    URLSessionWebSocket& operator=(URLSessionWebSocket&&) = delete;
    ~URLSessionWebSocket() override;

    /// Called again, it closes the connection before.
    [[nodiscard]] AsyncStream<std::string> connect(const std::string& url) override;

    /// From another thread than the main one, the connection is closed a little later, in the main
    /// thread's event loop.
    void cancel() override;

private:
    class Connection;

    WebSocketLimits m_limits;
    std::mutex m_lock;
    // Guarded by the lock; absent before `connect` and after `cancel`.
    std::shared_ptr<Connection> m_connection;
};

}  // namespace quillbar
