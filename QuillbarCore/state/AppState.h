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
#include "QuillbarCore/state/PriceTimes.h"
#include "QuillbarCore/state/SettingsStore.h"
#include "QuillbarCore/state/TodayOpens.h"
#include "QuillbarCore/state/WatchlistStore.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
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
    /// A list to use in place of the stored one, which is then not read. Only for a state that is
    /// never edited: an edit would overwrite the user's list.
    std::optional<Watchlist> watchlist = std::nullopt;
    SettingsStore settingsStore;
    CoinCatalog& catalog;
    Clock now = systemClock();
    /// Used beside the wall clock, which may be set back while a stream is silent.
    MonotonicClock monotonic = bootClock();
    /// Defines the local days.
    Calendar calendar = Calendar::autoupdatingCurrent();
    /// Sleeps on a monotonic clock.
    Sleeper sleeper;
    /// How often the label and the connection are checked.
    Seconds watchdogInterval{30};
    /// A connected stream that has been silent for longer is started again.
    Seconds staleReconnectThreshold{90};
};

/// The observable model behind the label and the watchlist: the user's list and settings, which it
/// saves at each edit; the latest prices, from the stream and from snapshots; the label's text.
///
/// Belongs to the executor's thread. Observers are called for each change of a field, but not when
/// a field is set to an equal value. An observer may read any field, but it calls no edit and
/// destroys nothing of this object; it posts such things to the executor.
///
/// A task that an operation returns uses this object until the task ends: end it before destroying
/// this object. The tasks that the object started itself end in its destructor.
///
/// Only `chart` throws, and every cancelled task throws `Cancelled`. A failed request is logged and
/// changes nothing; a failed save keeps the edit in memory and sets `lastError`.
class AppState final {
public:
    /// The age beyond which prices are stale and the label drops them.
    static constexpr Seconds kStaleDataThreshold{60};

    /// Loads the watchlist and the settings and computes the label; connects to nothing.
    explicit AppState(AppStateDependencies dependencies);

    /// The start-up sequence, to be awaited once: listens to the stream, starts the watchdog,
    /// subscribes the stream to the watchlist, then fetches the snapshot and today's opens.
    Task<void> bootstrap();

    /// Call it when the machine woke from sleep or a network came back: subscribes the stream again
    /// at once, whatever its state, and fetches the snapshot.
    Task<void> resume();

    // What is observed. The references are valid for the life of this object.

    /// The user's list.
    [[nodiscard]] const Observed<Watchlist>& watchlist() const noexcept { return m_watchlist; }
    /// The latest ticker of each symbol, from the stream and from snapshots.
    [[nodiscard]] const ObservedMap<std::string, Ticker>& tickers() const noexcept {
        return m_tickers;
    }
    /// Calls `observer` with each price of the stream after it was stored, even if it equals the
    /// last one, until the observation is destroyed. Prices of snapshots do not count.
    [[nodiscard]] Observation observeStream(
        std::function<void(const TickerEvent& event)> observer) const {
        return m_streamed.observe([observer = std::move(observer)](const void* event) {
            observer(*static_cast<const TickerEvent*>(event));
        });
    }
    /// The last state that the stream reported; `disconnected` before the first.
    [[nodiscard]] const Observed<ConnectionState>& connectionState() const noexcept {
        return m_connectionState;
    }
    /// Why no prices arrive: what ended the stream's last connection, until one delivers again. It
    /// is `notServedHere` if the last snapshot failed for that reason on every server.
    [[nodiscard]] const Observed<std::optional<ConnectionFailure>>& connectionFailure() const {
        return m_connectionFailure;
    }
    /// When the last ticker or snapshot came; absent before the first.
    [[nodiscard]] const Observed<std::optional<TimePoint>>& lastUpdate() const noexcept {
        return m_priceTimes.lastUpdate();
    }
    /// The same instant by the wall clock as it is set now. It differs from `lastUpdate` if the
    /// clock was set back since then. For showing the age of the data.
    [[nodiscard]] std::optional<TimePoint> lastUpdateByPresentClock() const {
        return m_priceTimes.lastUpdateByPresentClock();
    }
    /// When the last ticker of this symbol came, from the stream or in a snapshot, by the wall
    /// clock as it is set now; absent before the first. Older than the last update for a coin
    /// without new prices while others have some.
    [[nodiscard]] std::optional<TimePoint> lastUpdateOf(const std::string& symbol) const {
        return m_priceTimes.lastUpdateOf(symbol);
    }
    /// What the label says. It takes a price of the stream at most once a second; at the end of the
    /// second it takes the last one that came meanwhile.
    [[nodiscard]] const Observed<PinnedQuote>& pinnedQuote() const noexcept {
        return m_pinnedQuote;
    }
    /// The same with the present freshness: observers are not called when a price grows old between
    /// two checks of the label.
    [[nodiscard]] PinnedQuote pinnedQuoteNow() const;
    /// What a label would say now of this coin, pinned or not, or without a coin. Only the coins of
    /// the list get prices.
    [[nodiscard]] PinnedQuote quoteOf(std::optional<Coin> coin) const;
    /// The text of `pinnedQuote`. It changes just after `pinnedQuote`.
    [[nodiscard]] const Observed<std::string>& menuBarText() const noexcept {
        return m_menuBarText;
    }
    /// The message for the user if the last edit was not saved.
    [[nodiscard]] const Observed<std::optional<std::string>>& lastError() const noexcept {
        return m_lastError;
    }
    /// The user's settings.
    [[nodiscard]] const Observed<AppSettings>& settings() const noexcept { return m_settings; }
    /// The known prices at local midnight, by symbol. They are fetched only while the basis is
    /// `today`.
    [[nodiscard]] const ObservedMap<std::string, double>& todayOpens() const noexcept {
        return m_todayOpens.opens();
    }

