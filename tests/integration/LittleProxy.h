// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <cstdint>
#include <string>
#include <vector>

namespace quillbar {

/// A proxy on loopback that speaks HTTP CONNECT and SOCKS5, whichever the client begins with. It
/// takes every name to one port of loopback, so that a test may give an exchange any name.
class LittleProxy final {
public:
    /// Whether a client must give the user name "user" and the password "pass:word".
    enum class Access { open, withPassword };

    explicit LittleProxy(std::uint16_t target, Access access = Access::open);

    [[nodiscard]] std::uint16_t port() const { return m_server.serverPort(); }
    /// "http://127.0.0.1:PORT", "socks5://127.0.0.1:PORT" or what else is asked for.
    [[nodiscard]] std::string url(const std::string& scheme) const;

    /// What clients wanted to be connected to, as "connect host:port" or "socks5 host:port".
    std::vector<std::string> wishes;
    /// How often a client was turned away for want of the password.
    int refusals = 0;

private:
    class Client;

    std::uint16_t m_target;
    Access m_access;
    QTcpServer m_server;
};

}  // namespace quillbar
