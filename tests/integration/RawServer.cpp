// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/integration/RawServer.h"

#include "simulator/WebSocketFrames.h"

#include <fmt/format.h>

#include <sys/socket.h>
#include <utility>

namespace quillbar {

namespace {

const char* const kHead = "head";

std::string webSocketKey(const std::string& head) {
    constexpr std::string_view kName = "Sec-WebSocket-Key: ";
    const std::size_t start = head.find(kName) + kName.size();
    return head.substr(start, head.find('\r', start) - start);
}

}  // namespace

RawServer::RawServer(Answer answer)
    : m_answer(std::move(answer)) {
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); });
    m_server.listen(QHostAddress::LocalHost);
}

std::string RawServer::url(std::string_view path) const {
    return fmt::format("http://127.0.0.1:{}{}", port(), path);
}

std::string RawServer::streamUrl() const {
    return fmt::format("ws://127.0.0.1:{}/stream", port());
}

void RawServer::setWindow(int bytes) {
    ::setsockopt(
        static_cast<int>(m_server.socketDescriptor()), SOL_SOCKET, SO_RCVBUF, &bytes, sizeof bytes);
}

void RawServer::accept() {
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        ++accepted;
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { read(*socket); });
        QObject::connect(socket, &QTcpSocket::disconnected, &m_server, [this, socket] {
            ++ended;
            socket->deleteLater();
        });
    }
}

void RawServer::read(QTcpSocket& socket) {
    const QByteArray head = socket.property(kHead).toByteArray();
    if (head.endsWith("\r\n\r\n") && head.contains("Upgrade")) {
        received += socket.readAll().toStdString();
        return;
    }
    const QByteArray more = (head.endsWith("\r\n\r\n") ? QByteArray() : head) + socket.readAll();
    socket.setProperty(kHead, more);
    if (more.endsWith("\r\n\r\n")) {
        heads.push_back(more.toStdString());
        m_answer(heads.back(), socket);
    }
}

std::string hostWithoutAnAddress() {
    std::string name;
    for (int label = 0; label < 5; ++label) {
        name += std::string(60, 'a') + '.';
    }
    return name + "invalid";
}

std::string httpAnswer(std::string_view status,
                       std::string_view body,
                       std::string_view moreHeaders) {
    return fmt::format(
        "HTTP/1.1 {}\r\nContent-Length: {}\r\n{}\r\n{}", status, body.size(), moreHeaders, body);
}

std::string upgradeAnswer(const std::string& head) {
    return fmt::format(
        "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n"
        "Connection: Upgrade\r\nSec-WebSocket-Accept: {}\r\n\r\n",
        simulator::WebSocketFrames::acceptKey(webSocketKey(head)));
}

RawServer::Answer upgradeAndSay(std::string frames) {
    return [frames = std::move(frames)](const std::string& head, QTcpSocket& socket) {
        socket.write(QByteArray::fromStdString(upgradeAnswer(head) + frames));
    };
}

}  // namespace quillbar
