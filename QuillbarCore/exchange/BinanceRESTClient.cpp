// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceRESTClient.h"

#include "QuillbarCore/exchange/BinanceDecoder.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/EndpointFailover.h"
#include "QuillbarCore/exchange/ErrorText.h"
#include "QuillbarCore/exchange/PercentEncoding.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <string_view>

namespace quillbar {

namespace {

template <class Query>
std::string requestURL(std::string_view base, std::string_view path, const Query& query) {
    std::string url(base);
    if (!url.ends_with('/')) {
        url += '/';
    }
    url += path;
    char separator = '?';
    for (const auto& [name, value] : query) {
        url += fmt::format("{}{}={}", separator, percentEncoded(name), percentEncoded(value));
        separator = '&';
    }
    return url;
}

}  // namespace

BinanceRESTClient::BinanceRESTClient(std::shared_ptr<HTTPDataFetching> fetcher,
                                     std::shared_ptr<EndpointSelector> endpoints,
                                     Worker& worker)
    : m_fetcher(std::move(fetcher))
    , m_endpoints(std::make_shared<std::shared_ptr<EndpointSelector>>(std::move(endpoints)))
    , m_worker(&worker) {}

void BinanceRESTClient::useEndpoints(std::shared_ptr<EndpointSelector> endpoints) {
    *m_endpoints = std::move(endpoints);
}

Task<std::vector<Candle>> BinanceRESTClient::klines(std::string symbol,
                                                    std::string interval,
                                                    int limit,
                                                    std::optional<std::int64_t> startTime) {
    Query query;
    query.emplace_back("symbol", std::move(symbol));
    query.emplace_back("interval", std::move(interval));
    query.emplace_back("limit", fmt::to_string(limit));
    if (startTime) {
        query.emplace_back("startTime", fmt::to_string(*startTime));
    }
    const std::string body = co_await get("klines", std::move(query));
    co_return BinanceDecoder::decodeKlines(body);
}

Task<std::vector<Coin>> BinanceRESTClient::exchangeInfo() {
    Query query;
    std::string body = co_await get("exchangeInfo", std::move(query));
    auto decode = [bytes = std::move(body)] { return BinanceDecoder::decodeExchangeInfo(bytes); };
    std::vector<Coin> coins = co_await offload(*m_worker, std::move(decode));
    co_return coins;
}

Task<TickerMap> BinanceRESTClient::ticker24h(std::vector<std::string> symbols) {
    std::string list = "[";
    for (const std::string& symbol : symbols) {
        list += fmt::format("{}\"{}\"", list.size() > 1 ? "," : "", symbol);
    }
    list += ']';
    Query query;
    query.emplace_back("symbols", std::move(list));
    const std::string body = co_await get("ticker/24hr", std::move(query));
    co_return BinanceDecoder::decodeTicker24hArray(body);
}

Task<TickerMap> BinanceRESTClient::ticker24hAll() {
    Query query;
    query.emplace_back("type", "MINI");
    std::string body = co_await get("ticker/24hr", std::move(query));
    auto decode = [bytes = std::move(body)] { return BinanceDecoder::decodeTicker24hArray(bytes); };
    TickerMap tickers = co_await offload(*m_worker, std::move(decode));
    co_return tickers;
}

Task<std::string> BinanceRESTClient::get(std::string path, Query query) const {
    std::exception_ptr lastError = std::make_exception_ptr(BinanceError(0));
    const std::shared_ptr<EndpointSelector> endpoints = *m_endpoints;
    const int attempts = std::max(endpoints->count(), 1);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const auto endpoint = endpoints->current();
        if (!endpoint) {
            break;
        }
        try {
            std::string url = requestURL(endpoint->url, path, query);
            std::string body = co_await fetch(std::move(url));
            co_return body;
        } catch (...) {
            lastError = std::current_exception();
            if (!EndpointFailover::shouldTryNextEndpoint(lastError)) {
                throw;
            }
            endpoints->markFailed(endpoint->index);
        }
    }
    std::rethrow_exception(lastError);
}

Task<std::string> BinanceRESTClient::fetch(std::string url) const {
    HTTPResponse response;
    try {
        response = co_await m_fetcher->fetch(url);
    } catch (...) {
        m_logger.error("request failed for {}: {}", url, errorText(std::current_exception()));
        throw;
    }
    if (response.status < 200 || response.status > 299) {
        m_logger.error("HTTP {} for {}", response.status, url);
        throw BinanceError(response.status);
    }
    co_return std::move(response.body);
}

}  // namespace quillbar
