// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/BinanceAPI.h"
#include "QuillbarCore/exchange/EndpointSelector.h"
#include "QuillbarCore/exchange/HTTPDataFetching.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Worker.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// The exchange's REST interface. A request that fails because of its endpoint is sent again at
/// once, to the next endpoint, or again to the last one; it is sent at most as often as there are
/// endpoints. Every failed attempt is logged.
///
/// A value: copies share the fetcher and the selector, so that what one learns of an endpoint holds
/// for all. Any number of requests may run at once.
class BinanceRESTClient final : public BinanceAPI {
public:
    /// Large bodies are decoded on `worker`, which outlives every request.
    BinanceRESTClient(std::shared_ptr<HTTPDataFetching> fetcher,
                      std::shared_ptr<EndpointSelector> endpoints,
                      Worker& worker);

    /// Replaces the selector of this client and its copies. Running requests keep theirs.
    void useEndpoints(std::shared_ptr<EndpointSelector> endpoints);

    Task<std::vector<Candle>> klines(std::string symbol,
                                     std::string interval,
                                     int limit,
                                     std::optional<std::int64_t> startTime) override;
    Task<std::vector<Coin>> exchangeInfo() override;
    Task<TickerMap> ticker24h(std::vector<std::string> symbols) override;
    Task<TickerMap> ticker24hAll() override;

private:
    // Names and values, not yet percent-encoded.
    using Query = std::vector<std::pair<std::string, std::string>>;

    // The body of a path below the endpoint in use.
    [[nodiscard]] Task<std::string> get(std::string path, Query query) const;
    // One attempt.
    [[nodiscard]] Task<std::string> fetch(std::string url) const;

    std::shared_ptr<HTTPDataFetching> m_fetcher;
    // Shared by all copies, so that a new selector reaches them all.
    std::shared_ptr<std::shared_ptr<EndpointSelector>> m_endpoints;
    Worker* m_worker;
    Logger m_logger{"REST"};
};

}  // namespace quillbar
