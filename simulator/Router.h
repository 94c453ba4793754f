// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/HttpMessage.h"
#include "simulator/Market.h"

#include <string>
#include <unordered_set>

namespace quillbar::simulator {

/// Answers requests from the market's state: the exchange's REST paths, the market caps, the icons.
/// Knows nothing of sockets or faults. The market outlives it.
class Router final {
public:
    explicit Router(const Market& market);

    /// The true answer; a status of 400, 404 or 405 with the exchange's error body where it
    /// refuses.
    [[nodiscard]] HttpResponse answer(const HttpRequest& request);

private:
    [[nodiscard]] HttpResponse exchangeInfo();
    [[nodiscard]] HttpResponse klines(const HttpRequest& request) const;
    [[nodiscard]] HttpResponse ticker24h(const HttpRequest& request) const;
    [[nodiscard]] HttpResponse coinMarkets(const HttpRequest& request) const;
    [[nodiscard]] HttpResponse icon(const HttpRequest& request) const;

    const Market& m_market;
    std::unordered_set<std::string> m_baseAssets;
    // Megabytes that never change: made at the first request.
    std::string m_exchangeInfo;
};

/// The pairs a stream's `streams` parameter names, each once, in its order; unknown names are
/// passed over, as the exchange does.
[[nodiscard]] std::vector<const Listing*> subscribedListings(const Market& market,
                                                             std::string_view streams);

/// The answer with one of its prices replaced by "abc"; the one a reader of that body converts.
[[nodiscard]] HttpResponse withWrongNumber(HttpResponse response);

/// The answer with nothing in its list: of pairs, tickers, candles or market caps. Any other answer
/// as it is.
[[nodiscard]] HttpResponse withEmptyList(HttpResponse response);

}  // namespace quillbar::simulator
