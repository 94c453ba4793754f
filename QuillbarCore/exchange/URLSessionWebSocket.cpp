// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionWebSocket.h"

#include "QuillbarCore/exchange/URLError.h"

#include <QAbstractSocket>
#include <QCoreApplication>
#include <QMetaObject>
#include <QObject>
#include <QRegularExpression>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <QWebSocket>

#include <exception>
#include <optional>
#include <utility>

namespace quillbar {

namespace {

using Code = URLError::Code;
using Source = StreamSource<std::string>;

// The longest head of a frame, in bytes. QWebSocket reads a frame only when all of it has arrived.
constexpr qint64 kFrameHead = 14;

// `unreachable` is the code to use at this stage if the system cannot reach the peer.
URLError::Code codeOf(QAbstractSocket::SocketError error, URLError::Code unreachable) {
    switch (error) {
    case QAbstractSocket::HostNotFoundError:
        return Code::cannotFindHost;
    case QAbstractSocket::SocketTimeoutError:
    case QAbstractSocket::ProxyConnectionTimeoutError:
        return Code::timedOut;
    case QAbstractSocket::SslHandshakeFailedError:
    case QAbstractSocket::SslInternalError:
    case QAbstractSocket::SslInvalidUserDataError:
        return Code::secureConnectionFailed;
    case QAbstractSocket::ConnectionRefusedError:
        return Code::cannotConnect;
    case QAbstractSocket::ProxyNotFoundError:
    case QAbstractSocket::ProxyConnectionRefusedError:
    case QAbstractSocket::ProxyConnectionClosedError:
    case QAbstractSocket::ProxyAuthenticationRequiredError:
    case QAbstractSocket::ProxyProtocolError:
        return Code::proxyFailed;
    case QAbstractSocket::RemoteHostClosedError:
        return Code::connectionLost;
    case QAbstractSocket::NetworkError:
        return unreachable;
    default:
        return Code::other;
    }
}

// Qt 6.5 renamed this signal and later versions warn of the old name, the only one that 6.4 knows.
template <class Socket>
auto errorSignal() {
    if constexpr (requires { &Socket::errorOccurred; }) {
        return &Socket::errorOccurred;
    } else {
        return qOverload<QAbstractSocket::SocketError>(&Socket::error);
    }
}

// The status with which the server refused the upgrade; 0 when it did not. Qt 6.4's QWebSocket
// reports it only as "connection refused", with the status in the text of the error.
int upgradeStatusIn(QAbstractSocket::SocketError error, const QString& text) {
    static const QRegularExpression status(QStringLiteral("http status code: (\\d{3})\\b"));
    return error == QAbstractSocket::ConnectionRefusedError ? status.match(text).captured(1).toInt()
                                                            : 0;
}

// The error that a close frame means; absent for a normal close. The other codes mean that one side
// broke the protocol; QWebSocket itself closes with them when the peer did.
std::optional<URLError> errorOf(const QWebSocket& socket) {
    // An int, because the enumeration has no room for the private codes from 4000 on.
    const int code = static_cast<int>(socket.closeCode());
    const std::string text = "closed with code " + std::to_string(code) + ": "
                             + socket.closeReason().simplified().toStdString();
    switch (code) {
    case QWebSocketProtocol::CloseCodeTooMuchData:
        return URLError(Code::tooLarge, text);
    case QWebSocketProtocol::CloseCodeProtocolError:
    case QWebSocketProtocol::CloseCodeWrongDatatype:
        return URLError(Code::other, text);
    default:
        return std::nullopt;
    }
}

// Owns the sockets that nobody listens to any more, until they have sent their data. Destroyed
// before the QCoreApplication, never as a static.
QObject& leavingSockets() {
    static QObject* parent = nullptr;
    if (parent == nullptr) {
        parent = new QObject;
        qAddPostRoutine([] { delete std::exchange(parent, nullptr); });
    }
    return *parent;
}

// Safe to call from a signal of the socket, which is destroyed later, in the event loop.
void letGo(QWebSocket* socket, std::chrono::milliseconds limit) {
    socket->setParent(&leavingSockets());
    if (socket->state() == QAbstractSocket::UnconnectedState) {
        socket->deleteLater();
        return;
    }
    QObject::connect(socket, &QWebSocket::disconnected, socket, &QObject::deleteLater);
    QTimer::singleShot(limit, socket, &QObject::deleteLater);
}

}  // namespace

/// One socket and the stream that it fills. Lives on the main thread.
class URLSessionWebSocket::Connection final : public QObject {
public:
    Connection(const WebSocketLimits& limits, Source source)
        : m_limits(limits)
        , m_source(std::move(source)) {}
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    Connection(Connection&&) = delete;
    Connection& operator=(Connection&&) = delete;
    ~Connection() override { close(); }

