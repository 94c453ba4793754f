// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillbar {

/// A local socket that lets programs connect and never says a word, as a bus does that hangs.
class SilentSocket final {
public:
    explicit SilentSocket(const std::filesystem::path& path)
        : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(m_descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_descriptor, 5), 0);
    }
    SilentSocket(const SilentSocket&) = delete;
    SilentSocket& operator=(const SilentSocket&) = delete;
    SilentSocket(SilentSocket&&) = delete;
    SilentSocket& operator=(SilentSocket&&) = delete;
    ~SilentSocket() {
        ::close(m_client);
        ::close(m_descriptor);
    }

    /// Whether a program has connected. The first one's connection stays open as long as this
    /// object.
    [[nodiscard]] bool hasClient() {
        if (m_client < 0) {
            m_client = ::accept4(m_descriptor, nullptr, nullptr, SOCK_CLOEXEC);
        }
        return m_client >= 0;
    }

private:
    int m_descriptor;
    int m_client = -1;
};

}  // namespace quillbar
