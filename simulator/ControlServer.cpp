// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/ControlServer.h"

#include "simulator/Control.h"

#include <fmt/format.h>

#include <optional>
#include <stdexcept>

namespace quillbar::simulator {

ControlServer::ControlServer(Exchange& exchange)
    : m_exchange(exchange)
    // Owned by this object, and by itself from its end on.
    , m_port(
          [this](qintptr descriptor) { new Connection(descriptor, std::nullopt, *this, this); }) {
    if (!m_port.open(0)) {
        throw std::runtime_error(fmt::format("cannot listen on 127.0.0.1 for the control: {}",
                                             m_port.errorString().toStdString()));
    }
}

void ControlServer::requested(Connection& connection, const HttpRequest& request) {
    connection.send(answerControl(request, m_exchange));
}

void ControlServer::ended(Connection& connection) {
    connection.deleteLater();
}

}  // namespace quillbar::simulator
