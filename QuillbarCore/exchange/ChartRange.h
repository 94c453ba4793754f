// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Time.h"

#include <array>
#include <optional>
#include <string_view>

namespace quillbar {

/// The span that a chart shows: 24 hours, 7 days or 30 days, ending now.
enum class ChartRange { day, week, month };

/// Every range, in the order in which they are offered.
inline constexpr std::array kChartRanges{ChartRange::day, ChartRange::week, ChartRange::month};

/// The name of the range in a file: "day", "week", "month". Valid for the life of the process, like
/// every text here.
[[nodiscard]] std::string_view rawValue(ChartRange range);

/// The range of a raw value, which is compared exactly; absent for any other text.
[[nodiscard]] std::optional<ChartRange> chartRange(std::string_view rawValue);

/// What the user reads: "1D", "1W", "1M".
[[nodiscard]] std::string_view displayName(ChartRange range);

/// The exchange's code for the length of one candle: "5m", "1h", "4h".
[[nodiscard]] std::string_view interval(ChartRange range);

/// How many candles fill the range.
[[nodiscard]] int limit(ChartRange range);

/// How long fetched candles stay fresh.
[[nodiscard]] Seconds timeToLive(ChartRange range);

}  // namespace quillbar
