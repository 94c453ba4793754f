// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/integration/FloodServer.h"

#include <fmt/format.h>

#include <array>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace quillbar {

FloodServer::FloodServer(std::function<std::string(const std::string& head)> first,
                         std::string flood)
    : m_first(std::move(first))
    , m_flood(std::move(flood)) {
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener, generic, size) != 0 || ::listen(m_listener, 1) != 0
        || ::getsockname(m_listener, generic, &size) != 0) {
        throw std::runtime_error("cannot listen on loopback");
    }
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { serve(); });
}

FloodServer::~FloodServer() {
    ::shutdown(m_listener, SHUT_RDWR);
    if (const int connection = m_connection; connection >= 0) {
        ::shutdown(connection, SHUT_RDWR);
    }
    m_thread.join();
    ::close(m_listener);
}

std::string FloodServer::url() const {
    return fmt::format("http://127.0.0.1:{}/", m_port);
}

std::string FloodServer::streamUrl() const {
    return fmt::format("ws://127.0.0.1:{}/stream", m_port);
}

void FloodServer::serve() {
    const int connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0) {
        return;
    }
    m_connection = connection;
    std::string head;
    std::array<char, 4096> bytes{};
    while (head.find("\r\n\r\n") == std::string::npos) {
        const ssize_t count = ::recv(connection, bytes.data(), bytes.size(), 0);
        if (count <= 0) {
            break;
        }
        head.append(bytes.data(), static_cast<std::size_t>(count));
    }
    if (send(m_first(head))) {
        while (send(m_flood)) {}
    }
    m_isLeft = true;
    m_connection = -1;
    ::close(connection);
}

bool FloodServer::send(const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count =
            ::send(m_connection, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (count <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(count);
        m_sent += static_cast<std::size_t>(count);
    }
    return true;
}

}  // namespace quillbar
