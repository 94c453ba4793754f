// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Bodies.h"

#include "simulator/AsciiText.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace quillbar::simulator::Bodies {

namespace {

constexpr std::int64_t kDayMilliseconds = 86'400'000;

double tickSize(int digits) {
    return std::pow(10.0, -digits);
}

std::int64_t milliseconds(MarketTime time) {
    return time.time_since_epoch().count();
}

// The trading groups a pair belongs to; they are a good part of the real body.
std::string permissionSets(const Listing& listing) {
    std::string groups = R"("SPOT","MARGIN")";
    const int count = 4 + static_cast<int>(listing.walkId % 8);
    for (int group = 4; group < 4 + count; ++group) {
        fmt::format_to(std::back_inserter(groups), R"(,"TRD_GRP_{:03}")", group);
    }
    return groups;
}

std::string filters(const Listing& listing) {
    const double tick = tickSize(listing.priceDigits);
    const double lot = tickSize(listing.lotDigits);
    return fmt::format(
        R"({{"filterType":"PRICE_FILTER","minPrice":"{0:.8f}","maxPrice":"{1:.8f}","tickSize":"{0:.8f}"}},)"
        R"({{"filterType":"LOT_SIZE","minQty":"{2:.8f}","maxQty":"9000.00000000","stepSize":"{2:.8f}"}},)"
        R"({{"filterType":"ICEBERG_PARTS","limit":10}},)"
        R"({{"filterType":"MARKET_LOT_SIZE","minQty":"0.00000000","maxQty":"{3:.8f}","stepSize":"0.00000000"}},)"
        R"({{"filterType":"TRAILING_DELTA","minTrailingAboveDelta":10,"maxTrailingAboveDelta":2000,)"
        R"("minTrailingBelowDelta":10,"maxTrailingBelowDelta":2000}},)"
        R"({{"filterType":"PERCENT_PRICE_BY_SIDE","bidMultiplierUp":"5","bidMultiplierDown":"0.2",)"
        R"("askMultiplierUp":"5","askMultiplierDown":"0.2","avgPriceMins":5}},)"
        R"({{"filterType":"NOTIONAL","minNotional":"5.00000000","applyMinToMarket":true,)"
        R"("maxNotional":"9000000.00000000","applyMaxToMarket":false,"avgPriceMins":5}},)"
        R"({{"filterType":"MAX_NUM_ORDERS","maxNumOrders":200}},)"
        R"({{"filterType":"MAX_NUM_ORDER_LISTS","maxNumOrderLists":20}},)"
        R"({{"filterType":"MAX_NUM_ALGO_ORDERS","maxNumAlgoOrders":5}},)"
        R"({{"filterType":"MAX_NUM_ORDER_AMENDS","maxNumOrderAmends":10}})",
        tick,
        listing.startPrice * 1000,
        lot,
        listing.quoteVolume / listing.startPrice / 1000);
}

std::string symbolInfo(const Listing& listing) {
    return fmt::format(
        R"({{"symbol":"{0}","status":"{1}","baseAsset":"{2}","baseAssetPrecision":8,)"
        R"("quoteAsset":"{3}","quotePrecision":8,"quoteAssetPrecision":8,)"
        R"("baseCommissionPrecision":8,"quoteCommissionPrecision":8,)"
        R"("orderTypes":["LIMIT","LIMIT_MAKER","MARKET","STOP_LOSS","STOP_LOSS_LIMIT",)"
        R"("TAKE_PROFIT","TAKE_PROFIT_LIMIT"],"icebergAllowed":true,"ocoAllowed":true,)"
        R"("otoAllowed":true,"quoteOrderQtyMarketAllowed":true,)"
        R"("allowTrailingStop":true,"cancelReplaceAllowed":true,"amendAllowed":true,)"
        R"("isSpotTradingAllowed":{4},"isMarginTradingAllowed":false,)"
        R"("filters":[{5}],"permissions":[],"permissionSets":[[{6}]],)"
        R"("defaultSelfTradePreventionMode":"EXPIRE_MAKER","allowedSelfTradePreventionModes":)"
        R"(["EXPIRE_TAKER","EXPIRE_MAKER","EXPIRE_BOTH","DECREMENT"]}})",
        listing.symbol,
        statusText(listing.status),
        listing.baseAsset,
        listing.quoteAsset,
        listing.status != ListingStatus::broken,
        filters(listing),
        permissionSets(listing));
}

// The end of a row, which both forms share.
std::string tickerTail(const Market& market, const DayStatistics& day) {
    const std::int64_t closeTime = milliseconds(market.now());
    const bool traded = day.trades > 0;
    const std::int64_t firstId = traded ? 1'000'000'000 : -1;
    return fmt::format(R"("openTime":{},"closeTime":{},"firstId":{},"lastId":{},"count":{}}})",
                       closeTime - kDayMilliseconds,
                       closeTime,
                       firstId,
                       traded ? firstId + day.trades - 1 : -1,
                       day.trades);
}

std::string fullHead(const Listing& listing, const DayStatistics& day) {
    const double tick = day.last > 0 ? tickSize(listing.priceDigits) : 0;
    const double change = day.last - day.open;
    return fmt::format(
        R"({{"symbol":"{}","priceChange":"{:.8f}","priceChangePercent":"{:.3f}",)"
        R"("weightedAvgPrice":"{:.8f}","prevClosePrice":"{:.8f}","lastPrice":"{:.8f}",)"
        R"("lastQty":"{:.8f}","bidPrice":"{:.8f}","bidQty":"{:.8f}","askPrice":"{:.8f}",)"
        R"("askQty":"{:.8f}","openPrice":"{:.8f}","highPrice":"{:.8f}","lowPrice":"{:.8f}",)"
        R"("volume":"{:.8f}","quoteVolume":"{:.8f}",)",
        listing.symbol,
        change,
        day.open > 0 ? change / day.open * 100 : 0,
        day.volume > 0 ? day.quoteVolume / day.volume : 0,
        day.open,
        day.last,
        day.volume / 100'000,
        day.last,
        day.volume / 20'000,
        day.last + tick,
        day.volume / 30'000,
        day.open,
        day.high,
        day.low,
        day.volume,
        day.quoteVolume);
}

std::string miniHead(const Listing& listing, const DayStatistics& day) {
    return fmt::format(
        R"({{"symbol":"{}","openPrice":"{:.8f}","highPrice":"{:.8f}","lowPrice":"{:.8f}",)"
        R"("lastPrice":"{:.8f}","volume":"{:.8f}","quoteVolume":"{:.8f}",)",
        listing.symbol,
        day.open,
        day.high,
        day.low,
        day.last,
        day.volume,
        day.quoteVolume);
}

}  // namespace

