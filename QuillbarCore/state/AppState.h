// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/catalog/CoinCatalog.h"
#include "QuillbarCore/exchange/BinanceAPI.h"
#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/exchange/ChartCache.h"
#include "QuillbarCore/exchange/ChartRange.h"
#include "QuillbarCore/exchange/PriceEvent.h"
#include "QuillbarCore/exchange/PriceStreaming.h"
#include "QuillbarCore/market/RankingBoard.h"
#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/ChangeSignal.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/AppearanceMode.h"
#include "QuillbarCore/state/AppSettings.h"
#include "QuillbarCore/state/PinnedQuote.h"
#include "QuillbarCore/state/SettingsStore.h"
#include "QuillbarCore/state/TodayOpens.h"
#include "QuillbarCore/state/WatchlistStore.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillbar {

/// What an `AppState` is built on. What is referred to outlives it.
struct AppStateDependencies final {
    Executor& executor;
    BinanceAPI& api;
    /// Its events are consumed by the state alone.
    PriceStreaming& stream;
    WatchlistStore store;
    /// A list in place of the stored one, which is then not read. For a state that is never edited:
    /// an edit would save it over the user's.
    std::optional<Watchlist> watchlist = std::nullopt;
    SettingsStore settingsStore;
    CoinCatalog& catalog;
    Clock now = systemClock();
    /// Beside the wall clock, which may be set back while a stream is silent.
    MonotonicClock monotonic = bootClock();
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
    /// Calls `observer` with each price that the stream tells, also with one that equals the last,
    /// after it has been stored, until the observation is destroyed. Snapshots are not told.
    [[nodiscard]] Observation observeStream(
        std::function<void(const TickerEvent& event)> observer) const {
        return m_streamed.observe([observer = std::move(observer)](const void* event) {
            observer(*static_cast<const TickerEvent*>(event));
        });
    }
    /// What the stream told last; `disconnected` before that.
    [[nodiscard]] const Observed<ConnectionState>& connectionState() const noexcept {
        return m_connectionState;
    }
    /// Why no prices stream: what ended the stream's last connection, until one delivers again. It
    /// is `notServedHere` when the last snapshot failed for that, on every server.
    [[nodiscard]] const Observed<std::optional<ConnectionFailure>>& connectionFailure() const {
        return m_connectionFailure;
    }
    /// When the last ticker or snapshot came; absent before the first.
    [[nodiscard]] const Observed<std::optional<TimePoint>>& lastUpdate() const noexcept {
        return m_lastUpdate;
    }
    /// The same, told by the wall clock as it is set at present: another time than `lastUpdate` when
    /// the clock was set back since then. For telling the age of the data.
    [[nodiscard]] std::optional<TimePoint> lastUpdateByPresentClock() const;
    /// When the ticker of this symbol came, from the stream or in a snapshot, told by the wall clock
    /// as it is set at present; absent before the first. Older than the last update for a coin that
    /// the stream tells nothing of while others have prices.
    [[nodiscard]] std::optional<TimePoint> lastUpdateOf(const std::string& symbol) const;
    /// What the label says. Prices of the stream reach it at most once a second; the last one of a
    /// second does at its end.
    [[nodiscard]] const Observed<PinnedQuote>& pinnedQuote() const noexcept {
        return m_pinnedQuote;
    }
    /// The same, with the freshness of this moment: nothing is told when a price grows old between
    /// two looks at the label.
    [[nodiscard]] PinnedQuote pinnedQuoteNow() const;
    /// What a label would say of this coin, pinned or not, at this moment; of none without a coin.
    /// Prices come in for the coins of the list alone.
    [[nodiscard]] PinnedQuote quoteOf(std::optional<Coin> coin) const;
    /// The text of `pinnedQuote`. It changes just after that.
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
        return m_todayOpens.opens();
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
    Task<void> add(Coin coin) { return addAll({std::move(coin)}); }
    /// The same for several coins at once, in their order: one save, one subscription, one request for
    /// their prices. Coins whose symbol is on the list are left out.
    Task<void> addAll(std::vector<Coin> coins);
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
    /// None stands for the watchlist. A save that fails is logged and not shown: little is lost. It
    /// does not wait for the disk: a power cut a few seconds later may cost the settings.
    void setLastBoard(std::optional<RankingBoard> board);

