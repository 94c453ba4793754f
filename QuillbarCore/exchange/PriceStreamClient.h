// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/EndpointSelector.h"
#include "QuillbarCore/exchange/PriceStreaming.h"
#include "QuillbarCore/exchange/ReconnectPolicy.h"
#include "QuillbarCore/exchange/WebSocketConnecting.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace quillbar {

/// Keeps one connection to the exchange's combined mini-ticker stream, for all pairs asked for, and
/// replaces it whenever it ends.
///
/// A connection is stable when it has delivered a message and lasted for the stability threshold.
/// After a stable one the next attempt waits for the base delay and goes to the same endpoint.
/// After any other one the endpoint is marked as failed and the delays grow. `connected` is
/// reported as soon as an attempt begins. Frames that cannot be decoded, and prices of pairs that
/// were not asked for, are logged and dropped. Symbols are compared without regard to case; a price
/// is reported with the symbol that it came with.
///
/// A server may accept a connection and then send no price. With a limit for the first price such a
/// connection is ended, and counts against its endpoint. If every endpoint in turn has sent no
/// price, the market is quiet: a connection is then kept for ten minutes, so that rare prices are
/// not missed.
///
/// Belongs to the executor's thread. Destroying it closes the connection and ends the events.
class PriceStreamClient final : public PriceStreaming {
public:
    /// Makes the connection of one attempt.
    using MakeConnection = std::function<std::shared_ptr<WebSocketConnecting>()>;

    /// Starts nothing. `sleeper` waits between attempts and `now` measures how long a connection
    /// lasted. `firstPriceLimit` is less than the stability threshold; without it a silent
    /// connection is kept. The executor outlives this object.
    PriceStreamClient(Executor& executor,
                      MakeConnection makeConnection,
                      ReconnectPolicy policy,
                      Sleeper sleeper,
                      Seconds stabilityThreshold,
                      Clock now,
                      std::shared_ptr<EndpointSelector> endpoints,
                      std::optional<Seconds> firstPriceLimit = std::nullopt);
    PriceStreamClient(const PriceStreamClient&) = delete;
    PriceStreamClient& operator=(const PriceStreamClient&) = delete;
    PriceStreamClient(PriceStreamClient&&) = delete;
    PriceStreamClient& operator=(PriceStreamClient&&) = delete;
    ~PriceStreamClient() override = default;

    AsyncStream<PriceEvent>& events() override { return m_events.first; }
    const Observed<std::optional<ConnectionFailure>>& failure() const override { return m_failure; }

    /// Symbols with other characters than ASCII letters and digits are logged and left out. When
    /// none is left, `disconnected` is reported and no connection is made.
    Task<void> setSymbols(std::vector<std::string> symbols) override;
    Task<void> stop() override;

    /// From the next attempt on, addresses come from this selector.
    void useEndpoints(std::shared_ptr<EndpointSelector> endpoints);

    /// The address of the combined stream of these pairs below a base.
    [[nodiscard]] static std::string streamURL(const std::vector<std::string>& symbols,
                                               std::string_view base);

private:
    // Closes its connection at the end of the attempt, however that ends.
    class Attempt;

    void restart();
    void endRun();
    [[nodiscard]] std::vector<std::string> validSymbols() const;
    void push(ConnectionState state) const;
    // Reports `disconnected` without a failure, because nothing is to be streamed.
    void rest();

    Task<void> run(std::vector<std::string> symbols);
    // Runs one connection until it ends; returns whether it was stable.
    Task<bool> readConnection(std::string url);
    // Notes that the connection delivers, and reports the price in the frame.
    void receive(std::string_view frame);
    Task<void> wait(Seconds delay);
    // Begins the wait for a connection's first price.
    void watchForPrice(const std::shared_ptr<WebSocketConnecting>& connection);
    // Ends the connection after `limit`, unless a price has come.
    Task<void> endWithoutPrice(std::shared_ptr<WebSocketConnecting> connection, Seconds limit);
    void forgetSilence();

    // The events, and the source that fills them.
    std::pair<AsyncStream<PriceEvent>, StreamSource<PriceEvent>> m_events =
        AsyncStream<PriceEvent>::make();
    Observed<std::optional<ConnectionFailure>> m_failure;
    MakeConnection m_makeConnection;
    ReconnectPolicy m_policy;
    Sleeper m_sleeper;
    Seconds m_stabilityThreshold;
    Clock m_now;
    std::shared_ptr<EndpointSelector> m_endpoints;
    std::optional<Seconds> m_firstPriceLimit;
    Logger m_logger{"PriceStream"};

    std::vector<std::string> m_symbols;
    // The symbols that the connection in use was asked for, in lower case.
    std::unordered_set<std::string> m_asked;
    TaskScope::Handle m_runTask;
    std::shared_ptr<WebSocketConnecting> m_connection;
    // The wait for the connection's first price, and whether it ended without one.
    TaskScope::Handle m_priceWatch;
    bool m_isWithoutPrice = false;
    // How many connections ended in that way since the last price, and since when there were so
    // many that the market counts as quiet.
    int m_withoutPrice = 0;
    std::optional<TimePoint> m_quietSince;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
