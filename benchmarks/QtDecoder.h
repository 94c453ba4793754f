// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/PriceEvent.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"

#include <string>
#include <vector>

/// What `BinanceDecoder` does, on QJsonDocument: what a Qt program does without further thought.
/// Throws std::runtime_error for what the exchange does not send.
namespace quillbar::benchmarks::QtDecoder {

[[nodiscard]] TickerEvent decodeMiniTickerFrame(const std::string& bytes);
[[nodiscard]] TickerMap decodeTicker24hArray(const std::string& bytes);
[[nodiscard]] std::vector<Coin> decodeExchangeInfo(const std::string& bytes);

}  // namespace quillbar::benchmarks::QtDecoder
