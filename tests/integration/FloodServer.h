// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>

namespace quillbar {

/// A server on loopback that answers its first connection with the same bytes again and again, as
/// fast as they are taken, from a thread of its own. It never reads after the request's head.
class FloodServer final {
public:
    /// `first` makes what is said once, from the request's head; `flood` is then repeated.
    FloodServer(std::function<std::string(const std::string& head)> first, std::string flood);
    FloodServer(const FloodServer&) = delete;
    FloodServer& operator=(const FloodServer&) = delete;
    FloodServer(FloodServer&&) = delete;
    FloodServer& operator=(FloodServer&&) = delete;
    ~FloodServer();

    /// "http://127.0.0.1:PORT/" and "ws://127.0.0.1:PORT/stream".
    [[nodiscard]] std::string url() const;
    [[nodiscard]] std::string streamUrl() const;

    /// How many bytes have been sent, and whether the other side has ended the connection.
    [[nodiscard]] std::size_t sent() const { return m_sent; }
    [[nodiscard]] bool isLeft() const { return m_isLeft; }

private:
    void serve();
    [[nodiscard]] bool send(const std::string& bytes);

    std::function<std::string(const std::string& head)> m_first;
    std::string m_flood;
    int m_listener = -1;
    std::atomic<int> m_connection = -1;
    std::uint16_t m_port = 0;
    std::atomic<std::size_t> m_sent = 0;
    std::atomic<bool> m_isLeft = false;
    // Last: it uses all of the above.
    std::thread m_thread;
};

}  // namespace quillbar