    void open(const QUrl& url) {
        m_socket = new QWebSocket(QString(), QWebSocketProtocol::VersionLatest, this);
        m_socket->setReadBufferSize(static_cast<qint64>(m_limits.messageSize) + kFrameHead);
        m_socket->setMaxAllowedIncomingFrameSize(m_limits.messageSize);
        m_socket->setMaxAllowedIncomingMessageSize(m_limits.messageSize);
        listen();
        m_timer.callOnTimeout(this, [this] {
            fail(URLError(Code::timedOut, "the handshake was not answered in time"));
        });
        m_timer.setSingleShot(true);
        m_timer.start(m_limits.handshake);
        m_socket->open(url);
        // QWebSocket does not report the peer's pings, so listen to the socket that it uses.
        if (auto* const carrier = m_socket->findChild<QAbstractSocket*>()) {
            connect(carrier, &QIODevice::readyRead, this, &Connection::checkAnswers);
        }
    }

    /// Closes the connection and ends the stream; does nothing when both have happened.
    void close() {
        m_source.abandon(std::make_exception_ptr(URLError(Code::cancelled, "cancelled")));
        if (QWebSocket* const socket = takeSocket()) {
            if (socket->state() == QAbstractSocket::ConnectedState) {
                socket->close(QWebSocketProtocol::CloseCodeGoingAway);
                letGo(socket, m_limits.farewell);
            } else {
                letGo(socket, std::chrono::milliseconds::zero());
            }
        }
    }

    void fail(const URLError& error) {
        m_source.fail(error);
        if (QWebSocket* const socket = takeSocket()) {
            letGo(socket, std::chrono::milliseconds::zero());
        }
    }

private:
    void listen() {
        connect(m_socket, &QWebSocket::connected, this, &Connection::startHeartbeat);
        connect(m_socket, &QWebSocket::textMessageReceived, this, [this](const QString& text) {
            receive([&text] { return text.toUtf8().toStdString(); });
        });
        connect(
            m_socket, &QWebSocket::binaryMessageReceived, this, [this](const QByteArray& bytes) {
                receive([&bytes] { return bytes.toStdString(); });
            });
        connect(m_socket, &QWebSocket::pong, this, [this] { m_isHeard = true; });
        // A close frame came, or is sent because the peer broke the protocol.
        connect(m_socket, &QWebSocket::aboutToClose, this, &Connection::endWithFarewell);
        connect(m_socket, errorSignal<QWebSocket>(), this, &Connection::noteError);
        connect(m_socket, &QWebSocket::disconnected, this, &Connection::failSoon);
    }

    // QWebSocket answers pings by itself, and keeps in memory the answers that the peer does not
    // read.
    void checkAnswers() {
        if (m_socket != nullptr
            && m_socket->bytesToWrite() > static_cast<qint64>(m_limits.unsentBytes)) {
            fail(URLError(Code::other, "the peer takes no answers"));
        }
    }

    template <class MakeBytes>
    void receive(MakeBytes makeBytes) {
        m_isHeard = true;
        if (m_source.isTerminated()) {
            return;
        }
        if (m_source.pendingCount() >= m_limits.unreadMessages) {
            fail(URLError(Code::tooLarge, "more messages come than can be read"));
            return;
        }
        m_source.push(makeBytes());
    }

