// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/Application.h"
#include "benchmarks/Benchmarks.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/ExchangeBodies.h"
#include "QuillbarCore/exchange/BinanceDecoder.h"

#include <memory>
#include <utility>
#include <vector>

namespace quillbar::benchmarks {

namespace {

constexpr int kFrames = 2000;

/// The least that must be done: each frame decoded and its ticker stored.
Ticker decodeAndStore(TickerMap& tickers, const Frames& frames) {
    for (const std::string& frame : frames) {
        TickerEvent event = BinanceDecoder::decodeMiniTickerFrame(frame);
        tickers.insert_or_assign(std::move(event.symbol), event.ticker);
    }
    return tickers.at("BTCUSDT");
}

}  // namespace

void registerFlood() {
    const auto application = std::make_shared<Application>();
    const auto tickers = std::make_shared<TickerMap>();
    Comparison("2,000 frames, from socket to label",
               std::vector<Frames>{ExchangeBodies::frames(kFrames)},
               [application](const Frames& frames) {
                   application->receive(frames);
                   return application->ticker("BTCUSDT");
               })
        .with("decoding and storing alone",
              [tickers](const Frames& frames) { return decodeAndStore(*tickers, frames); });
}

}  // namespace quillbar::benchmarks
