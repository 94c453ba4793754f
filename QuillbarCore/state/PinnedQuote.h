// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ConnectionState.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"

#include <optional>
#include <string>

namespace quillbar {

/// How far the price on the label can be trusted.
enum class PriceFreshness {
    /// The label shows no price: none is known, or the last one is too old.
    none,
    /// It shows a price that must not be taken for live: the stream is down or silent.
    stale,
    live,
};

/// Which way the change on the label points.
enum class LabelDirection {
    up,
    down,
    flat,
    /// The label shows no live price.
    stale,
};

/// What the label says of the pinned coin. A plain value; whoever shows the label reads its fields.
struct PinnedQuote final {
    /// The pinned coin; absent when none on the list is pinned.
    std::optional<Coin> coin = std::nullopt;
    /// Its last known ticker, however old.
    std::optional<Ticker> ticker = std::nullopt;
    /// Its change in percent on `basis`, when known.
    std::optional<double> changePercent = std::nullopt;
    ChangeBasis basis = ChangeBasis::rolling24h;
    PriceFreshness freshness = PriceFreshness::none;
    ConnectionState connection = ConnectionState::disconnected;

    /// Whether the label shows the ticker's price.
    [[nodiscard]] bool showsPrice() const {
        return coin && ticker && freshness != PriceFreshness::none;
    }

    /// Whether the label must not be taken for live.
    [[nodiscard]] bool isStale() const { return freshness != PriceFreshness::live; }

    /// The sign of the change, or `stale`; an unknown change is flat.
    [[nodiscard]] LabelDirection direction() const;

    /// The label's text: "Quillbar" without a coin, the base asset alone without a price, and
    /// otherwise base asset, price and change: "BTC 67,234.50 ▲ 1.23%".
    [[nodiscard]] std::string text() const;

    [[nodiscard]] bool operator==(const PinnedQuote&) const = default;
};

}  // namespace quillbar
