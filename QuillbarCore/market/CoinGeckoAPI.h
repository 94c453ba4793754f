// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapEntry.h"
#include "QuillbarCore/runtime/Task.h"

#include <vector>

namespace quillbar {

/// The market-cap service, as its model sees it. Belongs to the executor's thread.
class CoinGeckoAPI {
public:
    CoinGeckoAPI() = default;
    CoinGeckoAPI(const CoinGeckoAPI&) = delete;
    CoinGeckoAPI& operator=(const CoinGeckoAPI&) = delete;
    CoinGeckoAPI(CoinGeckoAPI&&) = delete;
    CoinGeckoAPI& operator=(CoinGeckoAPI&&) = delete;
    virtual ~CoinGeckoAPI() = default;

    /// The coins with the largest capitalisations, the largest first; symbols may repeat. Throws
    /// `CoinGeckoError` for a status other than 200, `URLError` for a transport error,
    /// `JSONDecodingError` for an answer that is not understood, and `Cancelled`.
    virtual Task<std::vector<MarketCapEntry>> topByMarketCap(int count) = 0;
};

}  // namespace quillbar
