// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/CoinGeckoAPI.h"
#include "tests/support/ScriptedAnswers.h"

#include <vector>

namespace quillbar {

/// A market-cap service that records what it is asked and answers what the test has scripted;
/// without a script, an empty list.
class FakeCoinGeckoAPI final : public CoinGeckoAPI {
public:
    Task<std::vector<MarketCapEntry>> topByMarketCap(int count) override {
        counts.push_back(count);
        std::vector<MarketCapEntry> entries = co_await answers.next();
        co_return entries;
    }

    /// The counts asked for, in order.
    std::vector<int> counts;
    ScriptedAnswers<std::vector<MarketCapEntry>> answers;
};

}  // namespace quillbar
