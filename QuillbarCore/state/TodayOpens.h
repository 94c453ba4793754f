// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/BinanceAPI.h"
#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/AppSettings.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quillbar {

/// The prices of the followed coins at local midnight, for changes on the basis `today`. Nothing is
/// fetched on another basis.
///
/// Belongs to the executor's thread. Nothing here throws, except `Cancelled` out of a cancelled
/// task. A failed request is logged, and the open stays unknown.
class TodayOpens final {
public:
    /// What is referred to outlives the object.
    struct Dependencies final {
        Executor& executor;
        BinanceAPI& api;
        Clock now;
        /// Defines the local days.
        Calendar calendar;
        Sleeper sleeper;
        const Observed<Watchlist>& watchlist;
        const Observed<AppSettings>& settings;
        /// Called at the end of each refresh that was due.
        std::function<void()> onRefreshed;
    };

    explicit TodayOpens(Dependencies dependencies);

    /// The opens that are known, by symbol.
    [[nodiscard]] const ObservedMap<std::string, double>& opens() const noexcept { return m_opens; }

    /// Fetches the missing opens if the last attempt is at least a minute old, with one request
    /// each and at most ten a second. End the task before destroying this object.
    Task<void> refresh();

    /// Starts a refresh in the background when a new day has begun or an open is missing. Cheap
    /// enough to be called with each price.
    void check(TimePoint now);

    /// Call it when the basis in the settings has changed: drops the opens of another day and, on
    /// the basis `today`, starts a refresh in the background unless one runs.
    void followBasis();

    /// Forgets the open of a coin that is no longer on the list.
    void remove(const std::string& symbol) { m_opens.remove(symbol); }

private:
    /// The start of a local day, and the key of that day.
    struct LocalMidnight {
        std::int64_t dayKey;
        std::int64_t epochMs;
    };

    [[nodiscard]] bool areWanted() const;
    void dropThoseOfAnotherDay(TimePoint now);
    Task<void> fetch(std::string symbol, LocalMidnight midnight);

    Dependencies m_dependencies;
    Logger m_logger{"AppState"};
    ObservedMap<std::string, double> m_opens;
    std::optional<std::int64_t> m_dayKey;
    TimePoint m_lastAttempt = kDistantPast;
    // The last minute in which all opens of the day were found; absent after an edit. With it only
    // the first price of a minute has to look at the time zone and the list.
    std::optional<std::int64_t> m_freshMinute;
    Observation m_watchlistObservation;
    // The refresh in the background.
    TaskScope::Handle m_refreshing;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
