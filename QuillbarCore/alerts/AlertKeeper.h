// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/alerts/AlertBook.h"
#include "QuillbarCore/alerts/AlertStore.h"
#include "QuillbarCore/exchange/PriceEvent.h"
#include "QuillbarCore/model/Ticker.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/AppState.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillbar {

/// What an `AlertKeeper` is built on. What is referred to outlives it.
struct AlertKeeperDependencies final {
    Executor& executor;
    AppState& appState;
    AlertStore store;
    Clock now = systemClock();
    /// Counts the time for which the machine slept, which the sleeper does not.
    MonotonicClock monotonic = bootClock();
    Sleeper sleeper;
};

/// Keeps the user's alerts: passes them the live prices of an `AppState`, stores them in the file,
/// and holds what fired until somebody has shown it.
///
/// What fired is saved before observers are called, and leaves the file once it was shown: a
/// process that is killed in between shows it once more after its next start. If the file cannot be
/// written, observers are called nevertheless; the alert is then still armed in the file.
///
/// A price counts when it comes from the stream while the program runs without a pause. After a
/// pause of over a minute (the machine slept, the process was stopped), prices from before it may
/// still be waiting, so prices are ignored for `kSettling`. After that, as after a lost connection
/// and after the start, an alert fires only if its line was crossed since the last price known
/// before. After a minute without any price of the stream, delayed prices may come all at once: the
/// latest one of each pair counts, `kSettling` later.
///
/// Removing a coin removes its alerts. Main thread. Nothing here throws; a failed save is logged,
/// and `isSaved` reports it.
class AlertKeeper final {
public:
    /// The age beyond which a price fires nothing.
    static constexpr Seconds kMaximumAge{60};
    /// For how long prices are passed over after a pause, and held back after a silence.
    static constexpr Seconds kSettling{5};
    /// How often it looks whether the program was paused, while an alert is switched on.
    static constexpr Seconds kBeat{30};

    /// Loads the alerts, and what fired and was not shown. Watches prices from then on.
    explicit AlertKeeper(AlertKeeperDependencies dependencies);

    /// Every alert, by id. The references are valid for the life of this object.
    [[nodiscard]] const Observed<std::vector<Alert>>& alerts() const noexcept { return m_alerts; }
    [[nodiscard]] std::vector<Alert> alertsOf(std::string_view symbol) const;
    /// Whether an alert of the pair is switched on.
    [[nodiscard]] bool has(std::string_view symbol) const;
    /// What fired and has not been shown, the oldest first. An alert that fires again replaces its
    /// earlier entry.
    [[nodiscard]] const Observed<std::vector<FiredAlert>>& fired() const noexcept {
        return m_fired;
    }
    /// Whether the file holds what this object holds.
    [[nodiscard]] const Observed<bool>& isSaved() const noexcept { return m_isSaved; }

    /// Adds an alert and saves it. It gets a new id, and is armed if the latest known price of its
    /// pair is on the near side of its line, or if `seen` is: the value of the pair when the user
    /// chose the line, which it may have passed since. Returns the id; absent, and nothing changes,
    /// for an alert that is not sound.
    std::optional<std::int64_t> add(Alert alert, std::optional<double> seen = std::nullopt);
    /// Removes an alert and saves. Does nothing for an id that is not there.
    void remove(std::int64_t id);
    /// Brings an alert back that was removed, as it was then, and saves. Does nothing while it is
    /// there, or for an id that was never given.
    void putBack(const Alert& alert);
    /// Keeps an alert without firing it, and saves. Does nothing for an id that is not there, or is
    /// off already.
    void switchOff(std::int64_t id);
    /// Has it fire again, and saves. It begins like an alert that is added then. Does nothing for
    /// an id that is not there, or is on already.
    void switchOn(std::int64_t id);
    /// Restores the alerts that were removed with the last removed coin, if it is this one.
    void restore(const std::string& symbol);
    /// Notes that the user has seen what fired. Does nothing for a serial that is not among
    /// `fired`.
    void markShown(std::int64_t serial);

private:
    [[nodiscard]] bool isOnNearSide(const Alert& alert) const;
    [[nodiscard]] AlertBook::Latest latest() const;
    void replace(const Alert& alert);
    void onPrice(const TickerEvent& event);
    void onWatchlist(const Watchlist& watchlist);
    void take(const std::string& symbol, const Ticker& ticker);
    Task<void> takeHeld();
    void fire(const std::vector<AlertBook::Firing>& firings);
    void follow();
    [[nodiscard]] bool isTrusted();
    Task<void> beat();
    [[nodiscard]] std::int64_t takeNumber();
    void save(const std::vector<FiredAlert>& fired);
    void tell();

    AppState& m_appState;
    AlertStore m_store;
    Clock m_now;
    MonotonicClock m_monotonic;
    Sleeper m_sleeper;
    Logger m_logger{"AlertKeeper"};
    AlertBook m_book;
    std::int64_t m_nextNumber = 1;
    Observed<bool> m_isSaved{true};
    Observed<std::vector<Alert>> m_alerts;
    Observed<std::vector<FiredAlert>> m_fired;
    // The symbols of the list before its next change, and what went with the last removed coin.
    Watchlist m_watchlist;
    std::vector<Alert> m_removed;
    // When the program was last seen running, and from when on prices count, on the monotonic
    // clock.
    Seconds m_seenRunning{};
    Seconds m_trustedFrom{};
    // When the stream told its last price, and the latest prices that are held back.
    Seconds m_heardAt{};
    std::unordered_map<std::string, Ticker> m_held;
    TaskScope::Handle m_settling;
    // Empty while no alert is switched on.
    Observation m_prices;
    Observation m_connection;
    Observation m_list;
    TaskScope::Handle m_beating;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
