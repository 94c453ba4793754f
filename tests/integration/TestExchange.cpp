// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/integration/TestExchange.h"

#include "Quillbar/platform/CertificateAuthorities.h"

#include <stdexcept>
#include <utility>

namespace quillbar {

TestExchange::TestExchange(Trust trust, simulator::SimulatorOptions options)
    : m_simulator(std::move(options)) {
    if (trust == Trust::trusted) {
        if (const auto error = trustAuthorities(m_simulator.caFile())) {
            throw std::runtime_error(*error);
        }
    }
}

TestExchange::~TestExchange() {
    QSslConfiguration::setDefaultConfiguration(m_before);
}

std::string TestExchange::streamUrl() const {
    return m_simulator.streamBase() + "/stream?streams=btcusdt@miniTicker/ethusdt@miniTicker";
}

std::string TestExchange::klinesUrl() const {
    return m_simulator.restBase() + "/klines?symbol=BTCUSDT&interval=5m&limit=5";
}

}  // namespace quillbar
