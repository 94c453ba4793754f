// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// A server on loopback that says exactly what a test wants, over plain HTTP or as a WebSocket.
class RawServer final {
public:
    /// Answers a request: its head as it came, and the socket to write to, which stays open unless
    /// closed.
    using Answer = std::function<void(const std::string& head, QTcpSocket& socket)>;

    explicit RawServer(Answer answer);

    [[nodiscard]] std::uint16_t port() const { return m_server.serverPort(); }
    /// "http://127.0.0.1:PORT" and the path.
    [[nodiscard]] std::string url(std::string_view path = "/") const;
    /// "ws://127.0.0.1:PORT/stream".
    [[nodiscard]] std::string streamUrl() const;

    /// How many bytes the connections to come may send ahead of being read, about.
    void setWindow(int bytes);

    /// The heads of the requests so far.
    std::vector<std::string> heads;
    /// What came after a WebSocket upgrade, as it came.
    std::string received;
    /// Connections accepted, and ended by whichever side.
    int accepted = 0;
    int ended = 0;

private:
    void accept();
    void read(QTcpSocket& socket);

    Answer m_answer;
    QTcpServer m_server;
};

/// A host's name that no lookup finds. It is longer than the 255 bytes that a name may have, so the
/// system says so by itself and asks no server.
[[nodiscard]] std::string hostWithoutAnAddress();

/// An HTTP answer with a length.
[[nodiscard]] std::string httpAnswer(std::string_view status,
                                     std::string_view body,
                                     std::string_view moreHeaders = {});

/// What accepts the upgrade to a WebSocket that a request's head asks for.
[[nodiscard]] std::string upgradeAnswer(const std::string& head);

/// An answer that accepts the upgrade to a WebSocket and then says `frames`.
[[nodiscard]] RawServer::Answer upgradeAndSay(std::string frames);

}  // namespace quillbar
