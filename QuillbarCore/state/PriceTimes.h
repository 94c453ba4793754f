// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Time.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace quillbar {

/// When prices came, and how long none has come. It notes each time on two clocks, because the wall
/// clock may be set back meanwhile. For one thread.
class PriceTimes final {
public:
    PriceTimes(Clock now, MonotonicClock monotonic);

    /// Notes that the ticker of this symbol has come. `now` is the present wall clock time.
    void noteTicker(const std::string& symbol, TimePoint now);
    /// Notes that a ticker or a snapshot has come. `now` is the present wall clock time.
    void noteUpdate(TimePoint now);
    /// Forgets when the ticker of this symbol came.
    void remove(const std::string& symbol) { m_tickers.erase(symbol); }

    /// When the last ticker or snapshot came; absent before the first. The reference is valid for
    /// the life of this object. An observer may call every query here.
    [[nodiscard]] const Observed<std::optional<TimePoint>>& lastUpdate() const noexcept {
        return m_lastUpdate;
    }
    /// The same instant by the wall clock as it is set now.
    [[nodiscard]] std::optional<TimePoint> lastUpdateByPresentClock() const;
    /// When the last ticker of this symbol came, by the wall clock as it is set now; absent before
    /// the first.
    [[nodiscard]] std::optional<TimePoint> lastUpdateOf(const std::string& symbol) const;
    /// The time since the last ticker or snapshot, by the clock that gives the longer time; beyond
    /// every threshold when none has come.
    [[nodiscard]] Seconds silence() const;

private:
    /// An instant on both clocks.
    struct Reading {
        TimePoint wall;
        Seconds monotonic;
    };

    [[nodiscard]] TimePoint byPresentClock(const Reading& past) const;

    Clock m_now;
    MonotonicClock m_monotonic;
    Observed<std::optional<TimePoint>> m_lastUpdate;
    // The last update on the monotonic clock.
    Seconds m_updatedAt{};
    // When each ticker came.
    std::unordered_map<std::string, Reading> m_tickers;
};

}  // namespace quillbar
