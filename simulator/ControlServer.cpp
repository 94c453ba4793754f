// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/ControlServer.h"

#include "simulator/Control.h"

#include <optional>

namespace quillbar::simulator {

ControlServer::ControlServer(Exchange& exchange, std::uint16_t port)
    : m_exchange(exchange)
    , m_port(
          [this](qintptr descriptor) { new Connection(descriptor, std::nullopt, *this, this); }) {
    m_port.open(port);
}

void ControlServer::requested(Connection& connection, const HttpRequest& request) {
    connection.send(answerControl(request, m_exchange));
}

void ControlServer::ended(Connection& connection) {
    connection.deleteLater();
}

}  // namespace quillbar::simulator
