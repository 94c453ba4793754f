// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ChartDomain.h"

#include <vector>

/// Where the price axis of a chart is marked.
namespace quillbar::PriceTicks {

/// The prices in the range, ends included, that are multiples of a round step, in rising order. The
/// step is 1, 2 or 5 times a power of ten: the smallest that gives no more than `most`, which is
/// positive. Each price is the double nearest to its decimal.
///
/// None for a range that is not finite or not of positive prices, and for one whose ends are too
/// close to tell prices between them apart; 0 for one that is next to nothing above 0. Pure.
[[nodiscard]] std::vector<double> within(const PriceRange& range, int most);

}  // namespace quillbar::PriceTicks
