// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/Benchmarks.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/ExchangeBodies.h"
#include "QuillbarCore/exchange/BinanceDecoder.h"
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "QuillbarCore/state/AppState.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"
#include "tests/support/FakeConnection.h"
#include "tests/support/TemporaryFolder.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillbar::benchmarks {

namespace {

constexpr int kFrames = 2000;

using Frames = std::vector<std::string>;

/// Everything between the socket and the label, as the application is made of it.
class Application final {
public:
    Application() {
        m_scope.spawn(m_state.bootstrap());
        m_executor.run();
    }

    /// Receives the frames at once and handles them all. Returns the pinned coin's ticker.
    Ticker receive(const Frames& frames) {
        m_time.advance(Seconds(1));
        for (const std::string& frame : frames) {
            m_connections.last().message(frame);
        }
        m_executor.run();
        return *m_state.tickers().find("BTCUSDT");
    }

private:
    // First: keeps the log quiet.
    CapturedLog m_log;
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
    // Last: its task uses all of the above.
    TaskScope m_scope{m_executor};
};

/// The least that must be done: each frame decoded and its ticker stored.
Ticker decodeAndStore(TickerMap& tickers, const Frames& frames) {
    for (const std::string& frame : frames) {
        TickerEvent event = BinanceDecoder::decodeMiniTickerFrame(frame);
        tickers.insert_or_assign(std::move(event.symbol), event.ticker);
    }
    return tickers.at("BTCUSDT");
}

}  // namespace

void registerFlood() {
    const auto application = std::make_shared<Application>();
    const auto tickers = std::make_shared<TickerMap>();
    Comparison("2,000 frames, from socket to label",
               std::vector<Frames>{ExchangeBodies::frames(kFrames)},
               [application](const Frames& frames) { return application->receive(frames); })
        .with("decoding and storing alone",
              [tickers](const Frames& frames) { return decodeAndStore(*tickers, frames); });
}

}  // namespace quillbar::benchmarks
