// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/catalog/CoinCatalog.h"
#include "QuillbarCore/exchange/BinanceAPI.h"
#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/exchange/ChartCache.h"
#include "QuillbarCore/exchange/ChartRange.h"
#include "QuillbarCore/exchange/PriceStreaming.h"
#include "QuillbarCore/market/RankingBoard.h"
#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/AppearanceMode.h"
#include "QuillbarCore/state/AppSettings.h"
#include "QuillbarCore/state/SettingsStore.h"
#include "QuillbarCore/state/WatchlistStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// What an `AppState` is built on. What is referred to outlives it.
struct AppStateDependencies final {
    Executor& executor;
    BinanceAPI& api;
    /// Its events are consumed by the state alone.
    PriceStreaming& stream;
    WatchlistStore store;
    SettingsStore settingsStore;
    CoinCatalog& catalog;
    Clock now = systemClock();
    /// In which the local days are taken.
    Calendar calendar = Calendar::autoupdatingCurrent();
    /// On a monotonic clock.
    Sleeper sleeper;
    /// How often the label and the connection are looked at.
    Seconds watchdogInterval{30};
    /// A connected stream that has been silent for longer is started again.
    Seconds staleReconnectThreshold{90};
};

/// The observable model behind the label and the watchlist: the user's list and settings, which it
/// saves at each edit; the latest prices, from the stream and from snapshots; the label's text.
///
/// Belongs to the executor's thread. Observers are told of each change of a field, and of nothing
/// else: a field that is set to an equal value stays silent. An observer may read any field, but it
/// calls no edit and destroys nothing of this object; it posts such things to the executor.
///
/// Each operation that returns a task uses this object until the task ends: who awaits one ends it
/// before destroying this object. What the object started by itself ends in its destructor.
///
/// Nothing here throws but `chart` (and `Cancelled`, out of a cancelled task): a request that fails
/// costs a line in the log and changes nothing; a save that fails keeps the edit in memory and sets
/// `lastError`.
class AppState final {
public:
    /// The age beyond which prices are stale and the label drops them.
    static constexpr Seconds kStaleDataThreshold{60};

    /// How many coins of a longer list get prices: the exchange streams no more on one connection.
    /// They are the first ones, and the pinned one in any case.
    static constexpr std::size_t kMaximumFollowed = 1024;

    /// Loads the watchlist and the settings and computes the label; connects to nothing.
    explicit AppState(AppStateDependencies dependencies);

    /// The start-up sequence, to be awaited once: listens to the stream, starts the watchdog,
    /// subscribes the stream to the watchlist, then fetches the snapshot and today's opens.
    Task<void> bootstrap();

    /// Says that the machine woke from sleep or that a network came back: subscribes the stream
    /// again at once, whatever its state, and fetches the snapshot.
    Task<void> resume();

    // What is observed. The references are valid for the life of this object.

    /// The user's list.
    [[nodiscard]] const Observed<Watchlist>& watchlist() const noexcept { return m_watchlist; }
    /// The latest ticker of each symbol, from the stream and from snapshots.
    [[nodiscard]] const ObservedMap<std::string, Ticker>& tickers() const noexcept {
        return m_tickers;
    }
    /// What the stream told last; `disconnected` before that.
    [[nodiscard]] const Observed<ConnectionState>& connectionState() const noexcept {
        return m_connectionState;
    }
    /// Why no prices stream: what ended the stream's last connection, until one delivers again.
    [[nodiscard]] const Observed<std::optional<ConnectionFailure>>& connectionFailure() const {
        return m_stream.failure();
    }
    /// When the last ticker or snapshot came; absent before the first.
    [[nodiscard]] const Observed<std::optional<TimePoint>>& lastUpdate() const noexcept {
        return m_lastUpdate;
    }
    /// The label: "Quillbar" when nothing is pinned; the pinned coin's base asset, alone while its
    /// price is unknown or stale; otherwise with price and change, "BTC 67,234.50 ▲ 1.23%". Prices
    /// of the stream reach it at most once a second.
    [[nodiscard]] const Observed<std::string>& menuBarText() const noexcept {
        return m_menuBarText;
    }
    /// What the user should know of the last edit that was not saved.
    [[nodiscard]] const Observed<std::optional<std::string>>& lastError() const noexcept {
        return m_lastError;
    }
    /// The user's settings.
    [[nodiscard]] const Observed<AppSettings>& settings() const noexcept { return m_settings; }
    /// Each symbol's price at local midnight, as far as it has been fetched, which it is only while
    /// the basis is `today`.
    [[nodiscard]] const ObservedMap<std::string, double>& todayOpens() const noexcept {
        return m_todayOpens;
    }

    // What is computed at each call.

