// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/ChangeBasis.h"

#include <optional>

/// The one rule for the change that the user sees. Pure; callable from any thread.
namespace quillbar::ChangeCalculator {

/// The change of lastPrice in percent, unrounded (2.5 means +2.5 %), against the open that the
/// basis names. Without a usable open the two bases differ on purpose:
/// - today: absent when todayOpen is absent or exactly 0 (it has not been fetched yet);
/// - rolling24h: 0 when openPrice24h is exactly 0 (a pair that nobody traded has not moved).
[[nodiscard]] inline std::optional<double> percent(double lastPrice,
                                                   double openPrice24h,
                                                   std::optional<double> todayOpen,
                                                   ChangeBasis basis) {
    const auto changeFrom = [lastPrice](double open) { return (lastPrice - open) / open * 100; };
    if (basis == ChangeBasis::today) {
        if (!todayOpen || *todayOpen == 0) {
            return std::nullopt;
        }
        return changeFrom(*todayOpen);
    }
    return openPrice24h == 0 ? 0 : changeFrom(openPrice24h);
}

}  // namespace quillbar::ChangeCalculator