    // Requests.

    /// The candles for a coin's chart, at most `timeToLive(range)` old. Throws what
    /// `BinanceAPI::klines` throws.
    Task<std::vector<Candle>> chart(std::string symbol, ChartRange range);
    /// For how long `chart` answers with the same candles and without a request; 0 when it asks.
    [[nodiscard]] Seconds chartFreshFor(std::string_view symbol, ChartRange range) const {
        return m_chartCache.freshFor(symbol, range, m_now());
    }
    /// Fetches the tickers of all coins on the list, in one request.
    Task<void> refreshSnapshot();
    /// Fetches today's opens as far as they are missing, as `TodayOpens::refresh` does.
    Task<void> refreshTodayOpens() { return m_todayOpens.refresh(); }

private:
    /// An instant, as both clocks told it.
    struct Reading {
        TimePoint wall;
        Seconds monotonic;
    };

    Task<void> consumeEvents();
    void handle(const PriceEvent& event);
    void handleTicker(const TickerEvent& event);
    Task<void> runWatchdog();
    Task<void> checkStaleConnection();
    Task<void> subscribeStream();

    /// Stores a ticker that came at `now`.
    void setTicker(const std::string& symbol, const Ticker& ticker, TimePoint now);
    /// Notes that a ticker or a snapshot has come.
    void noteUpdate(TimePoint now);
    [[nodiscard]] TimePoint byPresentClock(const Reading& past) const;
    /// How long ago the last ticker or snapshot came, by the clock that says longer; beyond every
    /// threshold when none has.
    [[nodiscard]] Seconds silence() const;
    [[nodiscard]] PinnedQuote computePinnedQuote() const;
    /// How fresh the label's price is while the label shows one: `stale` or `live`.
    [[nodiscard]] PriceFreshness presentFreshness() const;
    /// The one place where the label's price, change and text are set.
    void updateLabel();
    void showPriceOfStream(TimePoint now);
    Task<void> endLabelSecond();
    void updateConnectionFailure();
    /// By a snapshot, at most once a minute.
    void askWhetherThisRegionIsServed();

    void applyWatchlist(Watchlist watchlist);
    void saveSettings(std::string_view textOnFailure);

    BinanceAPI& m_api;
    PriceStreaming& m_stream;
    WatchlistStore m_store;
    SettingsStore m_settingsStore;
    CoinCatalog& m_catalog;
    Clock m_now;
    MonotonicClock m_monotonic;
    Sleeper m_sleeper;
    Seconds m_watchdogInterval;
    Seconds m_staleReconnectThreshold;
    Logger m_logger{"AppState"};

    Observed<Watchlist> m_watchlist;
    ObservedMap<std::string, Ticker> m_tickers;
    mutable ChangeSignal m_streamed;
    Observed<ConnectionState> m_connectionState{ConnectionState::disconnected};
    Observed<std::optional<ConnectionFailure>> m_connectionFailure;
    Observed<std::optional<TimePoint>> m_lastUpdate;
    Observed<PinnedQuote> m_pinnedQuote;
    Observed<std::string> m_menuBarText;
    Observed<std::optional<std::string>> m_lastError;
    Observed<AppSettings> m_settings;
    TodayOpens m_todayOpens;

    // When each ticker came.
    std::unordered_map<std::string, Reading> m_tickerReadings;
    // The last update on the monotonic clock.
    Seconds m_updatedAt{};
    // Whether the requests, at the last look, found no server that serves this region.
    bool m_isOutsideRegion = false;
    TimePoint m_lastRegionRequest = kDistantPast;
    Observation m_streamFailureObservation;
    ChartCache m_chartCache;
    TimePoint m_lastLabelStamp = kDistantPast;
    // The wait for the end of the label's second.
    TaskScope::Handle m_labelSecond;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
