// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/EndpointSelector.h"
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeConnection.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// A price stream client with everything around it in the test's hands. Its policy waits 1 s up to
/// 60 s, without jitter; it takes a connection as stable after 30 s.
class PriceStreamSession {
public:
    explicit PriceStreamSession(std::vector<std::string> bases = {"wss://one:9443",
                                                                  "wss://two",
                                                                  "wss://three"},
                                std::optional<Seconds> firstPriceLimit = std::nullopt);

    /// Watches these pairs.
    void watch(std::vector<std::string> symbols);
    /// Calls `stop`.
    void stop();
    /// Destroys the client.
    void destroy();

    /// The last connection delivers a price.
    void frame(const std::string& symbol, const std::string& lastPrice);
    /// The last connection delivers these bytes.
    void message(std::string bytes);
    /// The server closes the last connection.
    void closeByServer();
    /// The last connection breaks.
    void fail(const std::string& text = "the connection broke");
    void advance(double seconds) { time.advance(Seconds(seconds)); }

    /// What the client has told since the last call: "connecting", "BTCUSDT 65000".
    std::vector<std::string> takeEvents();
    /// How many connections have not been cancelled.
    [[nodiscard]] std::size_t openCount() const;
    /// The position of the endpoint that the next attempt takes.
    [[nodiscard]] int endpointInUse() const { return endpoints->current()->index; }
    /// The URLs that were connected to, in order.
    [[nodiscard]] std::vector<std::string> urls() const;

    CapturedLog log;
    ManualExecutor executor;
    ManualTime time{executor};
    FakeConnections connections;
    std::shared_ptr<EndpointSelector> endpoints;
    /// What the jitter was asked for, in seconds.
    std::vector<double> jittered;
    std::unique_ptr<PriceStreamClient> client;

private:
    Task<void> collect();

    std::vector<std::string> m_events;
    // Last: its task uses `this`.
    TaskScope m_scope{executor};
};

}  // namespace quillbar
