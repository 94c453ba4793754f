// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Connection.h"
#include "simulator/Port.h"

#include <QObject>

#include <cstdint>

namespace quillbar::simulator {

class Exchange;

/// The exchange's faults over plain HTTP, on a port of their own: within reach of every browser,
/// also while the exchange's port is closed. The exchange outlives it.
class ControlServer final : public QObject,
                            private ConnectionHost {
public:
    /// Listens on 127.0.0.1, at any free port for 0. Throws std::runtime_error where it cannot.
    ControlServer(Exchange& exchange, std::uint16_t port);

    [[nodiscard]] std::uint16_t port() const { return m_port.serverPort(); }

private:
    void requested(Connection& connection, const HttpRequest& request) override;
    void pinged(Connection& /*connection*/, std::string_view /*payload*/) override {}
    void ponged(std::string_view /*payload*/) override {}
    void closed(Connection& /*connection*/, int /*code*/) override {}
    void ended(Connection& connection) override;

    Exchange& m_exchange;
    Port m_port;
};

}  // namespace quillbar::simulator
