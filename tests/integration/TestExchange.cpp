// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/integration/TestExchange.h"

#include "QuillbarCore/exchange/URLSessionFetcher.h"

#include <QSslCertificate>

namespace quillbar {

TestExchange::TestExchange(Trust trust, const simulator::SimulatorOptions& options)
    : m_simulator(options) {
    if (trust == Trust::trusted) {
        QSslConfiguration configuration = m_before;
        configuration.setCaCertificates(
            QSslCertificate::fromPath(QString::fromStdString(m_simulator.caFile())));
        QSslConfiguration::setDefaultConfiguration(configuration);
    }
}

TestExchange::~TestExchange() {
    QSslConfiguration::setDefaultConfiguration(m_before);
    // The session keeps what it trusted at each port, and the next exchange may get the same port.
    URLSessionFetcher::forgetConnections();
}

std::string TestExchange::streamUrl() const {
    return m_simulator.streamBase() + "/stream?streams=btcusdt@miniTicker/ethusdt@miniTicker";
}

std::string TestExchange::klinesUrl() const {
    return m_simulator.restBase() + "/klines?symbol=BTCUSDT&interval=5m&limit=5";
}

}  // namespace quillbar
