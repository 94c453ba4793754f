// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Simulator.h"

#include <QSslConfiguration>

namespace quillbar {

/// Whether a simulator's authority is trusted by the process.
enum class Trust { trusted, unknown };

/// A simulator over TLS and, while it lives, the trust in its authority and in no other: to load
/// the system's takes a tenth of a second.
class TestExchange final {
public:
    explicit TestExchange(Trust trust = Trust::trusted,
                          const simulator::SimulatorOptions& options = {});
    TestExchange(const TestExchange&) = delete;
    TestExchange& operator=(const TestExchange&) = delete;
    TestExchange(TestExchange&&) = delete;
    TestExchange& operator=(TestExchange&&) = delete;
    ~TestExchange();

    simulator::Simulator* operator->() { return &m_simulator; }

    [[nodiscard]] simulator::Faults& faults() { return m_simulator.faults(); }
    /// The file of its authority.
    [[nodiscard]] std::string caFile() const { return m_simulator.caFile(); }
    /// The URL of the combined stream of Bitcoin and Ether.
    [[nodiscard]] std::string streamUrl() const;
    /// The URL of Bitcoin's last five candles.
    [[nodiscard]] std::string klinesUrl() const;

private:
    QSslConfiguration m_before = QSslConfiguration::defaultConfiguration();
    simulator::Simulator m_simulator;
};

}  // namespace quillbar
