// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HTTPDataFetching.h"
#include "QuillbarCore/market/CoinGeckoAPI.h"
#include "QuillbarCore/runtime/Logger.h"

#include <memory>
#include <string>
#include <vector>

namespace quillbar {

/// The market-cap service over HTTP.
class CoinGeckoRESTClient final : public CoinGeckoAPI {
public:
    /// The most coins of one answer; only the first page is ever asked for.
    static constexpr int kMaximumPerPage = 250;

    /// `baseURL` is the service's version 3, without a slash at its end.
    CoinGeckoRESTClient(std::shared_ptr<HTTPDataFetching> fetcher, std::string baseURL);

    /// `count` is limited to 1 to `kMaximumPerPage`.
    Task<std::vector<MarketCapEntry>> topByMarketCap(int count) override;

private:
    std::shared_ptr<HTTPDataFetching> m_fetcher;
    std::string m_baseURL;
    Logger m_logger{"CoinGecko"};
};

}  // namespace quillbar
