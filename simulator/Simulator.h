// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Faults.h"
#include "simulator/Market.h"
#include "simulator/SimulatorOptions.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbar::simulator {

/// A request as it arrived, stream handshakes included.
struct RequestRecord {
    std::string method;
    /// Path and query exactly as sent, percent-encoding kept.
    std::string target;
    /// Path without the query, percent-decoded.
    std::string path;
    /// Names in lower case, in the order sent.
    std::vector<std::pair<std::string, std::string>> headers;

    /// The first header of that (lower-case) name; empty when there is none.
    [[nodiscard]] std::string header(std::string_view name) const;
};

/// An exchange on loopback: REST, the combined stream, market caps and icons on one port.
///
/// It listens from construction to destruction, answers from the event loop of the thread that made
/// it (which needs a QCoreApplication), and is used and destroyed on that thread only; a client
/// under test may share thread and loop. Several simulators share nothing. `SimulatorThread` runs
/// one on a thread of its own.
///
/// | path | answers |
/// |---|---|
/// | /api/v3/klines, /api/v3/exchangeInfo, /api/v3/ticker/24hr | as the exchange does |
/// | /stream?streams=btcusdt@miniTicker/… | the combined WebSocket stream |
/// | /coingecko/api/v3/coins/markets | market capitalisations |
/// | /icons/BTC.png | a small logo for every listed base asset, else 404 |
///
/// A second port has the faults over plain HTTP; `quillbar-simulator --help` lists them.
class Simulator final {
public:
    /// Throws std::runtime_error, with a one-line English text, when the port cannot be had, the
    /// authority's files cannot be read, understood or written, or an option is out of range.
    explicit Simulator(const SimulatorOptions& options = {});
    /// Ends every connection without ceremony.
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;
    Simulator(Simulator&&) = delete;
    Simulator& operator=(Simulator&&) = delete;

    /// The port listened on; kept while connections are refused.
    [[nodiscard]] std::uint16_t port() const;
    /// "https://127.0.0.1:PORT/api/v3" (http on a plain port, and so on).
    [[nodiscard]] std::string restBase() const;
    /// "wss://127.0.0.1:PORT".
    [[nodiscard]] std::string streamBase() const;
    /// "https://127.0.0.1:PORT/coingecko/api/v3".
    [[nodiscard]] std::string marketCapBase() const;
    /// "https://127.0.0.1:PORT/icons".
    [[nodiscard]] std::string iconBase() const;
    /// "http://127.0.0.1:PORT", the second port.
    [[nodiscard]] std::string controlBase() const;

    /// The certificate authority to trust, as PEM and as the path of a file that holds it. Both are
    /// empty on a plain port.
    [[nodiscard]] std::string caCertificatePem() const;
    [[nodiscard]] std::string caFile() const;

    [[nodiscard]] Faults& faults();
    [[nodiscard]] const Market& market() const;

    /// One step of the market, then a mini-ticker on every stream for each of its pairs whose price
    /// changed. BTCUSDT, ETHUSDT, SOLUSDT, BNBUSDT and XRPUSDT change at every step.
    void tick();

    /// What was seen, in order: the newest 10,000 of the requests, and of each list below.
    [[nodiscard]] const std::vector<RequestRecord>& requests() const;
    void forgetRequests();
    /// Connections accepted and not yet ended, whatever they carry.
    [[nodiscard]] int openConnections() const;
    /// Streams whose upgrade was answered and whose connection stands.
    [[nodiscard]] int openStreams() const;
    /// Streams upgraded since the start.
    [[nodiscard]] int streamsAccepted() const;
    /// TLS connections that ended before a request came through, as from a client that does not
    /// trust the authority.
    [[nodiscard]] int abandonedConnections() const;
    /// The codes of the close frames clients sent, in order; 1005 for one without a code.
    [[nodiscard]] const std::vector<int>& closeCodes() const;
    /// The payloads of the pongs clients sent, in order.
    [[nodiscard]] const std::vector<std::string>& pongs() const;
    /// The payloads of the pings clients sent, in order.
    [[nodiscard]] const std::vector<std::string>& pings() const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace quillbar::simulator
