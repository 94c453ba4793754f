// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/integration/LittleProxy.h"

#include <QHostAddress>
#include <QNetworkProxy>

#include <fmt/format.h>

namespace quillbar {

namespace {

constexpr char kSocksVersion = 5;
constexpr char kNoAuthentication = 0;
constexpr char kUserAndPassword = 2;
constexpr char kNameAddress = 3;

unsigned byteAt(const QByteArray& bytes, qsizetype index) {
    return static_cast<unsigned char>(bytes.at(index));
}

}  // namespace

// One connection: what the client says first, then the bytes of both sides.
class LittleProxy::Client final : public QObject {
public:
    Client(LittleProxy& proxy, QTcpSocket* socket)
        : QObject(&proxy.m_server)
        , m_proxy(proxy)
        , m_socket(socket) {
        m_socket->setParent(this);
        connect(m_socket, &QTcpSocket::readyRead, this, [this] { read(); });
        connect(m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
        connect(&m_target, &QTcpSocket::readyRead, this, [this] {
            m_socket->write(m_target.readAll());
        });
        connect(
            &m_target, &QTcpSocket::disconnected, this, [this] { m_socket->disconnectFromHost(); });
    }

private:
    enum class Stage { greeting, password, wish, relay };

    void read() {
        m_said += m_socket->readAll();
        if (m_stage == Stage::relay) {
            m_target.write(m_said);
            m_said.clear();
        } else if (m_said.startsWith(kSocksVersion) || m_stage == Stage::password) {
            readSocks();
        } else if (m_said.contains("\r\n\r\n")) {
            readConnect();
        }
    }

    void readConnect() {
        const bool isWelcome = m_proxy.m_access == Access::open
                               || m_said.contains("Proxy-Authorization: Basic "
                                                  + QByteArray("user:pass:word").toBase64());
        if (!isWelcome) {
            ++m_proxy.refusals;
            m_socket->write(
                "HTTP/1.1 407 Proxy Authentication Required\r\n"
                "Proxy-Authenticate: Basic realm=\"little\"\r\n"
                "Content-Length: 0\r\n\r\n");
            m_said.clear();
            return;
        }
        m_proxy.wishes.push_back("connect " + m_said.split(' ').value(1).toStdString());
        relay("HTTP/1.1 200 Connection established\r\n\r\n");
    }

    void readSocks() {
        if (m_stage == Stage::greeting) {
            const bool isOpen = m_proxy.m_access == Access::open;
            const char method = isOpen ? kNoAuthentication : kUserAndPassword;
            m_stage = isOpen ? Stage::wish : Stage::password;
            m_socket->write(QByteArray(1, kSocksVersion) + method);
            m_said.clear();
        } else if (m_stage == Stage::password) {
            const bool isWelcome = m_said == QByteArray("\x01\x04user\x09pass:word");
            m_proxy.refusals += isWelcome ? 0 : 1;
            m_stage = Stage::wish;
            m_socket->write(QByteArray(1, '\1') + (isWelcome ? '\0' : '\1'));
            m_said.clear();
        } else {
            readSocksWish();
        }
    }

    // version, command, reserved, kind of address, address, port
    void readSocksWish() {
        std::string host;
        qsizetype portAt = 0;
        if (m_said.at(3) == kNameAddress) {
            const auto length = static_cast<qsizetype>(byteAt(m_said, 4));
            host = m_said.mid(5, length).toStdString();
            portAt = 5 + length;
        } else {
            constexpr qsizetype kAddressLength = 4;
            host = "an address";
            portAt = 4 + kAddressLength;
        }
        const unsigned port = byteAt(m_said, portAt) << 8U | byteAt(m_said, portAt + 1);
        m_proxy.wishes.push_back(fmt::format("socks5 {}:{}", host, port));
        relay(QByteArray("\5\0\0\1\x7F\0\0\1\0\0", 10));
    }

    void relay(const QByteArray& answer) {
        m_stage = Stage::relay;
        m_said.clear();
        m_target.connectToHost(QHostAddress(QHostAddress::LocalHost), m_proxy.m_target);
        m_socket->write(answer);
    }

    LittleProxy& m_proxy;
    QTcpSocket* m_socket;
    QTcpSocket m_target;
    QByteArray m_said;
    Stage m_stage = Stage::greeting;
};

LittleProxy::LittleProxy(std::uint16_t target, Access access)
    : m_target(target)
    , m_access(access) {
    // It connects to loopback itself, whatever the proxy of the process.
    m_server.setProxy(QNetworkProxy::NoProxy);
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
        while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
            new Client(*this, socket);
        }
    });
    m_server.listen(QHostAddress::LocalHost);
}

std::string LittleProxy::url(const std::string& scheme) const {
    return fmt::format("{}://127.0.0.1:{}", scheme, port());
}

}  // namespace quillbar
