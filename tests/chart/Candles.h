// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/runtime/Time.h"

#include <chrono>
#include <cmath>
#include <vector>

namespace quillbar {

/// A candle that opens and closes at these prices and reaches no others.
inline Candle candle(TimePoint openTime, double open, double close) {
    return {openTime, open, std::fmax(open, close), std::fmin(open, close), close};
}

/// Candles one after another, each closing at one of the prices, where the next one opens.
inline std::vector<Candle> candlesThrough(const std::vector<double>& closes,
                                          TimePoint first,
                                          Seconds interval) {
    std::vector<Candle> candles;
    TimePoint time = first;
    double open = closes.empty() ? 0 : closes.front();
    for (const double close : closes) {
        candles.push_back(candle(time, open, close));
        open = close;
        time += interval;
    }
    return candles;
}

/// So many candles that swing twice from the price `low` to the price `high` and back.
inline std::vector<Candle> waves(int count,
                                 double low,
                                 double high,
                                 TimePoint first,
                                 Seconds interval) {
    constexpr double kFullTurns = 4 * 3.14159265358979323846;
    std::vector<double> closes;
    for (int index = 0; index < count; ++index) {
        const double part = count > 1 ? index / (count - 1.0) : 0;
        closes.push_back(low + (high - low) * (1 - std::cos(kFullTurns * part)) / 2);
    }
    return candlesThrough(closes, first, interval);
}

}  // namespace quillbar
