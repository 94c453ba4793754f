// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Simulator.h"

#include "simulator/ControlServer.h"
#include "simulator/Exchange.h"

#include <fmt/format.h>

namespace quillbar::simulator {

void Faults::status(int status, int times, std::string pathPrefix) {
    RequestFault fault;
    fault.kind = RequestFault::Kind::status;
    fault.status = status;
    fault.times = times;
    fault.pathPrefix = std::move(pathPrefix);
    onRequests(std::move(fault));
}

void Faults::on(RequestFault::Kind kind, std::string pathPrefix, int times) {
    RequestFault fault;
    fault.kind = kind;
    fault.times = times;
    fault.pathPrefix = std::move(pathPrefix);
    onRequests(std::move(fault));
}

std::string RequestRecord::header(std::string_view name) const {
    for (const auto& [key, value] : headers) {
        if (key == name) {
            return value;
        }
    }
    return {};
}

class Simulator::Impl final {
public:
    explicit Impl(const SimulatorOptions& options)
        : exchange(options)
        , control(exchange, options.controlPort) {}

    [[nodiscard]] std::string base(std::string_view scheme, std::string_view path) const {
        return fmt::format(
            "{}{}://127.0.0.1:{}{}", scheme, exchange.isTls() ? "s" : "", exchange.port(), path);
    }

    Exchange exchange;
    ControlServer control;
};

Simulator::Simulator(const SimulatorOptions& options)
    : m_impl(std::make_unique<Impl>(options)) {}

Simulator::~Simulator() = default;

std::uint16_t Simulator::port() const {
    return m_impl->exchange.port();
}

std::string Simulator::restBase() const {
    return m_impl->base("http", "/api/v3");
}

std::string Simulator::streamBase() const {
    return m_impl->base("ws", "");
}

std::string Simulator::marketCapBase() const {
    return m_impl->base("http", "/coingecko/api/v3");
}

std::string Simulator::iconBase() const {
    return m_impl->base("http", "/icons");
}

std::string Simulator::controlBase() const {
    return fmt::format("http://127.0.0.1:{}", m_impl->control.port());
}

std::string Simulator::caCertificatePem() const {
    return m_impl->exchange.caCertificatePem();
}

std::string Simulator::caFile() const {
    return m_impl->exchange.caFile();
}

Faults& Simulator::faults() {
    return m_impl->exchange;
}

const Market& Simulator::market() const {
    return m_impl->exchange.market();
}

void Simulator::tick() {
    m_impl->exchange.tick();
}

const std::vector<RequestRecord>& Simulator::requests() const {
    return m_impl->exchange.log.requests;
}

void Simulator::forgetRequests() {
    m_impl->exchange.log.requests.clear();
}

int Simulator::openConnections() const {
    return m_impl->exchange.openConnections();
}

int Simulator::openStreams() const {
    return m_impl->exchange.openStreams();
}

int Simulator::streamsAccepted() const {
    return m_impl->exchange.log.streamsAccepted;
}

int Simulator::abandonedConnections() const {
    return m_impl->exchange.log.abandonedConnections;
}

const std::vector<int>& Simulator::closeCodes() const {
    return m_impl->exchange.log.closeCodes;
}

const std::vector<std::string>& Simulator::pongs() const {
    return m_impl->exchange.log.pongs;
}

const std::vector<std::string>& Simulator::pings() const {
    return m_impl->exchange.log.pings;
}

}  // namespace quillbar::simulator
