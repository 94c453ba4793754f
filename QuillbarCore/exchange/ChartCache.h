// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/exchange/ChartRange.h"
#include "QuillbarCore/runtime/Time.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// The candles fetched so far, by pair and range. A value: an insertion returns another one, and
/// copies share nothing. It keeps every entry until another replaces it: there is at most one for
/// each coin and range that the user has looked at.
class ChartCache final {
public:
    /// The candles stored for this pair and range, if they are fresh: younger than the range's time
    /// to live. Candles stored later than `now` (the clock was set back) are fresh.
    [[nodiscard]] std::optional<std::vector<Candle>> value(std::string_view symbol,
                                                           ChartRange range,
                                                           TimePoint now) const;

    /// How long the candles stored for this pair and range stay fresh, at most the range's time to
    /// live; 0 without fresh ones.
    [[nodiscard]] Seconds freshFor(std::string_view symbol, ChartRange range, TimePoint now) const;

    /// The cache with these candles, which may be none, stored at `now` for this pair and range.
    /// They replace those stored before.
    [[nodiscard]] ChartCache inserting(std::vector<Candle> candles,
                                       std::string symbol,
                                       ChartRange range,
                                       TimePoint now) const;

private:
    struct Entry {
        std::vector<Candle> candles;
        TimePoint storedAt;
    };

    // Null when there is none.
    [[nodiscard]] const Entry* find(std::string_view symbol, ChartRange range) const;

    // By symbol, then by range. `std::less<>` looks a symbol up without copying its text.
    std::map<std::string, std::map<ChartRange, Entry>, std::less<>> m_entries;
};

}  // namespace quillbar
