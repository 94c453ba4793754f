// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/chart/ChartDomain.h"

#include <vector>

/// Where the price axis of a chart is marked.
namespace quillbar::PriceTicks {

/// The prices in the range, ends included, that are multiples of a round step, in rising order. The
/// step is 1, 2 or 5 times a power of ten: the smallest that gives no more than `most`, which is
/// positive. Each price is the double nearest to its decimal.
///
/// There are none for a range that is not finite or has no positive prices, and for one whose ends
/// are so close that doubles cannot tell the prices between them apart. For a range just above 0
/// the only one is 0. Pure.
[[nodiscard]] std::vector<double> within(const PriceRange& range, int most);

}  // namespace quillbar::PriceTicks
