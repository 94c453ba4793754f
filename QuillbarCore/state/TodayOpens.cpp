// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/TodayOpens.h"

#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/model/LocalDay.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <exception>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

constexpr Seconds kRetrySpacing{60};
// Long lists ask for their opens in groups, with a pause between.
constexpr std::size_t kAskedTogether = 10;
constexpr Seconds kPause{1};

/// The number of whole minutes of UTC up to the instant. No local day begins within one: today all
/// zones differ from UTC by whole minutes.
std::int64_t minuteOf(TimePoint instant) {
    return static_cast<std::int64_t>(std::floor(instant.time_since_epoch() / Seconds(60)));
}

}  // namespace

TodayOpens::TodayOpens(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
    , m_watchlistObservation(m_dependencies.watchlist.observe(
          [this](const Watchlist& /*list*/) { m_freshMinute.reset(); }))
    , m_scope(m_dependencies.executor) {}

bool TodayOpens::areWanted() const {
    return m_dependencies.settings->changeBasis == ChangeBasis::today;
}

void TodayOpens::dropThoseOfAnotherDay(TimePoint now) {
    const std::int64_t today = LocalDay::key(now, m_dependencies.calendar);
    if (m_dayKey != today) {
        m_dayKey = today;
        m_freshMinute.reset();
        m_opens.clear();
    }
}

void TodayOpens::check(TimePoint now) {
    if (!areWanted() || m_refreshing.isRunning()) {
        return;
    }
    // Within a minute only edits can make an open missing, and those reset m_freshMinute.
    const std::int64_t minute = minuteOf(now);
    if (m_freshMinute == minute) {
        return;
    }
    const auto& coins = m_dependencies.watchlist->coins;
    const bool areFresh = m_dayKey == LocalDay::key(now, m_dependencies.calendar)
                          && std::all_of(coins.begin(), coins.end(), [this](const Coin& coin) {
                                 return m_opens.find(coin.symbol) != nullptr;
                             });
    if (areFresh) {
        m_freshMinute = minute;
    } else {
        m_refreshing = m_scope.spawn(refresh());
    }
}

void TodayOpens::followBasis() {
    dropThoseOfAnotherDay(m_dependencies.now());
    if (areWanted() && !m_refreshing.isRunning()) {
        m_refreshing = m_scope.spawn(refresh());
    }
}

Task<void> TodayOpens::refresh() {
    if (!areWanted()) {
        co_return;
    }
    const TimePoint now = m_dependencies.now();
    dropThoseOfAnotherDay(now);
    if (isYoungerThan(kRetrySpacing, m_lastAttempt, now)) {
        co_return;
    }
    m_lastAttempt = now;
    std::vector<std::string> missing = m_dependencies.watchlist->followedSymbols();
    std::erase_if(missing,
                  [this](const std::string& symbol) { return m_opens.find(symbol) != nullptr; });
    const LocalMidnight midnight{LocalDay::key(now, m_dependencies.calendar),
                                 LocalDay::midnightEpochMs(now, m_dependencies.calendar)};
    std::size_t asked = 0;
    for (const std::string& symbol : missing) {
        if (asked > 0 && asked % kAskedTogether == 0) {
            co_await m_dependencies.sleeper(kPause);
        }
        // The user may have changed the settings or the list meanwhile.
        if (!areWanted()) {
            break;
        }
        if (!m_dependencies.watchlist->contains(symbol)) {
            continue;
        }
        ++asked;
        co_await fetch(symbol, midnight);
    }
    m_dependencies.onRefreshed();
}

Task<void> TodayOpens::fetch(std::string symbol, LocalMidnight midnight) {
    try {
        const std::vector<Candle> candles =
            co_await m_dependencies.api.klines(symbol, "1m", 1, midnight.epochMs);
        if (candles.empty()) {
            m_logger.log("today open fetch returned an empty candle list for {}", symbol);
        } else if (m_dayKey == midnight.dayKey) {
            // If the day has changed, the opens of the next day are being fetched.
            m_opens.set(symbol, candles.front().open);
        }
    } catch (const std::exception& error) {
        m_logger.error("today open refresh failed for {}: {}", symbol, error.what());
    }
}

}  // namespace quillbar
