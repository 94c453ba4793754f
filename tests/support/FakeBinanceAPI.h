// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/BinanceAPI.h"
#include "tests/support/ScriptedAnswers.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// An exchange that records what it is asked and answers what the test has scripted; without a
/// script it answers nothing at all (empty lists, empty maps).
class FakeBinanceAPI final : public BinanceAPI {
public:
    struct KlinesRequest {
        std::string symbol;
        std::string interval;
        int limit = 0;
        std::optional<std::int64_t> startTime = std::nullopt;

        bool operator==(const KlinesRequest&) const = default;
    };

    Task<std::vector<Candle>> klines(std::string symbol,
                                     std::string interval,
                                     int limit,
                                     std::optional<std::int64_t> startTime) override;
    Task<std::vector<Coin>> exchangeInfo() override;
    Task<TickerMap> ticker24h(std::vector<std::string> symbols) override;
    Task<TickerMap> ticker24hAll() override;

    // What was asked, in order.
    std::vector<KlinesRequest> klinesRequests;
    int exchangeInfoRequests = 0;
    std::vector<std::vector<std::string>> ticker24hRequests;
    int ticker24hAllRequests = 0;

    // What is answered.
    ScriptedAnswers<std::vector<Candle>> klinesAnswers;
    ScriptedAnswers<std::vector<Coin>> exchangeInfoAnswers;
    ScriptedAnswers<TickerMap> ticker24hAnswers;
    ScriptedAnswers<TickerMap> ticker24hAllAnswers;
};

}  // namespace quillbar
