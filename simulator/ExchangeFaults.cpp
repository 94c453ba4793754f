// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Bodies.h"
#include "simulator/Exchange.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quillbar::simulator {

namespace {

std::string eventFrame(std::string_view event, MarketTime now) {
    return fmt::format(R"({{"e":"{}","E":{}}})", event, now.time_since_epoch().count());
}

}  // namespace

void Exchange::onRequests(RequestFault fault) {
    if (fault.times < 1) {
        throw std::invalid_argument("times must be at least 1");
    }
    if (fault.status < 100 || fault.status > 599) {
        throw std::invalid_argument("status must be from 100 to 599");
    }
    m_requestFaults.push_back(std::move(fault));
}

int Exchange::releaseHeld() {
    const std::vector<Connection*> connections = m_connections;
    return static_cast<int>(std::count_if(
        connections.begin(), connections.end(), [](Connection* each) { return each->release(); }));
}

void Exchange::endStreamsAfter(int frames, StreamEnd how, int times) {
    m_endRules.push_back({frames, how, std::max(times, 1)});
    for (Connection* stream : streams()) {
        endIfDue(*stream);
    }
}

int Exchange::endStreams(StreamEnd how) {
    const std::vector<Connection*> open = streams();
    for (Connection* stream : open) {
        end(*stream, how);
    }
    return static_cast<int>(open.size());
}

void Exchange::burst(int frames) {
    for (Connection* stream : streams()) {
        const auto& listings = stream->listings();
        for (int i = 0; i < frames && !listings.empty(); ++i) {
            const Listing& listing = *listings[static_cast<std::size_t>(i) % listings.size()];
            const std::string frame = Bodies::miniTickerFrame(m_market, listing);
            if (!say(*stream, WebSocketFrames::Opcode::text, frame)) {
                break;
            }
        }
    }
}

void Exchange::ping(std::string_view payload) {
    constexpr std::size_t kLargestControl = 125;
    if (payload.size() > kLargestControl) {
        throw std::invalid_argument("a ping holds at most 125 bytes");
    }
    for (Connection* stream : streams()) {
        stream->sendControl(WebSocketFrames::encode(WebSocketFrames::Opcode::ping, payload));
    }
}

void Exchange::serverShutdown() {
    sendText(eventFrame("serverShutdown", m_market.now()));
}

void Exchange::sendText(std::string_view text) {
    for (Connection* stream : streams()) {
        say(*stream, WebSocketFrames::Opcode::text, text);
    }
}

void Exchange::sendBinary(std::string_view bytes) {
    for (Connection* stream : streams()) {
        say(*stream, WebSocketFrames::Opcode::binary, bytes);
    }
}

void Exchange::refuseConnections(OpenConnections open) {
    m_port.close();
    if (open == OpenConnections::drop) {
        const std::vector<Connection*> connections = m_connections;
        for (Connection* connection : connections) {
            connection->finish();
        }
    }
}

void Exchange::listenAgain() {
    if (!m_port.isListening()) {
        m_port.open(m_portNumber);
    }
}

void Exchange::clear() {
    m_requestFaults.clear();
    m_endRules.clear();
    m_voice = StreamVoice::normal;
    m_handshake = Handshake::normal;
    m_certificate = CertificateKind::valid;
    releaseHeld();
    listenAgain();
}

}  // namespace quillbar::simulator