std::string exchangeInfo(const Market& market) {
    std::string body = fmt::format(
        R"({{"timezone":"UTC","serverTime":{},"rateLimits":[)"
        R"({{"rateLimitType":"REQUEST_WEIGHT","interval":"MINUTE","intervalNum":1,"limit":6000}},)"
        R"({{"rateLimitType":"ORDERS","interval":"SECOND","intervalNum":10,"limit":100}},)"
        R"({{"rateLimitType":"ORDERS","interval":"DAY","intervalNum":1,"limit":200000}},)"
        R"({{"rateLimitType":"RAW_REQUESTS","interval":"MINUTE","intervalNum":5,"limit":61000}}],)"
        R"("exchangeFilters":[],"symbols":[)",
        milliseconds(market.now()));
    std::string_view separator;
    for (const Listing& listing : market.listings()) {
        body += separator;
        body += symbolInfo(listing);
        separator = ",";
    }
    return body + "]}";
}

std::string ticker(const Market& market, const Listing& listing, TickerForm form) {
    const DayStatistics day = market.day(listing);
    return (form == TickerForm::full ? fullHead(listing, day) : miniHead(listing, day))
           + tickerTail(market, day);
}

std::string tickers(const Market& market,
                    const std::vector<const Listing*>& listings,
                    TickerForm form) {
    std::string body = "[";
    std::string_view separator;
    for (const Listing* listing : listings) {
        body += separator;
        body += ticker(market, *listing, form);
        separator = ",";
    }
    return body + "]";
}

std::string klines(const std::vector<CandleRow>& rows, const Listing& listing) {
    std::string body = "[";
    std::string_view separator;
    for (const CandleRow& row : rows) {
        body += separator;
        fmt::format_to(std::back_inserter(body),
                       R"([{},"{:.8f}","{:.8f}","{:.8f}","{:.8f}","{:.{}f}",{},"{:.8f}",{},)"
                       R"("{:.{}f}","{:.8f}","0"])",
                       row.openTime,
                       row.open,
                       row.high,
                       row.low,
                       row.close,
                       row.volume,
                       listing.lotDigits,
                       row.closeTime,
                       row.quoteVolume,
                       row.trades,
                       row.volume / 2,
                       listing.lotDigits,
                       row.quoteVolume / 2);
        separator = ",";
    }
    return body + "]";
}

std::string miniTickerFrame(const Market& market, const Listing& listing) {
    const DayStatistics day = market.day(listing);
    return fmt::format(
        R"({{"stream":"{}@miniTicker","data":{{"e":"24hrMiniTicker","E":{},"s":"{}",)"
        R"("c":"{:.8f}","o":"{:.8f}","h":"{:.8f}","l":"{:.8f}","v":"{:.8f}","q":"{:.8f}"}}}})",
        lowerCased(listing.symbol),
        milliseconds(market.now()),
        listing.symbol,
        day.last,
        day.open,
        day.high,
        day.low,
        day.volume,
        day.quoteVolume);
}

std::string error(int code, std::string_view message) {
    return fmt::format(R"({{"code":{},"msg":"{}"}})", code, message);
}

}  // namespace quillbar::simulator::Bodies
