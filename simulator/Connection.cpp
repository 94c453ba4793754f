// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Connection.h"

#include <sys/socket.h>
#include <utility>

namespace quillbar::simulator {

Connection::Connection(qintptr descriptor,
                       const std::optional<QSslConfiguration>& tls,
                       ConnectionHost& host,
                       QObject* parent)
    : QObject(parent)
    , m_host(host)
    , m_isTls(tls.has_value()) {
    connect(&m_socket, &QIODevice::readyRead, this, [this] { read(); });
    connect(&m_socket, &QAbstractSocket::disconnected, this, [this] { m_host.ended(*this); });
    m_socket.setSocketDescriptor(descriptor);
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    if (tls) {
        m_socket.setSslConfiguration(*tls);
        m_socket.startServerEncryption();
    }
}

Connection::~Connection() {
    m_socket.disconnect(this);
}

void Connection::beDeaf() {
    m_isDeaf = true;
}

void Connection::write(const std::string& bytes) {
    m_socket.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void Connection::send(const HttpResponse& response) {
    write(headText(response) + response.body);
    afterAnswer();
}

void Connection::sendCutShort(const HttpResponse& response) {
    write(headText(response) + response.body.substr(0, response.body.size() / 2));
    finish();
}

bool Connection::upgrade(const HttpRequest& request, std::vector<const Listing*> listings) {
    const std::string key = request.header("sec-websocket-key");
    if (!request.isUpgrade() || key.empty()) {
        HttpResponse response;
        response.status = 400;
        response.contentType = "text/plain";
        response.body = "This path speaks WebSocket only.\n";
        send(response);
        return false;
    }
    write(
        "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
        "Sec-WebSocket-Accept: "
        + WebSocketFrames::acceptKey(key) + "\r\n\r\n");
    m_isStream = true;
    m_listings = std::move(listings);
    m_isAnswering = false;
    return true;
}

void Connection::hold(std::function<void()> answer) {
    m_held = std::move(answer);
}

bool Connection::release() {
    if (!m_held) {
        return false;
    }
    std::exchange(m_held, nullptr)();
    return true;
}

void Connection::afterAnswer() {
    m_isAnswering = false;
    if (m_closesAfterAnswer) {
        finish();
    } else if (!m_received.empty()) {
        // From the event loop, so that a pile of requests is no pile of calls.
        QMetaObject::invokeMethod(
            this, [this] { readRequests(); }, Qt::QueuedConnection);
    }
}

void Connection::sendMessage(WebSocketFrames::Opcode opcode, std::string_view payload) {
    ++m_messagesSent;
    write(WebSocketFrames::encode(opcode, payload));
}

void Connection::sendControl(const std::string& frame) {
    write(frame);
}

void Connection::finish() {
    m_socket.disconnectFromHost();
}

void Connection::reset() {
    // Closing a socket that does not linger sends RST instead of FIN.
    const linger none{1, 0};
    ::setsockopt(
        static_cast<int>(m_socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
    m_socket.abort();
}

void Connection::read() {
    if (m_isDeaf) {
        return;
    }
    m_received += m_socket.readAll().toStdString();
    if (m_isStream) {
        readFrames();
    } else {
        readRequests();
    }
}

void Connection::readRequests() {
    if (m_isAnswering || m_isStream) {
        return;
    }
    const HttpParse parse = parseRequest(m_received);
    if (parse.state == HttpParse::State::malformed) {
        finish();
    } else if (parse.state == HttpParse::State::complete) {
        m_received.erase(0, parse.length);
        m_isAnswering = true;
        m_wasUsed = true;
        m_closesAfterAnswer = parse.request.wantsClose();
        m_host.requested(*this, parse.request);
    }
}

void Connection::readFrames() {
    while (true) {
        const std::optional<WebSocketFrames::Frame> frame = WebSocketFrames::decode(m_received);
        if (!frame.has_value()) {
            return;
        }
        m_received.erase(0, frame->length);
        handle(*frame);
    }
}

void Connection::handle(const WebSocketFrames::Frame& frame) {
    switch (frame.opcode) {
    case WebSocketFrames::Opcode::ping:
        m_host.pinged(*this, frame.payload);
        break;
    case WebSocketFrames::Opcode::pong:
        m_host.ponged(frame.payload);
        break;
    case WebSocketFrames::Opcode::close:
        m_host.closed(*this, WebSocketFrames::closeCode(frame.payload));
        break;
    default:
        // The exchange's subscriptions by message are not offered.
        break;
    }
}

}  // namespace quillbar::simulator
