// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Router.h"

#include "simulator/Bodies.h"
#include "simulator/Icon.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace quillbar::simulator {

namespace {

constexpr std::string_view kIconPrefix = "/icons/";
constexpr std::string_view kIconSuffix = ".png";

HttpResponse json(std::string body) {
    HttpResponse response;
    response.body = std::move(body);
    return response;
}

HttpResponse refusal(int status, int code, std::string_view message) {
    HttpResponse response = json(Bodies::error(code, message));
    response.status = status;
    return response;
}

HttpResponse invalidSymbol() {
    return refusal(400, -1121, "Invalid symbol.");
}

HttpResponse missing(std::string_view parameter) {
    return refusal(
        400,
        -1102,
        fmt::format("Mandatory parameter '{}' was not sent, was empty/null, or malformed.",
                    parameter));
}

HttpResponse illegal(std::string_view parameter) {
    return refusal(
        400, -1100, fmt::format("Illegal characters found in parameter '{}'.", parameter));
}

// Digits only, as the exchange demands.
std::optional<std::int64_t> digits(std::string_view text) {
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || value < 0) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::chrono::milliseconds> intervalLength(std::string_view code) {
    using std::chrono::hours;
    using std::chrono::minutes;
    using std::chrono::seconds;
    static constexpr std::array<std::pair<std::string_view, std::chrono::milliseconds>, 14> kCodes{
        {{"1s", seconds{1}},
         {"1m", minutes{1}},
         {"3m", minutes{3}},
         {"5m", minutes{5}},
         {"15m", minutes{15}},
         {"30m", minutes{30}},
         {"1h", hours{1}},
         {"2h", hours{2}},
         {"4h", hours{4}},
         {"6h", hours{6}},
         {"8h", hours{8}},
         {"12h", hours{12}},
         {"1d", hours{24}},
         {"3d", hours{72}}}};
    const auto* found = std::find_if(
        kCodes.begin(), kCodes.end(), [code](const auto& entry) { return entry.first == code; });
    return found == kCodes.end() ? std::nullopt : std::optional{found->second};
}

// The strings of a JSON array; nothing when the text is anything else.
std::optional<std::vector<std::string>> stringArray(const std::string& text) {
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(text));
    if (!document.isArray()) {
        return std::nullopt;
    }
    std::vector<std::string> strings;
    const QJsonArray array = document.array();
    for (const auto& element : array) {
        if (!element.isString()) {
            return std::nullopt;
        }
        strings.push_back(element.toString().toStdString());
    }
    return strings;
}

}  // namespace

Router::Router(const Market& market)
    : m_market(market) {
    for (const Listing& listing : market.listings()) {
        m_baseAssets.insert(listing.baseAsset);
    }
}

HttpResponse Router::answer(const HttpRequest& request) {
    if (request.method != "GET") {
        return refusal(405, -1000, "Only GET is answered here.");
    }
    if (request.path == "/api/v3/exchangeInfo") {
        return exchangeInfo();
    }
    if (request.path == "/api/v3/klines") {
        return klines(request);
    }
    if (request.path == "/api/v3/ticker/24hr") {
        return ticker24h(request);
    }
    if (request.path == "/coingecko/api/v3/coins/markets") {
        return coinMarkets(request);
    }
    if (request.path.starts_with(kIconPrefix) && request.path.ends_with(kIconSuffix)) {
        return icon(request);
    }
    return refusal(404, -1000, "There is nothing at this path.");
}

HttpResponse Router::exchangeInfo() {
    if (m_exchangeInfo.empty()) {
        m_exchangeInfo = Bodies::exchangeInfo(m_market);
    }
    return json(m_exchangeInfo);
}

HttpResponse Router::klines(const HttpRequest& request) const {
    constexpr std::int64_t kDefaultLimit = 500;
    constexpr std::int64_t kLargestLimit = 1000;
    const auto symbol = request.parameter("symbol");
    const auto interval = request.parameter("interval");
    if (!symbol || symbol->empty()) {
        return missing("symbol");
    }
    if (!interval || interval->empty()) {
        return missing("interval");
    }
    const Listing* listing = m_market.find(*symbol);
    if (listing == nullptr) {
        return invalidSymbol();
    }
    const auto length = intervalLength(*interval);
    if (!length) {
        return refusal(400, -1120, "Invalid interval.");
    }
    std::int64_t limit = kDefaultLimit;
    if (const auto text = request.parameter("limit")) {
        const auto value = digits(*text);
        if (!value || *value == 0) {
            return illegal("limit");
        }
        limit = std::min(*value, kLargestLimit);
    }
    std::optional<std::int64_t> startTime;
    if (const auto text = request.parameter("startTime")) {
        startTime = digits(*text);
        if (!startTime) {
            return illegal("startTime");
        }
    }
    const auto rows = m_market.candles(*listing, *length, static_cast<int>(limit), startTime);
    return json(Bodies::klines(rows, *listing));
}

