// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTcpServer>

#include <cstdint>
#include <functional>
#include <utility>

namespace quillbar::simulator {

/// A listening port on 127.0.0.1 that hands over bare descriptors. A port whose program was killed
/// can be listened on again at once.
class Port final : public QTcpServer {
public:
    explicit Port(std::function<void(qintptr)> accepted)
        : m_accepted(std::move(accepted)) {}

    /// Opens the port, 0 being any free one. Throws std::runtime_error when it is taken.
    void open(std::uint16_t port);

protected:
    void incomingConnection(qintptr descriptor) override { m_accepted(descriptor); }

private:
    std::function<void(qintptr)> m_accepted;
};

}  // namespace quillbar::simulator
