// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"
#include "fuzz/LoopbackServer.h"
#include "QuillbarCore/exchange/URLSessionWebSocket.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QCryptographicHash>

namespace quillbar {

namespace {

constexpr WebSocketLimits kLimits{.handshake = std::chrono::milliseconds{2'000},
                                  .heartbeat = std::chrono::milliseconds{2'000},
                                  .farewell = std::chrono::milliseconds{0},
                                  .messageSize = std::size_t{16} * 1024};

/// The answer that switches to the stream.
QByteArray upgrade(const QByteArray& request) {
    const QByteArray name = QByteArrayLiteral("sec-websocket-key:");
    const qsizetype begin = request.toLower().indexOf(name) + name.size();
    const QByteArray key = request.mid(begin, request.indexOf('\r', begin) - begin).trimmed();
    const QByteArray accept = QCryptographicHash::hash(
        key + QByteArrayLiteral("258EAFA5-E914-47DA-95CA-C5AB0DC85B11"), QCryptographicHash::Sha1);
    return QByteArrayLiteral(
               "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n"
               "Connection: Upgrade\r\nSec-WebSocket-Accept: ")
           + accept.toBase64() + QByteArrayLiteral("\r\n\r\n");
}

Task<void> readAll(URLSessionWebSocket& socket, std::string url, std::size_t most, bool& isOver) {
    std::size_t received = 0;
    try {
        AsyncStream<std::string> messages = socket.connect(url);
        while (auto message = co_await messages.next()) {
            require(message->size() <= kLimits.messageSize, "no message is larger than accepted");
            received += message->size();
        }
    } catch (const URLError& error) {
        requireSound(error);
    }
    require(received <= most, "no more comes out than went in");
    isOver = true;
}

}  // namespace

/// The input is what a server sends: instead of its answer to the upgrade, or, when its second byte
/// is even, after a sound one.
void fuzz(std::string_view input) {
    Executor& executor = loopbackExecutor();
    static auto& server = *new LoopbackServer;
    const LoopbackServer::Manner manner = mannerOf(input);
    const bool isUpgraded = !input.empty() && input.front() % 2 == 0;
    input.remove_prefix(input.empty() ? 0 : 1);
    const QByteArray sent(input.data(), static_cast<qsizetype>(input.size()));
    server.setAnswer(
        [&](const QByteArray& request) { return isUpgraded ? upgrade(request) + sent : sent; },
        manner);
    bool isOver = false;
    {
        URLSessionWebSocket socket(kLimits);
        TaskScope scope(executor);
        scope.spawn(readAll(socket, "ws://" + server.address() + "/", input.size(), isOver));
        require(spinUntil([&isOver] { return isOver; }), "every connection ends");
    }
    spinUntilIdle();
}

}  // namespace quillbar