HttpResponse Router::ticker24h(const HttpRequest& request) const {
    const std::string type = request.parameter("type").value_or("FULL");
    if (type != "FULL" && type != "MINI") {
        return illegal("type");
    }
    const auto form = type == "MINI" ? Bodies::TickerForm::mini : Bodies::TickerForm::full;
    if (const auto symbol = request.parameter("symbol")) {
        const Listing* listing = m_market.find(*symbol);
        return listing == nullptr ? invalidSymbol()
                                  : json(Bodies::ticker(m_market, *listing, form));
    }
    std::vector<const Listing*> listings;
    if (const auto text = request.parameter("symbols")) {
        const auto symbols = stringArray(*text);
        if (!symbols || symbols->empty()) {
            return illegal("symbols");
        }
        for (const std::string& symbol : *symbols) {
            const Listing* listing = m_market.find(symbol);
            if (listing == nullptr) {
                return invalidSymbol();
            }
            listings.push_back(listing);
        }
    } else {
        for (const Listing& listing : m_market.listings()) {
            listings.push_back(&listing);
        }
    }
    return json(Bodies::tickers(m_market, listings, form));
}

HttpResponse Router::coinMarkets(const HttpRequest& request) const {
    constexpr std::int64_t kDefaultPage = 100;
    constexpr std::int64_t kLargestPage = 250;
    constexpr std::int64_t kLastPage = 1'000'000;
    if (request.parameter("vs_currency") != "usd") {
        HttpResponse response = json(R"({"error":"Missing parameter vs_currency"})");
        response.status = 422;
        return response;
    }
    const auto number = [&request](std::string_view name, std::int64_t otherwise) {
        return digits(request.parameter(name).value_or("")).value_or(otherwise);
    };
    const auto perPage =
        std::clamp<std::int64_t>(number("per_page", kDefaultPage), 1, kLargestPage);
    const auto page = std::clamp<std::int64_t>(number("page", 1), 1, kLastPage);
    return json(Bodies::coinMarkets(m_market, static_cast<int>(perPage), static_cast<int>(page)));
}

HttpResponse Router::icon(const HttpRequest& request) const {
    const std::size_t length = request.path.size() - kIconPrefix.size() - kIconSuffix.size();
    const std::string asset = request.path.substr(kIconPrefix.size(), length);
    if (!m_baseAssets.contains(asset)) {
        HttpResponse response;
        response.status = 404;
        response.contentType = "text/html";
        response.body = "<html><body>No such logo.</body></html>";
        return response;
    }
    HttpResponse response;
    response.contentType = "image/png";
    response.body = makeIcon(asset);
    return response;
}

std::vector<const Listing*> subscribedListings(const Market& market, std::string_view streams) {
    constexpr std::string_view kSuffix = "@miniTicker";
    std::vector<const Listing*> listings;
    while (!streams.empty()) {
        const std::size_t slash = std::min(streams.find('/'), streams.size());
        const std::string_view name = streams.substr(0, slash);
        streams.remove_prefix(std::min(slash + 1, streams.size()));
        if (!name.ends_with(kSuffix)) {
            continue;
        }
        const Listing* listing = market.findLowerCase(name.substr(0, name.size() - kSuffix.size()));
        if (listing != nullptr
            && std::find(listings.begin(), listings.end(), listing) == listings.end()) {
            listings.push_back(listing);
        }
    }
    return listings;
}

HttpResponse withWrongNumber(HttpResponse response) {
    std::string& body = response.body;
    // A row of the tickers, a market cap, or else the first price of a candle.
    for (const std::string_view key : {R"("lastPrice":)", R"("current_price":)", R"(,)"}) {
        const std::size_t at = body.find(key);
        if (at != std::string::npos) {
            const std::size_t value = at + key.size();
            body.replace(value, body.find_first_of(",}]", value) - value, R"("abc")");
            break;
        }
    }
    return response;
}

HttpResponse withEmptyList(HttpResponse response) {
    constexpr std::string_view kPairs = R"("symbols":)";
    std::string& body = response.body;
    // The whole body is the list, but for the exchange's information, which ends with it.
    const std::size_t pairs = body.find(kPairs);
    const std::size_t list =
        body.starts_with('{') && pairs != std::string::npos ? pairs + kPairs.size() : 0;
    const std::size_t end = body.rfind(']');
    if (body.compare(list, 1, "[") == 0 && end != std::string::npos) {
        body.replace(list, end - list + 1, "[]");
    }
    return response;
}

}  // namespace quillbar::simulator
