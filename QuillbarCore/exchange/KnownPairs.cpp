// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/KnownPairs.h"

#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/PercentEncoding.h"

#include <string_view>
#include <utility>

namespace quillbar {

namespace {

constexpr int kBadRequest = 400;

// How many bytes a pair takes in a URL: the symbol, two quotes and a comma.
std::size_t lengthInList(const std::string& symbol) {
    constexpr std::string_view kAround = "%22%22%2C";
    return percentEncoded(symbol).size() + kAround.size();
}

// Splits the pairs, in their order, into lists for one request each.
std::vector<std::vector<std::string>> divided(std::vector<std::string> symbols) {
    std::vector<std::vector<std::string>> lists(1);
    std::size_t length = 0;
    for (std::string& symbol : symbols) {
        const std::size_t more = lengthInList(symbol);
        const bool isFull = lists.back().size() == KnownPairs::kMostPairs
                            || length + more > KnownPairs::kLongestList;
        if (isFull && !lists.back().empty()) {
            lists.emplace_back();
            length = 0;
        }
        length += more;
        lists.back().push_back(std::move(symbol));
    }
    return lists;
}

// Moves the tickers of these pairs to `kept`; the rest was not asked for.
void keep(const std::vector<std::string>& symbols, TickerMap& answer, TickerMap& kept) {
    for (const std::string& symbol : symbols) {
        kept.insert(answer.extract(symbol));
    }
}

}  // namespace

Task<std::vector<Candle>> KnownPairs::klines(std::string symbol,
                                             std::string interval,
                                             int limit,
                                             std::optional<std::int64_t> startTime) {
    return m_exchange.klines(std::move(symbol), std::move(interval), limit, startTime);
}

Task<std::vector<Coin>> KnownPairs::exchangeInfo() {
    return m_exchange.exchangeInfo();
}

Task<TickerMap> KnownPairs::ticker24hAll() {
    return m_exchange.ticker24hAll();
}

Task<TickerMap> KnownPairs::ticker24h(std::vector<std::string> symbols) {
    const bool isEmptyList = symbols.empty();
    const std::vector<std::string> asked = askable(std::move(symbols));
    if (asked.empty() && !isEmptyList) {
        throw BinanceError(kBadRequest);
    }
    TickerMap kept;
    bool isRefused = false;
    for (const std::vector<std::string>& list : divided(asked)) {
        try {
            TickerMap answer = co_await m_exchange.ticker24h(list);
            keep(list, answer, kept);
        } catch (const BinanceError& error) {
            if (isEmptyList || error.httpStatus() != kBadRequest) {
                throw;
            }
            isRefused = true;
            break;
        }
    }
    if (isRefused) {
        kept = co_await amongAll(asked);
    }
    co_return kept;
}

std::vector<std::string> KnownPairs::askable(std::vector<std::string> symbols) {
    std::erase_if(symbols, [this](const std::string& symbol) {
        if (lengthInList(symbol) > kLongestList) {
            noteUnknown(symbol);
        }
        return m_unknown.contains(symbol);
    });
    return symbols;
}

Task<TickerMap> KnownPairs::amongAll(std::vector<std::string> symbols) {
    TickerMap all = co_await m_exchange.ticker24hAll();
    // An answer without any pair does not say which pairs are known.
    if (all.empty()) {
        throw BinanceError(kBadRequest);
    }
    for (const std::string& symbol : symbols) {
        if (!all.contains(symbol)) {
            noteUnknown(symbol);
        }
    }
    TickerMap kept;
    keep(symbols, all, kept);
    if (kept.empty()) {
        throw BinanceError(kBadRequest);
    }
    co_return kept;
}

void KnownPairs::noteUnknown(const std::string& symbol) {
    m_unknown.insert(symbol);
    if (m_logged.insert(symbol).second) {
        m_logger.error("the exchange does not know {}, going on without it", symbol);
    }
}

}  // namespace quillbar
