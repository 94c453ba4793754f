// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/NaiveDecoder.h"

#include "fuzz/NaiveNumber.h"
#include "QuillbarCore/exchange/BinanceDecodingError.h"
#include "QuillbarCore/exchange/JSONDecodingError.h"

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace quillbar::NaiveDecoder {

namespace {

using nlohmann::json;

// What nlohmann-json throws, for malformed JSON, absent keys and other types alike, is the one
// error that a body which is not what it should be gives.
template <class Read>
auto translated(Read read) {
    try {
        return read();
    } catch (const json::exception& error) {
        throw JSONDecodingError(error.what());
    }
}

std::string text(const json& object, const char* key) {
    return object.at(key).get<std::string>();
}

std::optional<std::string> optionalText(const json& object, const char* key) {
    return object.contains(key) && !object.at(key).is_null() ? std::optional(text(object, key))
                                                             : std::nullopt;
}

bool isSigned64BitInteger(const json& value) {
    return value.is_number_integer()
           && (!value.is_number_unsigned()
               || value.get<std::uint64_t>() <= std::uint64_t{INT64_MAX});
}

double number(const std::string& decimal) {
    const std::optional<double> value = naiveNumber(decimal);
    if (!value) {
        throw BinanceDecodingError(decimal);
    }
    return *value;
}

struct Row {
    std::string symbol;
    std::string last;
    std::string open;
    std::optional<std::string> volume;
};

Ticker ticker(const Row& row) {
    Ticker result;
    result.lastPrice = number(row.last);
    result.openPrice24h = number(row.open);
    if (row.volume) {
        result.quoteVolume24h = number(*row.volume);
    }
    return result;
}

}  // namespace

TickerEvent decodeMiniTickerFrame(std::string_view bytes) {
    const Row row = translated([&] {
        const json frame = json::parse(bytes);
        static_cast<void>(text(frame, "stream"));
        const json& data = frame.at("data");
        return Row{text(data, "s"), text(data, "c"), text(data, "o"), optionalText(data, "q")};
    });
    return {row.symbol, ticker(row)};
}

TickerMap decodeTicker24hArray(std::string_view bytes) {
    const std::vector<Row> rows = translated([&] {
        std::vector<Row> result;
        const json body = json::parse(bytes);
        for (const json& row : body.get_ref<const json::array_t&>()) {
            result.push_back({text(row, "symbol"),
                              text(row, "lastPrice"),
                              text(row, "openPrice"),
                              optionalText(row, "quoteVolume")});
        }
        return result;
    });
    TickerMap tickers;
    for (const Row& row : rows) {
        tickers[row.symbol] = ticker(row);
    }
    return tickers;
}

std::vector<Coin> decodeExchangeInfo(std::string_view bytes) {
    return translated([&] {
        std::vector<Coin> coins;
        const json body = json::parse(bytes);
        for (const json& entry : body.at("symbols").get_ref<const json::array_t&>()) {
            const Coin coin{text(entry, "symbol"), text(entry, "baseAsset")};
            const bool isTraded = text(entry, "status") == "TRADING";
            if (text(entry, "quoteAsset") == "USDT" && isTraded) {
                coins.push_back(coin);
            }
        }
        return coins;
    });
}

std::vector<Candle> decodeKlines(std::string_view bytes) {
    struct Kline {
        std::int64_t openTime = 0;
        std::vector<std::string> prices;
    };
    const std::vector<Kline> klines = translated([&] {
        std::vector<Kline> result;
        const json body = json::parse(bytes);
        for (const json& row : body.get_ref<const json::array_t&>()) {
            if (!row.is_array() || !isSigned64BitInteger(row.at(0))) {
                throw JSONDecodingError("not a kline");
            }
            Kline kline{row[0].get<std::int64_t>(), {}};
            for (std::size_t position = 1; position < 5; ++position) {
                kline.prices.push_back(row.at(position).get<std::string>());
            }
            result.push_back(kline);
        }
        return result;
    });
    std::vector<Candle> candles;
    for (const Kline& kline : klines) {
        Candle candle;
        candle.openTime = TimePoint(Seconds(static_cast<double>(kline.openTime) / 1000.0));
        candle.open = number(kline.prices[0]);
        candle.high = number(kline.prices[1]);
        candle.low = number(kline.prices[2]);
        candle.close = number(kline.prices[3]);
        candles.push_back(candle);
    }
    return candles;
}

}  // namespace quillbar::NaiveDecoder
