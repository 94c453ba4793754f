// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ChartCache.h"

#include <algorithm>
#include <utility>

namespace quillbar {

std::optional<std::vector<Candle>> ChartCache::value(std::string_view symbol,
                                                     ChartRange range,
                                                     TimePoint now) const {
    const Entry* const entry = find(symbol, range);
    if (entry == nullptr) {
        return std::nullopt;
    }
    const Seconds age = now - entry->storedAt;
    if (age < timeToLive(range)) {
        return entry->candles;
    }
    return std::nullopt;
}

Seconds ChartCache::freshFor(std::string_view symbol, ChartRange range, TimePoint now) const {
    const Entry* const entry = find(symbol, range);
    if (entry == nullptr) {
        return Seconds(0);
    }
    const Seconds rest = timeToLive(range) - Seconds(now - entry->storedAt);
    return std::clamp(rest, Seconds(0), timeToLive(range));
}

ChartCache ChartCache::inserting(std::vector<Candle> candles,
                                 std::string symbol,
                                 ChartRange range,
                                 TimePoint now) const {
    ChartCache result = *this;
    result.m_entries[std::move(symbol)].insert_or_assign(range, Entry{std::move(candles), now});
    return result;
}

const ChartCache::Entry* ChartCache::find(std::string_view symbol, ChartRange range) const {
    const auto ranges = m_entries.find(symbol);
    if (ranges == m_entries.end()) {
        return nullptr;
    }
    const auto entry = ranges->second.find(range);
    return entry == ranges->second.end() ? nullptr : &entry->second;
}

}  // namespace quillbar
