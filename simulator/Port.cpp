// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Port.h"

#include <fmt/format.h>

#include <stdexcept>

namespace quillbar::simulator {

void Port::open(std::uint16_t port) {
    if (!listen(QHostAddress::LocalHost, port)) {
        throw std::runtime_error(fmt::format(
            "cannot listen on 127.0.0.1 port {}: {}", port, errorString().toStdString()));
    }
}

}  // namespace quillbar::simulator
