// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Exchange.h"

#include "simulator/Bodies.h"

#include <QSslCertificate>
#include <QSslKey>

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace quillbar::simulator {

namespace {

constexpr std::uint16_t kGoingAway = 1001;
constexpr std::string_view kJunk = R"({"hello":"world"})";

// A demonstration runs for days.
template <class Entry>
void remember(std::vector<Entry>& entries, Entry entry) {
    if (entries.size() == Exchange::kRemembered) {
        entries.erase(entries.begin());
    }
    entries.push_back(std::move(entry));
}

MarketTime startTimeOf(const SimulatorOptions& options) {
    return options.startTime.value_or(
        std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()));
}

int checkedSymbolCount(const SimulatorOptions& options) {
    constexpr int kMostSymbols = 100'000;
    if (options.symbolCount < 1 || options.symbolCount > kMostSymbols) {
        throw std::runtime_error(
            fmt::format("the number of symbols must be from 1 to {}", kMostSymbols));
    }
    return options.symbolCount;
}

int tickMilliseconds(double speed) {
    constexpr double kFastest = 1000;
    if (!(speed > 0) || speed > kFastest) {
        throw std::runtime_error("the speed must be above 0 and at most 1000");
    }
    return static_cast<int>(std::min(std::round(1000 / speed), 1e9));
}

}  // namespace

Exchange::Exchange(const SimulatorOptions& options)
    : m_market(options.seed, checkedSymbolCount(options), startTimeOf(options))
    , m_router(m_market)
    , m_certificate(options.certificate)
    , m_port([this](qintptr descriptor) { accept(descriptor); }) {
    const int interval = tickMilliseconds(options.speed);
    if (options.transport == Transport::tls) {
        makeAuthority(options.caFile);
    }
    m_port.open(options.port);
    m_portNumber = m_port.serverPort();
    connect(&m_ticker, &QTimer::timeout, this, &Exchange::tick);
    if (options.ticking == Ticking::automatic) {
        m_ticker.setTimerType(Qt::PreciseTimer);
        m_ticker.start(interval);
    }
}

Exchange::~Exchange() {
    for (Connection* connection : m_connections) {
        delete connection;
    }
}

void Exchange::makeAuthority(const std::string& caFile) {
    m_caFile = caFile;
    if (m_caFile.empty()) {
        m_temporaryFolder = std::make_unique<QTemporaryDir>();
        m_caFile = m_temporaryFolder->filePath(QStringLiteral("ca.pem")).toStdString();
    }
    m_authority = std::make_unique<CertificateAuthority>(m_caFile);
}

std::string Exchange::caCertificatePem() const {
    return m_authority ? m_authority->certificatePem() : std::string{};
}

const QSslConfiguration& Exchange::tlsConfiguration() {
    const auto [place, isNew] = m_tlsConfigurations.try_emplace(m_certificate);
    if (isNew) {
        const CertificateAndKey issued = m_authority->issue(m_certificate);
        QSslConfiguration& configuration = place->second;
        configuration.setLocalCertificate(
            QSslCertificate(QByteArray::fromStdString(issued.certificate)));
        configuration.setPrivateKey(QSslKey(QByteArray::fromStdString(issued.key), QSsl::Ec));
        configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
        configuration.setAllowedNextProtocols({QByteArrayLiteral("http/1.1")});
    }
    return place->second;
}

void Exchange::accept(qintptr descriptor) {
    const bool isDeaf = m_handshake == Handshake::silentTls;
    std::optional<QSslConfiguration> tls;
    if (isTls() && !isDeaf) {
        tls = tlsConfiguration();
    }
    auto* connection = new Connection(descriptor, tls, *this, this);
    if (isDeaf) {
        connection->beDeaf();
    }
    m_connections.push_back(connection);
}

void Exchange::ended(Connection& connection) {
    if (connection.isTls() && !connection.wasUsed()) {
        ++log.abandonedConnections;
    }
    std::erase(m_connections, &connection);
    connection.deleteLater();
}

std::vector<Connection*> Exchange::streams() const {
    std::vector<Connection*> streams;
    std::copy_if(m_connections.begin(),
                 m_connections.end(),
                 std::back_inserter(streams),
                 [](const Connection* connection) { return connection->isStream(); });
    return streams;
}

int Exchange::openStreams() const {
    return static_cast<int>(streams().size());
}

// Requests.

void Exchange::requested(Connection& connection, const HttpRequest& request) {
    remember(log.requests, {request.method, request.target, request.path, request.headers});
    if (const std::optional<RequestFault> fault = strike(request)) {
        schedule(connection, fault->delay, [this, &connection, request, fault = *fault] {
            answer(connection, request, fault);
        });
    } else {
        answerTruly(connection, request);
    }
}

std::optional<RequestFault> Exchange::strike(const HttpRequest& request) {
    for (auto fault = m_requestFaults.begin(); fault != m_requestFaults.end(); ++fault) {
        const bool fits = fault->pathPrefix.empty() ? request.path != "/stream"
                                                    : request.path.starts_with(fault->pathPrefix);
        if (fits) {
            RequestFault struck = *fault;
            if (--fault->times == 0) {
                m_requestFaults.erase(fault);
            }
            return struck;
        }
    }
    return std::nullopt;
}

