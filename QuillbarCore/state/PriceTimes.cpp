// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PriceTimes.h"

#include <algorithm>
#include <utility>

namespace quillbar {

PriceTimes::PriceTimes(Clock now, MonotonicClock monotonic)
    : m_now(std::move(now))
    , m_monotonic(std::move(monotonic)) {}

void PriceTimes::noteTicker(const std::string& symbol, TimePoint now) {
    m_tickers.insert_or_assign(symbol, Reading{.wall = now, .monotonic = m_monotonic()});
}

void PriceTimes::noteUpdate(TimePoint now) {
    // First, because observers of m_lastUpdate ask how long none has come.
    m_updatedAt = m_monotonic();
    m_lastUpdate.set(now);
}

std::optional<TimePoint> PriceTimes::lastUpdateByPresentClock() const {
    const std::optional<TimePoint>& update = *m_lastUpdate;
    if (!update) {
        return std::nullopt;
    }
    return byPresentClock({.wall = *update, .monotonic = m_updatedAt});
}

std::optional<TimePoint> PriceTimes::lastUpdateOf(const std::string& symbol) const {
    const auto found = m_tickers.find(symbol);
    if (found == m_tickers.end()) {
        return std::nullopt;
    }
    return byPresentClock(found->second);
}

TimePoint PriceTimes::byPresentClock(const Reading& past) const {
    // The two clocks never agree exactly.
    constexpr Seconds kTolerance{1};
    const TimePoint now = m_now();
    const Seconds since = m_monotonic() - past.monotonic;
    return now - past.wall + kTolerance < since ? now - since : past.wall;
}

Seconds PriceTimes::silence() const {
    // A wall clock that was set back does not show how long the stream has been silent.
    return std::max(m_now() - m_lastUpdate->value_or(kDistantPast), m_monotonic() - m_updatedAt);
}

}  // namespace quillbar
