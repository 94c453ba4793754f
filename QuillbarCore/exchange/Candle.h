// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Time.h"

namespace quillbar {

/// One candle of a price chart. A plain value. Equality compares all five fields as IEEE doubles
/// do.
struct Candle final {
    /// When the candle's interval starts.
    TimePoint openTime;
    /// The first price of the interval, in the quote asset.
    double open = 0;
    /// The highest price of the interval.
    double high = 0;
    /// The lowest price of the interval.
    double low = 0;
    /// The last price of the interval; of the running interval, the price so far.
    double close = 0;

    [[nodiscard]] bool operator==(const Candle&) const = default;
};

}  // namespace quillbar
