// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/AlertKeeper.h"
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "QuillbarCore/state/AppState.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"
#include "tests/support/FakeConnection.h"
#include "tests/support/TemporaryFolder.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar::benchmarks {

using Frames = std::vector<std::string>;

/// Keeps the log quiet from the first one on. The log is one for all, because logs give their place
/// back in the order of a stack.
struct QuietLog {
    QuietLog() { static const CapturedLog kLog; }
};

/// Everything between the socket and the label, as the application is made of it.
class Application final {
public:
    Application() {
        m_scope.spawn(m_state.bootstrap());
        m_executor.run();
    }

    /// Receives the frames at once and handles them all.
    void receive(const Frames& frames) {
        m_time.advance(Seconds(1));
        for (const std::string& frame : frames) {
            m_connections.last().message(frame);
        }
        m_executor.run();
    }

    /// The last price of a pair that was received.
    [[nodiscard]] Ticker ticker(const std::string& symbol) const {
        return *m_state.tickers().find(symbol);
    }

    /// Watches these alerts from here on, as they come from the file.
    void setAlerts(const std::vector<Alert>& alerts) {
        AlertStore store(m_folder.path());
        store.save({.nextNumber = static_cast<std::int64_t>(alerts.size()) + 1, .alerts = alerts});
        m_alerts.emplace(AlertKeeperDependencies{
            .executor = m_executor,
            .appState = m_state,
            .store = std::move(store),
            .now = m_time.clock(),
            // The time is the benchmark's own, but reading the real clock is part of the cost.
            .monotonic =
                [manual = m_time.monotonicClock(), real = bootClock()] {
                    benchmark::DoNotOptimize(real());
                    return manual();
                },
            .sleeper = m_time.sleeper()});
    }

private:
    // First, because the stores below it log what they miss.
    QuietLog m_quiet;
    ManualExecutor m_executor;
    ManualTime m_time{m_executor};
    TemporaryFolder m_folder;
    FakeBinanceAPI m_exchange;
    FakeConnections m_connections;
    CoinCatalog m_catalog{m_executor, m_exchange, m_folder.path(), m_time.clock()};
    PriceStreamClient m_stream{
        m_executor,
        m_connections.factory(),
        ReconnectPolicy{Seconds(1), Seconds(60)},
        m_time.sleeper(),
        Seconds(30),
        m_time.clock(),
        std::make_shared<EndpointSelector>(std::vector<std::string>{"wss://stream.example"})};
    AppState m_state{{.executor = m_executor,
                      .api = m_exchange,
                      .stream = m_stream,
                      .store = WatchlistStore(m_folder.path()),
                      .settingsStore = SettingsStore(m_folder.path()),
                      .catalog = m_catalog,
                      .now = m_time.clock(),
                      .monotonic = m_time.monotonicClock(),
                      .sleeper = m_time.sleeper()}};
    std::optional<AlertKeeper> m_alerts;
    // Last: its task uses all of the above.
    TaskScope m_scope{m_executor};
};

}  // namespace quillbar::benchmarks
