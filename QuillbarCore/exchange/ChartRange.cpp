// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ChartRange.h"

#include "QuillbarCore/model/RawValue.h"

#include <cstddef>

namespace quillbar {

namespace {

struct Description {
    std::string_view rawValue;
    std::string_view displayName;
    std::string_view interval;
    int limit;
    Seconds timeToLive;
};

// In the order of the enumeration.
constexpr std::array<Description, kChartRanges.size()> kDescriptions{{
    {"day", "1D", "5m", 288, Seconds(300)},
    {"week", "1W", "1h", 168, Seconds(1800)},
    {"month", "1M", "4h", 180, Seconds(7200)},
}};

const Description& description(ChartRange range) {
    return kDescriptions.at(static_cast<std::size_t>(range));
}

}  // namespace

std::string_view rawValue(ChartRange range) {
    return description(range).rawValue;
}

std::optional<ChartRange> chartRange(std::string_view rawValue) {
    return valueWithRawText(rawValue, kChartRanges);
}

std::string_view displayName(ChartRange range) {
    return description(range).displayName;
}

std::string_view interval(ChartRange range) {
    return description(range).interval;
}

int limit(ChartRange range) {
    return description(range).limit;
}

Seconds timeToLive(ChartRange range) {
    return description(range).timeToLive;
}

}  // namespace quillbar
