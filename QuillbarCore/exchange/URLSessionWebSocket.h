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
    /// enough to give up two hosts within half a minute when a firewall drops all packets.
    std::chrono::milliseconds handshake{12'000};
    /// How often the peer must show that it lives, see `URLSessionWebSocket`.
    std::chrono::milliseconds heartbeat{15'000};
    /// How long a closing connection may take to send its close frame.
    std::chrono::milliseconds farewell{5'000};
    /// The most bytes of a message, and the most bytes that are read ahead; a server that sends
    /// more has to wait.
    std::size_t messageSize = std::size_t{1024} * 1024;
    /// The most messages that may wait to be taken from the stream. Qt 6.4's QWebSocket cannot
    /// pause reading, so the connection ends when a server sends more.
    std::size_t unreadMessages = 30'000;
    /// The most bytes that may wait to be sent. We send only pings, and the answers to the peer's.
    std::size_t unsentBytes = std::size_t{1024} * 1024;
};

/// A WebSocket connection to a `ws:` or `wss:` URL. It asks the application's proxy factory and
/// trusts the certificate authorities of the default SSL configuration.
///
/// The stream of `connect` ends normally when the server sends a close frame. It ends with
/// `URLError`:
///
/// - `cancelled`: `cancel` was called
/// - `timedOut`: the handshake took too long, or the peer is dead
/// - `cannotFindHost`, `cannotConnect`: no connection to the server, or it refuses the upgrade,
///   whose status the error then carries
/// - `proxyFailed`: no connection to the proxy, or it turns the connection away
/// - `connectionLost`: the connection broke without a close frame
/// - `secureConnectionFailed`: TLS failed; a certificate is expired, for another host, or of an
///   unknown authority
/// - `tooLarge`: a message is too large, or too many wait to be read
/// - `badURL`: not a URL, or of another scheme
/// - `other`: one side broke the protocol, as with a text that is not UTF-8, or the peer does not
///   take the answers to its pings; Qt 6.4 takes the close codes 1012 to 1014 for that too
///
/// When a peer disappears without closing the connection (a suspended laptop, a router that forgot
/// it), the stream would stay silent for ever, because we send nothing that could fail. So a
/// heartbeat checks once per interval: if nothing came in, it sends a ping; if nothing came in by
/// the next check, not even the pong, the peer is dead. This takes two to three intervals, at most
/// 45 s; the server's own limit is 60 s, and a silent stream is replaced after 90 s. While prices
/// come in, no ping is sent. The server's pings are answered even if the stream is not read.
///
/// Made, connected and destroyed on the main thread, which needs a QCoreApplication; `cancel` may
/// be called from any thread. Destroying it closes the connection as `cancel` does.
class URLSessionWebSocket final : public WebSocketConnecting {
public:
    explicit URLSessionWebSocket(WebSocketLimits limits = {});
    URLSessionWebSocket(const URLSessionWebSocket&) = delete;
    URLSessionWebSocket& operator=(const URLSessionWebSocket&) = delete;
    URLSessionWebSocket(URLSessionWebSocket&&) = delete;
    URLSessionWebSocket& operator=(URLSessionWebSocket&&) = delete;
    ~URLSessionWebSocket() override;

    /// A second call closes the first connection.
    [[nodiscard]] AsyncStream<std::string> connect(const std::string& url) override;

    /// Called on another thread, it closes the connection a little later, in the main thread's
    /// event loop.
    void cancel() override;

private:
    class Connection;

    WebSocketLimits m_limits;
    std::mutex m_lock;
    // Guarded by the lock; absent before `connect` and after `cancel`.
    std::shared_ptr<Connection> m_connection;
};

}  // namespace quillbar
