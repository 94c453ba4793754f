// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/LoopbackServer.h"

#include "fuzz/FuzzTarget.h"
#include "QuillbarCore/runtime/QtExecutor.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QTcpSocket>

#include <array>
#include <string>
#include <sys/socket.h>
#include <utility>

namespace quillbar {

namespace {

constexpr int kMostPieces = 64;

/// Whatever an answer redirects to, nothing leaves the machine.
class LoopbackOnly final : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        if (query.peerHostName() == QLatin1String("127.0.0.1")) {
            return {QNetworkProxy(QNetworkProxy::NoProxy)};
        }
        constexpr quint16 kDiscard = 9;
        return {QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), kDiscard)};
    }
};

void resetWhenClosed(const QTcpSocket& socket) {
    const linger none{1, 0};
    ::setsockopt(
        static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
}

}  // namespace

LoopbackServer::LoopbackServer() {
    QObject::connect(this, &QTcpServer::newConnection, this, [this] { accept(); });
    require(listen(QHostAddress::LocalHost), "a port can be had");
}

void LoopbackServer::setAnswer(Answer answer, Manner manner) {
    m_answer = std::move(answer);
    m_manner = manner;
}

std::string LoopbackServer::address() const {
    return "127.0.0.1:" + std::to_string(serverPort());
}

void LoopbackServer::accept() {
    while (QTcpSocket* const socket = nextPendingConnection()) {
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(*socket); });
    }
}

void LoopbackServer::answer(QTcpSocket& socket) {
    const QByteArray request = socket.peek(socket.bytesAvailable());
    if (!request.contains("\r\n\r\n")) {
        return;
    }
    socket.disconnect(this);
    socket.readAll();
    const QByteArray bytes = m_answer(request);
    const qsizetype size = m_manner.pieceSize == 0 ? bytes.size() : m_manner.pieceSize;
    qsizetype sent = 0;
    const auto send = [&socket](const QByteArray& part) {
        // The client may have had enough.
        if (socket.state() == QAbstractSocket::ConnectedState) {
            socket.write(part);
            socket.flush();
        }
    };
    for (int piece = 1; piece < kMostPieces && sent + size < bytes.size(); ++piece) {
        send(bytes.mid(sent, size));
        sent += size;
    }
    send(bytes.mid(sent));
    if (m_manner.isAbrupt) {
        resetWhenClosed(socket);
    }
    socket.disconnectFromHost();
}

Executor& loopbackExecutor() {
    static int count = 1;
    static std::string name = "fuzzer";
    static std::array<char*, 2> arguments{name.data(), nullptr};
    // Never destroyed: the threads of Qt's network outlive the statics.
    static Executor* executor = nullptr;
    if (executor == nullptr) {
        new QCoreApplication(count, arguments.data());
        QNetworkProxyFactory::setApplicationProxyFactory(new LoopbackOnly);
        executor = makeQtExecutor().release();
    }
    return *executor;
}

void requireSound(const URLError& error) {
    require(error.code() != URLError::Code::cancelled, "nobody has cancelled");
    require(std::string_view(error.what()).find('\n') == std::string_view::npos,
            "an error is told on one line");
}

LoopbackServer::Manner mannerOf(std::string_view& input) {
    if (input.empty()) {
        return {};
    }
    const auto first = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    constexpr unsigned char kAbrupt = 0x80;
    return {.pieceSize = first & 0x3F, .isAbrupt = (first & kAbrupt) != 0};
}

}  // namespace quillbar
