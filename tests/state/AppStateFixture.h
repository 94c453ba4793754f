// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/catalog/CoinCatalog.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/state/AppState.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/state/FaultyFileOperations.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"
#include "tests/support/FakePriceStream.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// The pair of that base asset.
inline std::string symbolOf(const std::string& baseAsset) {
    return baseAsset + "USDT";
}

inline Coin coinOf(const std::string& baseAsset) {
    return {symbolOf(baseAsset), baseAsset};
}

/// A list of these base assets, the first pinned.
inline Watchlist listOf(const std::vector<std::string>& baseAssets) {
    Watchlist list;
    for (const std::string& baseAsset : baseAssets) {
        list.coins.push_back(coinOf(baseAsset));
    }
    if (!list.coins.empty()) {
        list.pinnedSymbol = list.coins.front().symbol;
    }
    return list;
}

/// One candle whose open is the price.
inline std::vector<Candle> candlesFrom(double open) {
    Candle candle;
    candle.open = open;
    return {candle};
}

/// An AppState on a fake exchange, a fake stream, a folder of its own and a time that moves when
/// told to. It is 2026-11-14T12:00:00Z; the days are those of UTC. Base assets stand for their
/// pairs: "BTC" for BTCUSDT.
struct AppStateFixture : testing::Test {
    // The two documents, before the state is built.

    void theUserHas(const Watchlist& list) { WatchlistStore(folder.path()).save(list); }
    void theUserHas(const AppSettings& settings) { SettingsStore(folder.path()).save(settings); }
    void theBasisIsToday() {
        theUserHas(AppSettings::defaultSettings().settingBasis(ChangeBasis::today));
    }

    /// Builds the state, without a line in the log about documents that are not there.
    AppState& build() {
        state = std::make_unique<AppState>(
            AppStateDependencies{.executor = executor,
                                 .api = api,
                                 .stream = stream,
                                 .store = WatchlistStore(folder.path(), files),
                                 .watchlist = ownList,
                                 .settingsStore = SettingsStore(folder.path(), files),
                                 .catalog = catalog,
                                 .now = time.clock(),
                                 .monotonic = time.monotonicClock(),
                                 .calendar = Calendar::utc(),
                                 .sleeper = time.sleeper()});
        log.clear();
        return *state;
    }

    /// Builds the state and runs its start-up sequence, as far as it comes.
    AppState& start() {
        build();
        run(state->bootstrap());
        return *state;
    }

    /// Starts with this list, connected, and every request answered with nothing.
    AppState& startConnected(const Watchlist& list) {
        theUserHas(list);
        start();
        tell(ConnectionState::connected);
        return *state;
    }

    TaskScope::Handle run(Task<void> task) {
        auto handle = scope.spawn(std::move(task));
        executor.run();
        return handle;
    }

    // What the stream tells.

    void tell(ConnectionState connection) {
        stream.state(connection);
        executor.run();
    }
    void price(const std::string& baseAsset, double last, double open = 100) {
        stream.ticker(symbolOf(baseAsset), Ticker{last, open});
        executor.run();
    }

    // What the exchange answers.

    void theSnapshotIs(const TickerMap& tickers) { api.ticker24hAnswers.otherwise(tickers); }
    void theOpenIs(double open) { api.klinesAnswers.otherwise(candlesFrom(open)); }

    // What is seen.

    [[nodiscard]] const std::string& label() const { return *state->menuBarText(); }
    [[nodiscard]] std::optional<Ticker> ticker(const std::string& baseAsset) const {
        const Ticker* const found = state->tickers().find(symbolOf(baseAsset));
        return found == nullptr ? std::nullopt : std::optional<Ticker>(*found);
    }
    [[nodiscard]] std::optional<double> todayOpen(const std::string& baseAsset) const {
        const double* const found = state->todayOpens().find(symbolOf(baseAsset));
        return found == nullptr ? std::nullopt : std::optional<double>(*found);
    }
    /// The symbols whose opens were asked for, in order.
    [[nodiscard]] std::vector<std::string> opensAskedFor() const {
        std::vector<std::string> symbols;
        symbols.reserve(api.klinesRequests.size());
        for (const auto& request : api.klinesRequests) {
            symbols.push_back(request.symbol);
        }
        return symbols;
    }
    [[nodiscard]] Watchlist storedList() { return WatchlistStore(folder.path()).load(); }
    [[nodiscard]] AppSettings storedSettings() { return SettingsStore(folder.path()).load(); }

    CapturedLog log;
    ManualExecutor executor;
    ManualTime time{executor};
    TemporaryFolder folder;
    FaultyFileOperations files;
    FakeBinanceAPI api;
    FakePriceStream stream;
    CoinCatalog catalog{executor, api, folder.path() / "cache", time.clock()};
    /// What stands in for the stored list.
    std::optional<Watchlist> ownList;
    std::unique_ptr<AppState> state;
    // Last: its tasks use the state.
    TaskScope scope{executor};
};

/// Notes what an observer is told.
template <class T>
class Notes {
public:
    explicit Notes(const Observed<T>& observed)
        : m_observation(observed.observe([this](const T& value) { values.push_back(value); })) {}

    std::vector<T> values;

private:
    Observation m_observation;
};

}  // namespace quillbar
