// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace quillbar::simulator {

/// A point on the simulated exchange's clock, in whole milliseconds since the Unix epoch.
using MarketTime = std::chrono::sys_time<std::chrono::milliseconds>;

/// Whether the port speaks TLS (https, wss) or not (http, ws).
enum class Transport { tls, plain };

/// Who moves the market: a timer, or the owner through `Simulator::tick()`.
enum class Ticking { manual, automatic };

/// The certificate the server shows. `expired` ended yesterday; `wrongHost` names another host than
/// the one a client connects to. Both are signed by the same authority as the `valid` one.
enum class CertificateKind { valid, expired, wrongHost };

/// What a simulator is made from. The defaults suit a test: a free port, TLS, an authority of its
/// own, and nothing that moves unless told to.
struct SimulatorOptions {
    /// The port on 127.0.0.1; 0 takes a free one.
    std::uint16_t port = 0;
    /// The same for the port that the faults are reached at.
    std::uint16_t controlPort = 0;
    Transport transport = Transport::tls;
    CertificateKind certificate = CertificateKind::valid;
    /// Where the authority's certificate is written (PEM), its key beside it as `PATH.key` with
    /// mode 0600. Both are used again when they exist. Empty: a temporary file that lives as long
    /// as the simulator.
    std::string caFile = {};
    /// The prices are a pure function of the seed and the number of steps.
    std::uint64_t seed = 1;
    /// How many pairs are listed, at least 1. One in five is a USDT pair in trading; the first are
    /// BTCUSDT (position 0), ETHUSDT (5), SOLUSDT (10), BNBUSDT (15), XRPUSDT (20).
    int symbolCount = 2000;
    /// Steps a second when ticking is automatic, greater than 0 and at most 1000. A step is one
    /// second on the market's clock.
    double speed = 1;
    Ticking ticking = Ticking::manual;
    /// The market's clock at step 0; absent: the system's clock when the simulator is made.
    std::optional<MarketTime> startTime = std::nullopt;
};

}  // namespace quillbar::simulator
