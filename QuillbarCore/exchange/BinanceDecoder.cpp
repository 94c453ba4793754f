// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceDecoder.h"

#include "QuillbarCore/exchange/DecimalText.h"
#include "QuillbarCore/exchange/JSONDecodingError.h"
#include "QuillbarCore/exchange/NetworkJSON.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace quillbar {

namespace {

using NetworkJSON::array;
using NetworkJSON::decode;
using NetworkJSON::Element;
using NetworkJSON::Fields;
using NetworkJSON::string;
using NetworkJSON::throwWrongType;

// The texts of a ticker, which live as long as the parsed document.
struct TickerTexts {
    std::string_view symbol;
    std::string_view lastPrice;
    std::string_view openPrice;
    std::optional<std::string_view> quoteVolume;
};

TickerTexts tickerTexts(const Fields<4>& fields) {
    return {fields.requiredString(0),
            fields.requiredString(1),
            fields.requiredString(2),
            fields.optionalString(3)};
}

Ticker ticker(const TickerTexts& texts) {
    Ticker result;
    result.lastPrice = decimalNumber(texts.lastPrice);
    result.openPrice24h = decimalNumber(texts.openPrice);
    if (texts.quoteVolume) {
        result.quoteVolume24h = decimalNumber(*texts.quoteVolume);
    }
    return result;
}

TickerTexts frame(Element root) {
    static constexpr Fields<2>::Keys kFrameKeys{"stream", "data"};
    static constexpr Fields<4>::Keys kDataKeys{"s", "c", "o", "q"};
    const Fields<2> fields(root, "the frame", kFrameKeys);
    static_cast<void>(fields.requiredString(0));
    return tickerTexts(Fields<4>(fields.required(1), kFrameKeys[1], kDataKeys));
}

std::vector<TickerTexts> tickers(Element root) {
    static constexpr Fields<4>::Keys kKeys{"symbol", "lastPrice", "openPrice", "quoteVolume"};
    const auto elements = array(root, "the answer");
    std::vector<TickerTexts> result;
    result.reserve(elements.size());
    for (const Element row : elements) {
        result.push_back(tickerTexts(Fields<4>(row, "a ticker", kKeys)));
    }
    return result;
}

std::optional<Coin> tradedCoin(Element entry) {
    static constexpr Fields<4>::Keys kKeys{"symbol", "status", "baseAsset", "quoteAsset"};
    const Fields<4> fields(entry, "a symbol's entry", kKeys);
    const std::string_view symbol = fields.requiredString(0);
    const std::string_view status = fields.requiredString(1);
    const std::string_view baseAsset = fields.requiredString(2);
    const std::string_view quoteAsset = fields.requiredString(3);
    if (quoteAsset != "USDT" || status != "TRADING") {
        return std::nullopt;
    }
    return Coin{std::string(symbol), std::string(baseAsset)};
}

struct KlineTexts {
    std::int64_t openTime = 0;
    // Open, high, low, close.
    std::array<std::string_view, 4> prices;
};

KlineTexts kline(Element entry) {
    KlineTexts result;
    std::size_t position = 0;
    for (const Element value : array(entry, "a kline")) {
        if (position == 0) {
            if (value.get(result.openTime)) {
                throwWrongType("a kline's open time", "a signed 64-bit integer");
            }
        } else if (position <= result.prices.size()) {
            result.prices[position - 1] = string(value, "a kline's price");
        } else {
            break;
        }
        ++position;
    }
    if (position <= result.prices.size()) {
        throw JSONDecodingError(fmt::format("a kline has {} elements", position));
    }
    return result;
}

std::vector<KlineTexts> klines(Element root) {
    const auto elements = array(root, "the answer");
    std::vector<KlineTexts> result;
    result.reserve(elements.size());
    for (const Element entry : elements) {
        result.push_back(kline(entry));
    }
    return result;
}

Candle candle(const KlineTexts& texts) {
    Candle result;
    result.openTime = TimePoint(Seconds(static_cast<double>(texts.openTime) / 1000.0));
    result.open = decimalNumber(texts.prices[0]);
    result.high = decimalNumber(texts.prices[1]);
    result.low = decimalNumber(texts.prices[2]);
    result.close = decimalNumber(texts.prices[3]);
    return result;
}

}  // namespace

TickerEvent BinanceDecoder::decodeMiniTickerFrame(std::string_view bytes) {
    return decode(bytes, [](Element root) {
        const TickerTexts texts = frame(root);
        return TickerEvent{std::string(texts.symbol), ticker(texts)};
    });
}

TickerMap BinanceDecoder::decodeTicker24hArray(std::string_view bytes) {
    return decode(bytes, [](Element root) {
        const std::vector<TickerTexts> rows = tickers(root);
        TickerMap result;
        result.reserve(rows.size());
        for (const TickerTexts& row : rows) {
            result.insert_or_assign(std::string(row.symbol), ticker(row));
        }
        return result;
    });
}

std::vector<Coin> BinanceDecoder::decodeExchangeInfo(std::string_view bytes) {
    return decode(bytes, [](Element root) {
        static constexpr Fields<1>::Keys kKeys{"symbols"};
        const Fields<1> fields(root, "the answer", kKeys);
        std::vector<Coin> result;
        for (const Element entry : array(fields.required(0), kKeys[0])) {
            if (auto coin = tradedCoin(entry)) {
                result.push_back(std::move(*coin));
            }
        }
        return result;
    });
}

std::vector<Candle> BinanceDecoder::decodeKlines(std::string_view bytes) {
    return decode(bytes, [](Element root) {
        const std::vector<KlineTexts> rows = klines(root);
        std::vector<Candle> result;
        result.reserve(rows.size());
        for (const KlineTexts& row : rows) {
            result.push_back(candle(row));
        }
        return result;
    });
}

}  // namespace quillbar