    void startHeartbeat() {
        m_timer.disconnect(this);
        m_timer.callOnTimeout(this, &Connection::beat);
        m_timer.setSingleShot(false);
        m_timer.start(m_limits.heartbeat);
        m_isOpen = true;
        m_isHeard = true;
    }

    void beat() {
        if (std::exchange(m_isHeard, false)) {
            m_isAsked = false;
        } else if (!std::exchange(m_isAsked, true)) {
            m_socket->ping();
        } else {
            fail(URLError(Code::timedOut, "the peer does not answer pings"));
        }
    }

    void noteError(QAbstractSocket::SocketError error) {
        const Code unreachable = m_isOpen ? Code::connectionLost : Code::cannotConnect;
        const QString text = m_socket->errorString().simplified();
        m_error.emplace(
            codeOf(error, unreachable), text.toStdString(), upgradeStatusIn(error, text));
        // Data that came before the end of the connection may still be delivered, a close frame
        // too.
        if (error != QAbstractSocket::RemoteHostClosedError) {
            failSoon();
        }
    }

    // The end of a connection and its error are signalled in either order.
    void failSoon() {
        QMetaObject::invokeMethod(
            this,
            [this] {
                fail(m_error.value_or(
                    URLError(Code::connectionLost, "the connection ended without a close frame")));
            },
            Qt::QueuedConnection);
    }

    void endWithFarewell() {
        // Qt 6.8 reads the data after a refused upgrade as frames, and closes because of them.
        if (!m_isOpen) {
            failSoon();
            return;
        }
        const std::optional<URLError> error = errorOf(*m_socket);
        if (error) {
            m_source.fail(*error);
        } else {
            m_source.finish();
        }
        letGo(takeSocket(), m_limits.farewell);
    }

    QWebSocket* takeSocket() {
        m_timer.stop();
        if (m_socket != nullptr) {
            m_socket->disconnect(this);
        }
        return std::exchange(m_socket, nullptr);
    }

    WebSocketLimits m_limits;
    Source m_source;
    // A child of this object; null once the connection has ended.
    QWebSocket* m_socket = nullptr;
    // Limits the handshake first, then times the heartbeat.
    QTimer m_timer;
    std::optional<URLError> m_error;
    bool m_isOpen = false;
    bool m_isHeard = false;
    bool m_isAsked = false;
};

URLSessionWebSocket::URLSessionWebSocket(WebSocketLimits limits)
    : m_limits(limits) {}

URLSessionWebSocket::~URLSessionWebSocket() {
    cancel();
}

AsyncStream<std::string> URLSessionWebSocket::connect(const std::string& url) {
    auto [stream, source] = AsyncStream<std::string>::make();
    // The last handle may be released on the thread that cancels.
    const auto destroy = [](Connection* connection) {
        if (QThread::currentThread() == connection->thread()) {
            delete connection;
        } else {
            connection->deleteLater();
        }
    };
    const std::shared_ptr<Connection> connection(new Connection(m_limits, source), destroy);
    std::shared_ptr<Connection> before = connection;
    {
        const std::lock_guard lock(m_lock);
        std::swap(m_connection, before);
    }
    const QUrl target = QUrl::fromEncoded(QByteArray::fromStdString(url), QUrl::StrictMode);
    const QString scheme = target.scheme();
    if (target.host().isEmpty()
        || (scheme != QLatin1String("wss") && scheme != QLatin1String("ws"))) {
        const QString text = QString::fromStdString(url).simplified();
        source.fail(URLError(Code::badURL, "not a WebSocket URL: " + text.toStdString()));
    } else {
        connection->open(target);
    }
    return std::move(stream);
}

void URLSessionWebSocket::cancel() {
    std::shared_ptr<Connection> connection;
    {
        const std::lock_guard lock(m_lock);
        connection = std::exchange(m_connection, nullptr);
    }
    if (!connection) {
        return;
    }
    if (QThread::currentThread() == connection->thread()) {
        connection->close();
    } else {
        QMetaObject::invokeMethod(
            connection.get(), [connection] { connection->close(); }, Qt::QueuedConnection);
    }
}

}  // namespace quillbar
