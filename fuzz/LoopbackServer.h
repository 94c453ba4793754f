// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Executor.h"

#include <QByteArray>
#include <QTcpServer>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QTcpSocket;

namespace quillbar {

/// A server on loopback that answers every request with the same bytes, whatever they are, and ends
/// the connection. For the thread with the QCoreApplication.
class LoopbackServer final : public QTcpServer {
public:
    /// How the bytes are sent, and how the connection ends.
    struct Manner {
        /// How many at a time; 0 for all at once. At most 64 pieces are made; the last has the
        /// rest.
        int pieceSize = 0;
        /// With a reset rather than a farewell.
        bool isAbrupt = false;
    };

    /// Makes the bytes of an answer out of the request's head.
    using Answer = std::function<QByteArray(const QByteArray& request)>;

    LoopbackServer();

    void setAnswer(Answer answer, Manner manner);

    /// "127.0.0.1:PORT".
    [[nodiscard]] std::string address() const;

private:
    void accept();
    void answer(QTcpSocket& socket);

    Answer m_answer;
    Manner m_manner;
};

/// What a fuzzer of the transports runs in: an application with an event loop, made by the first
/// call and kept for good, in which no host but 127.0.0.1 can be reached.
[[nodiscard]] Executor& loopbackExecutor();

/// Requires of a transport's error what holds of each, where nobody has cancelled.
void requireSound(const URLError& error);

/// The first byte of an input tells the manner, the rest is sent.
[[nodiscard]] LoopbackServer::Manner mannerOf(std::string_view& input);

}  // namespace quillbar
