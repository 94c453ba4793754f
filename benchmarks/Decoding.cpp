// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/Benchmarks.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/ExchangeBodies.h"
#include "benchmarks/QtDecoder.h"
#include "benchmarks/QtMarketCaps.h"
#include "QuillbarCore/exchange/BinanceDecoder.h"
#include "QuillbarCore/market/CoinGeckoDecoder.h"

namespace quillbar::benchmarks {

void registerDecoding() {
    using simulator::Bodies::TickerForm;

    Comparison("exchange information, 3.7 MB",
               std::vector{ExchangeBodies::exchangeInfo()},
               BinanceDecoder::decodeExchangeInfo)
        .with("QJsonDocument", QtDecoder::decodeExchangeInfo);
    Comparison("2,500 tickers, short form",
               std::vector{ExchangeBodies::tickers(TickerForm::mini)},
               BinanceDecoder::decodeTicker24hArray)
        .with("QJsonDocument", QtDecoder::decodeTicker24hArray);
    Comparison("2,500 tickers, long form",
               std::vector{ExchangeBodies::tickers(TickerForm::full)},
               BinanceDecoder::decodeTicker24hArray)
        .with("QJsonDocument", QtDecoder::decodeTicker24hArray);
    Comparison(
        "a frame of the stream", ExchangeBodies::frames(100), BinanceDecoder::decodeMiniTickerFrame)
        .with("QJsonDocument", QtDecoder::decodeMiniTickerFrame);
    Comparison("market caps of 250 coins",
               std::vector{ExchangeBodies::coinMarkets()},
               CoinGeckoDecoder::decodeMarkets)
        .with("QJsonDocument", decodeMarketsWithQt);
}

}  // namespace quillbar::benchmarks
