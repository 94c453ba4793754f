// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Market.h"

#include <string>
#include <string_view>
#include <vector>

/// The JSON texts of the exchange and of the market-cap service, key for key as the real ones.
/// Pure functions of the market's state.
namespace quillbar::simulator::Bodies {

/// Which of the exchange's two forms of a 24-hour row.
enum class TickerForm { full, mini };

[[nodiscard]] std::string exchangeInfo(const Market& market);
[[nodiscard]] std::string tickers(const Market& market,
                                  const std::vector<const Listing*>& listings,
                                  TickerForm form);
/// The object alone, as the exchange answers a request for one symbol.
[[nodiscard]] std::string ticker(const Market& market, const Listing& listing, TickerForm form);
[[nodiscard]] std::string klines(const std::vector<CandleRow>& rows, const Listing& listing);
/// One text frame of the combined stream.
[[nodiscard]] std::string miniTickerFrame(const Market& market, const Listing& listing);
/// `perPage` coins by falling market capitalisation, from the page given (1 is the first). Some
/// rows hold nulls and some symbols repeat, as with the real service.
[[nodiscard]] std::string coinMarkets(const Market& market, int perPage, int page);
/// {"code":-1121,"msg":"Invalid symbol."} and the like.
[[nodiscard]] std::string error(int code, std::string_view message);

}  // namespace quillbar::simulator::Bodies
