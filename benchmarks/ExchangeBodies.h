// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Bodies.h"

#include <string>
#include <vector>

/// What the exchange and the market-cap service send, row for row as large as the real thing. The
/// same at each call.
namespace quillbar::benchmarks::ExchangeBodies {

/// About 3.7 MB.
[[nodiscard]] std::string exchangeInfo();

/// The tickers of 2,500 pairs.
[[nodiscard]] std::string tickers(simulator::Bodies::TickerForm form);

/// So many frames of the combined stream, of the USDT pairs in turn, each time with other prices.
[[nodiscard]] std::vector<std::string> frames(int count);

/// The 250 coins with the largest capitalisations.
[[nodiscard]] std::string coinMarkets();

}  // namespace quillbar::benchmarks::ExchangeBodies