    /// Whether what is shown may be out of date: the stream is not connected, or its last price is
    /// over a minute old. A stream that is connected and has told nothing yet counts as fresh; the
    /// label, which has nothing to show then, is stricter on purpose.
    [[nodiscard]] bool isDataStale() const;

    /// The symbol's change in percent by the basis of the settings; absent when its ticker, or the
    /// open that the basis needs, is unknown.
    [[nodiscard]] std::optional<double> displayPercent(const std::string& symbol) const;

    /// For the search of coins to add.
    [[nodiscard]] CoinCatalog& catalog() const noexcept { return m_catalog; }

    // Edits of the watchlist. Each is saved at once, before the first suspension.

    /// Appends a coin, subscribes the stream to it and fetches its price and open. Does nothing when
    /// its symbol is on the list.
    Task<void> add(Coin coin);
    /// Removes a coin with its prices and subscribes the stream to the rest. Does nothing when the
    /// symbol is not on the list.
    Task<void> remove(std::string symbol);
    /// Moves coins as `Watchlist::moving` does (which aborts for an offset that is not on the list).
    /// Does nothing when the order stays as it is. The stream's subscription stays too.
    Task<void> move(std::set<std::size_t> fromOffsets, std::size_t toOffset);
    /// Pins the coin, whose price the label shows at once. Saves even when nothing changes.
    void pin(std::string_view symbol);

    // Edits of the settings. Each is saved at once; each does nothing for the value that is set.

    /// Also fetches today's opens, in the background, when they are what the basis needs.
    void setChangeBasis(ChangeBasis basis);
    void setAppearance(AppearanceMode mode);
    /// None stands for the watchlist. A save that fails is logged and not shown: little is lost.
    void setLastBoard(std::optional<RankingBoard> board);

    // Requests.

    /// The candles for a coin's chart, at most `timeToLive(range)` old. Throws what
    /// `BinanceAPI::klines` throws.
    Task<std::vector<Candle>> chart(std::string symbol, ChartRange range);
    /// Fetches the tickers of all coins on the list, in one request.
    Task<void> refreshSnapshot();
    /// Fetches the opens that are missing, one request each, when the basis is `today` and the last
    /// attempt is at least a minute old.
    Task<void> refreshTodayOpens();

private:
    /// The start of a local day, and the key of that day.
    struct LocalMidnight {
        std::int64_t dayKey;
        std::int64_t epochMs;
    };

    Task<void> consumeEvents();
    void handle(const PriceEvent& event);
    void handleTicker(const TickerEvent& event);
    Task<void> runWatchdog();
    Task<void> checkStaleConnection();
    Task<void> subscribeStream();

    /// How long ago the last ticker or snapshot came; beyond every threshold when none has.
    [[nodiscard]] Seconds silence() const;
    [[nodiscard]] std::string computeMenuBarText() const;
    void updateMenuBarText();

    void invalidateTodayOpensIfDayChanged(TimePoint now);
    void checkTodayOpensFreshness(TimePoint now);
    void startTodayOpensRefresh();
    Task<void> refreshTodayOpensInBackground();
    Task<void> fetchTodayOpen(std::string symbol, LocalMidnight midnight);

    void applyWatchlist(Watchlist watchlist);
    void saveSettings(std::string_view textOnFailure);
    [[nodiscard]] std::vector<std::string> followedSymbols() const;

    BinanceAPI& m_api;
    PriceStreaming& m_stream;
    WatchlistStore m_store;
    SettingsStore m_settingsStore;
    CoinCatalog& m_catalog;
    Clock m_now;
    Calendar m_calendar;
    Sleeper m_sleeper;
    Seconds m_watchdogInterval;
    Seconds m_staleReconnectThreshold;
    Logger m_logger{"AppState"};

    Observed<Watchlist> m_watchlist;
    ObservedMap<std::string, Ticker> m_tickers;
    Observed<ConnectionState> m_connectionState{ConnectionState::disconnected};
    Observed<std::optional<TimePoint>> m_lastUpdate;
    Observed<std::string> m_menuBarText;
    Observed<std::optional<std::string>> m_lastError;
    Observed<AppSettings> m_settings;
    ObservedMap<std::string, double> m_todayOpens;

    ChartCache m_chartCache;
    std::optional<TimePoint> m_lastLabelStamp;
    std::optional<std::int64_t> m_todayOpensDayKey;
    std::optional<TimePoint> m_lastTodayOpensAttempt;
    // The minute in which every open of the day was last seen to be there; absent since an edit.
    // It spares all but the first price of a minute the look at the time zone and the list.
    std::optional<std::int64_t> m_freshOpensMinute;
    bool m_isRefreshingTodayOpens = false;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
