// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ChartCache.h"

#include <utility>

namespace quillbar {

std::optional<std::vector<Candle>> ChartCache::value(std::string_view symbol,
                                                     ChartRange range,
                                                     TimePoint now) const {
    const auto ranges = m_entries.find(symbol);
    if (ranges == m_entries.end()) {
        return std::nullopt;
    }
    const auto entry = ranges->second.find(range);
    if (entry == ranges->second.end()) {
        return std::nullopt;
    }
    const Seconds age = now - entry->second.storedAt;
    if (age < timeToLive(range)) {
        return entry->second.candles;
    }
    return std::nullopt;
}

ChartCache ChartCache::inserting(std::vector<Candle> candles,
                                 std::string symbol,
                                 ChartRange range,
                                 TimePoint now) const {
    ChartCache result = *this;
    result.m_entries[std::move(symbol)].insert_or_assign(range, Entry{std::move(candles), now});
    return result;
}

}  // namespace quillbar
