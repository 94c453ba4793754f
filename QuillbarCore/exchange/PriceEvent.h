// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ConnectionState.h"
#include "QuillbarCore/model/Ticker.h"

#include <string>
#include <variant>

namespace quillbar {

/// A price for one pair.
struct TickerEvent final {
    /// The pair's symbol as the exchange sent it: "BTCUSDT".
    std::string symbol;
    Ticker ticker;

    [[nodiscard]] bool operator==(const TickerEvent&) const = default;
};

/// The stream's connection changed its state.
struct StateEvent final {
    ConnectionState state = ConnectionState::disconnected;

    [[nodiscard]] bool operator==(const StateEvent&) const = default;
};

/// What a price stream tells. Equal when case and every field are.
using PriceEvent = std::variant<TickerEvent, StateEvent>;

}  // namespace quillbar
