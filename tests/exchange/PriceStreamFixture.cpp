// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/exchange/PriceStreamFixture.h"

#include <fmt/format.h>

#include <utility>
#include <variant>

namespace quillbar {

namespace {

std::string text(ConnectionState state) {
    switch (state) {
    case ConnectionState::disconnected:
        return "disconnected";
    case ConnectionState::connecting:
        return "connecting";
    case ConnectionState::connected:
        return "connected";
    case ConnectionState::waitingRetry:
        return "waitingRetry";
    }
    return "?";
}

std::string text(const PriceEvent& event) {
    if (const auto* const ticker = std::get_if<TickerEvent>(&event)) {
        return fmt::format("{} {}", ticker->symbol, ticker->ticker.lastPrice);
    }
    return text(std::get<StateEvent>(event).state);
}

}  // namespace

PriceStreamSession::PriceStreamSession(std::vector<std::string> bases,
                                       std::optional<Seconds> firstPriceLimit)
    : endpoints(std::make_shared<EndpointSelector>(std::move(bases))) {
    ReconnectPolicy policy{Seconds(1), Seconds(60), [this](double seconds) {
                               jittered.push_back(seconds);
                               return seconds;
                           }};
    client = std::make_unique<PriceStreamClient>(executor,
                                                 connections.factory(),
                                                 std::move(policy),
                                                 time.sleeper(),
                                                 Seconds(30),
                                                 time.clock(),
                                                 endpoints,
                                                 firstPriceLimit);
    m_scope.spawn(collect());
    executor.run();
}

Task<void> PriceStreamSession::collect() {
    AsyncStream<PriceEvent>& events = client->events();
    while (auto event = co_await events.next()) {
        m_events.push_back(text(*event));
    }
    m_events.emplace_back("ended");
}

void PriceStreamSession::watch(std::vector<std::string> symbols) {
    m_scope.spawn(client->setSymbols(std::move(symbols)));
    executor.run();
}

void PriceStreamSession::stop() {
    m_scope.spawn(client->stop());
    executor.run();
}

void PriceStreamSession::destroy() {
    client.reset();
    executor.run();
}

void PriceStreamSession::frame(const std::string& symbol, const std::string& lastPrice) {
    message(miniTickerFrame(symbol, lastPrice));
}

void PriceStreamSession::message(std::string bytes) {
    connections.last().message(std::move(bytes));
    executor.run();
}

void PriceStreamSession::closeByServer() {
    connections.last().closeByServer();
    executor.run();
}

void PriceStreamSession::fail(const std::string& text) {
    connections.last().fail(text);
    executor.run();
}

std::vector<std::string> PriceStreamSession::takeEvents() {
    executor.run();
    return std::exchange(m_events, {});
}

std::size_t PriceStreamSession::openCount() const {
    std::size_t count = 0;
    for (const auto& connection : connections.made) {
        count += connection->isCancelled() ? 0U : 1U;
    }
    return count;
}

std::vector<std::string> PriceStreamSession::urls() const {
    std::vector<std::string> all;
    for (const auto& connection : connections.made) {
        all.insert(all.end(), connection->urls.begin(), connection->urls.end());
    }
    return all;
}

}  // namespace quillbar