void Exchange::schedule(Connection& connection,
                        std::chrono::milliseconds delay,
                        std::function<void()> f) {
    if (delay.count() == 0) {
        f();
    } else {
        // Dropped with the connection.
        QTimer::singleShot(delay, &connection, std::move(f));
    }
}

void Exchange::answer(Connection& connection,
                      const HttpRequest& request,
                      const RequestFault& fault) {
    HttpResponse response;
    switch (fault.kind) {
    case RequestFault::Kind::answer:
        answerTruly(connection, request);
        return;
    case RequestFault::Kind::hold:
        connection.hold([this, &connection, request] { answerTruly(connection, request); });
        return;
    case RequestFault::Kind::cutShort:
        connection.sendCutShort(m_router.answer(request));
        return;
    case RequestFault::Kind::reset:
        connection.reset();
        return;
    case RequestFault::Kind::status:
        response.status = fault.status;
        response.body = Bodies::error(-1003, "The simulator was told to answer so.");
        if (fault.retryAfter) {
            response.headers.emplace_back("Retry-After",
                                          fmt::format("{}", fault.retryAfter->count()));
        }
        break;
    case RequestFault::Kind::notJson:
        response.contentType = "text/html";
        response.body = "<!DOCTYPE html><html><body>Sign in to this network.</body></html>";
        break;
    case RequestFault::Kind::wrongNumber:
        response = withWrongNumber(m_router.answer(request));
        break;
    case RequestFault::Kind::emptyList:
        response = withEmptyList(m_router.answer(request));
        break;
    case RequestFault::Kind::redirect:
        response.status = 302;
        response.headers.emplace_back("Location", fault.location);
        break;
    case RequestFault::Kind::oversized:
        response.body.assign(fault.bytes, ' ');
        break;
    }
    connection.send(response);
}

void Exchange::answerTruly(Connection& connection, const HttpRequest& request) {
    if (request.path == "/stream") {
        openStream(connection, request);
    } else {
        connection.send(m_router.answer(request));
    }
}

void Exchange::openStream(Connection& connection, const HttpRequest& request) {
    if (m_handshake == Handshake::silentUpgrade) {
        connection.beDeaf();
        return;
    }
    const std::string names = request.parameter("streams").value_or("");
    if (connection.upgrade(request, subscribedListings(m_market, names))) {
        ++log.streamsAccepted;
        endIfDue(connection);
    }
}

// Streams.

bool Exchange::say(Connection& stream, WebSocketFrames::Opcode opcode, std::string_view payload) {
    if (m_voice != StreamVoice::normal && m_voice != StreamVoice::junk) {
        return true;
    }
    stream.sendMessage(opcode, m_voice == StreamVoice::junk ? kJunk : payload);
    return !endIfDue(stream);
}

bool Exchange::endIfDue(Connection& stream) {
    for (auto rule = m_endRules.begin(); rule != m_endRules.end(); ++rule) {
        if (stream.messagesSent() >= rule->frames) {
            const StreamEnd how = rule->how;
            if (--rule->times == 0) {
                m_endRules.erase(rule);
            }
            end(stream, how);
            return true;
        }
    }
    return false;
}

void Exchange::end(Connection& stream, StreamEnd how) {
    switch (how) {
    case StreamEnd::close:
        stream.sendControl(WebSocketFrames::encodeClose(kGoingAway));
        stream.finish();
        break;
    case StreamEnd::drop:
        stream.finish();
        break;
    case StreamEnd::reset:
        stream.reset();
        break;
    }
}

void Exchange::tick() {
    m_market.step();
    std::map<const Listing*, std::string> frames;
    for (Connection* stream : streams()) {
        for (const Listing* listing : stream->listings()) {
            if (!m_market.changed(*listing)) {
                continue;
            }
            std::string& frame = frames[listing];
            if (frame.empty()) {
                frame = Bodies::miniTickerFrame(m_market, *listing);
            }
            if (!say(*stream, WebSocketFrames::Opcode::text, frame)) {
                break;
            }
        }
    }
}

void Exchange::pinged(Connection& connection, std::string_view payload) {
    remember(log.pings, std::string(payload));
    if (m_voice != StreamVoice::dead) {
        connection.sendControl(WebSocketFrames::encode(WebSocketFrames::Opcode::pong, payload));
    }
}

void Exchange::ponged(std::string_view payload) {
    remember(log.pongs, std::string(payload));
}

void Exchange::closed(Connection& connection, int code) {
    constexpr int kNoCode = 1005;
    remember(log.closeCodes, code);
    if (m_voice == StreamVoice::dead) {
        return;
    }
    connection.sendControl(code == kNoCode
                               ? WebSocketFrames::encode(WebSocketFrames::Opcode::close, {})
                               : WebSocketFrames::encodeClose(static_cast<std::uint16_t>(code)));
    connection.finish();
}

}  // namespace quillbar::simulator