    // What is computed at each call.

    /// Whether what is shown may be out of date: the stream is not connected, or its last price is
    /// over a minute old. A connected stream that has sent nothing yet counts as fresh; the label,
    /// which has nothing to show then, is stricter on purpose.
    [[nodiscard]] bool isDataStale() const;

    /// The symbol's change in percent by the basis of the settings; absent when its ticker, or the
    /// open that the basis needs, is unknown.
    [[nodiscard]] std::optional<double> displayPercent(const std::string& symbol) const;

    /// For the search of coins to add.
    [[nodiscard]] CoinCatalog& catalog() const noexcept { return m_catalog; }

    // Edits of the watchlist. Each is saved at once, before the first suspension.

    /// Appends a coin, subscribes the stream to it and fetches its price and open. Does nothing
    /// when its symbol is on the list.
    Task<void> add(Coin coin) { return addAll({std::move(coin)}); }
    /// The same for several coins at once, in their order: one save, one subscription, one request
    /// for their prices. Coins whose symbol is on the list are left out.
    Task<void> addAll(std::vector<Coin> coins);
    /// Removes a coin with its prices and subscribes the stream to the rest. Does nothing when the
    /// symbol is not on the list.
    Task<void> remove(std::string symbol);
    /// Moves coins as `Watchlist::moving` does (which aborts for an offset that is not on the
    /// list). Does nothing when the order stays as it is. The stream's subscription stays too.
    Task<void> move(std::set<std::size_t> fromOffsets, std::size_t toOffset);
    /// Pins the coin, whose price the label shows at once. Saves even when nothing changes.
    void pin(std::string_view symbol);

    // Edits of the settings. Each is saved at once; each does nothing for the value that is set.

    /// Also fetches today's opens in the background, if the basis needs them.
    void setChangeBasis(ChangeBasis basis);
    void setAppearance(AppearanceMode mode);
    /// Absent for the watchlist. A failed save is logged and not shown, because little is lost. The
    /// save does not wait for the disk: a power cut a few seconds later may cost the settings.
    void setLastBoard(std::optional<RankingBoard> board);

    // Requests.

    /// The candles for a coin's chart, at most `timeToLive(range)` old. Throws what
    /// `BinanceAPI::klines` throws.
    Task<std::vector<Candle>> chart(std::string symbol, ChartRange range);
    /// For how long `chart` returns the same candles without a request; 0 when it would send one.
    [[nodiscard]] Seconds chartFreshFor(std::string_view symbol, ChartRange range) const {
        return m_chartCache.freshFor(symbol, range, m_now());
    }
    /// Fetches the tickers of all coins on the list, in one request.
    Task<void> refreshSnapshot();
    /// Fetches today's opens as far as they are missing, as `TodayOpens::refresh` does.
    Task<void> refreshTodayOpens() { return m_todayOpens.refresh(); }

private:
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
    [[nodiscard]] PinnedQuote computePinnedQuote() const;
    /// How fresh the label's price is while the label shows one: `stale` or `live`.
    [[nodiscard]] PriceFreshness presentFreshness() const;
    /// The one place where the label's price, change and text are set.
    void updateLabel();
    void showPriceOfStream(TimePoint now);
    Task<void> endLabelSecond();
    void updateConnectionFailure();
    /// Requests a snapshot for that, at most once a minute.
    void askWhetherThisRegionIsServed();

    void applyWatchlist(Watchlist watchlist);
    void saveSettings(std::string_view textOnFailure);

    BinanceAPI& m_api;
    PriceStreaming& m_stream;
    WatchlistStore m_store;
    SettingsStore m_settingsStore;
    CoinCatalog& m_catalog;
    Clock m_now;
    Sleeper m_sleeper;
    Seconds m_watchdogInterval;
    Seconds m_staleReconnectThreshold;
    Logger m_logger{"AppState"};

    Observed<Watchlist> m_watchlist;
    ObservedMap<std::string, Ticker> m_tickers;
    mutable ChangeSignal m_streamed;
    Observed<ConnectionState> m_connectionState{ConnectionState::disconnected};
    Observed<std::optional<ConnectionFailure>> m_connectionFailure;
    PriceTimes m_priceTimes;
    Observed<PinnedQuote> m_pinnedQuote;
    Observed<std::string> m_menuBarText;
    Observed<std::optional<std::string>> m_lastError;
    Observed<AppSettings> m_settings;
    TodayOpens m_todayOpens;

    // Whether the last snapshot found no server that serves this region.
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
