// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Faults.h"
#include "simulator/HttpMessage.h"
#include "simulator/Market.h"
#include "simulator/WebSocketFrames.h"

#include <QObject>
#include <QSslConfiguration>
#include <QSslSocket>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar::simulator {

class Connection;

/// Who decides what a connection answers.
class ConnectionHost {
public:
    /// A whole request. Ends in exactly one of the connection's answers, at once or later; the next
    /// request is read after it.
    virtual void requested(Connection& connection, const HttpRequest& request) = 0;
    /// A control frame from the client of an upgraded connection.
    virtual void pinged(Connection& connection, std::string_view payload) = 0;
    virtual void ponged(std::string_view payload) = 0;
    virtual void closed(Connection& connection, int code) = 0;
    /// Nothing more comes; the host deletes the connection later. Not called from its destructor.
    virtual void ended(Connection& connection) = 0;

    ConnectionHost(const ConnectionHost&) = delete;
    ConnectionHost& operator=(const ConnectionHost&) = delete;
    ConnectionHost(ConnectionHost&&) = delete;
    ConnectionHost& operator=(ConnectionHost&&) = delete;

protected:
    ConnectionHost() = default;
    ~ConnectionHost() = default;
};

/// One accepted socket: HTTP requests with keep-alive, then perhaps a WebSocket stream. The host
/// outlives it.
class Connection final : public QObject {
public:
    /// Takes over the descriptor. A TLS configuration starts the handshake as the server.
    Connection(qintptr descriptor,
               const std::optional<QSslConfiguration>& tls,
               ConnectionHost& host,
               QObject* parent);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    Connection(Connection&&) = delete;
    Connection& operator=(Connection&&) = delete;

    /// Accepts a descriptor and never reads a byte of it.
    void beDeaf();

    // Answers to a request.
    void send(const HttpResponse& response);
    /// The whole head and half the body, then the end of the connection.
    void sendCutShort(const HttpResponse& response);
    /// Switches to the stream; false, answering 400, when the request is no WebSocket upgrade.
    bool upgrade(const HttpRequest& request, std::vector<const Listing*> listings);
    /// Keeps the request until `release`, which then calls `answer`; false when none is kept.
    void hold(std::function<void()> answer);
    bool release();

    // The stream.
    [[nodiscard]] bool isStream() const { return m_isStream; }
    [[nodiscard]] const std::vector<const Listing*>& listings() const { return m_listings; }
    /// Text and binary messages sent so far.
    [[nodiscard]] int messagesSent() const { return m_messagesSent; }
    void sendMessage(WebSocketFrames::Opcode opcode, std::string_view payload);
    /// A ready frame that is no message: ping, pong, close.
    void sendControl(const std::string& frame);

    /// Whether a request came through.
    [[nodiscard]] bool wasUsed() const { return m_wasUsed; }
    [[nodiscard]] bool isTls() const { return m_isTls; }
    /// Ends once what was written is sent.
    void finish();
    /// Ends at once, with a reset.
    void reset();

private:
    void write(const std::string& bytes);
    void read();
    void readRequests();
    void readFrames();
    void handle(const WebSocketFrames::Frame& frame);
    void afterAnswer();

    ConnectionHost& m_host;
    QSslSocket m_socket;
    std::string m_received;
    std::function<void()> m_held;
    std::vector<const Listing*> m_listings;
    int m_messagesSent = 0;
    bool m_isTls;
    bool m_isDeaf = false;
    bool m_isAnswering = false;
    bool m_closesAfterAnswer = false;
    bool m_isStream = false;
    bool m_wasUsed = false;
};

}  // namespace quillbar::simulator
