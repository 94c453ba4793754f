// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ConnectionState.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"
#include "QuillbarCore/runtime/Time.h"

#include <optional>
#include <string>

namespace quillbar {

class AppState;

/// All that one line of the label can say, as it stands at one moment. A plain value.
struct LabelSnapshot final {
    /// The menu-bar text.
    std::string text;
    /// The pinned coin; absent when none is pinned.
    std::optional<Coin> coin = std::nullopt;
    /// Its last known ticker, however old.
    std::optional<Ticker> ticker = std::nullopt;
    /// Its change in percent on `basis`, when known.
    std::optional<double> changePercent = std::nullopt;
    ChangeBasis basis = ChangeBasis::rolling24h;
    ConnectionState connection = ConnectionState::disconnected;
    std::optional<TimePoint> lastUpdate = std::nullopt;
    /// Why no prices stream, in a few words for the user; absent while they do.
    std::optional<std::string> failure = std::nullopt;
    /// Whether the data must not be taken for live: the stream is down or silent, or the text
    /// shows no price.
    bool isStale = true;
    /// What the user should know of an edit that was not saved.
    std::optional<std::string> lastError = std::nullopt;

    /// Reads the application's state.
    [[nodiscard]] static LabelSnapshot of(const AppState& state);

    /// Whether the text shows a price.
    [[nodiscard]] bool showsPrice() const;

    /// The connection as a person is told of it. One that has been asked for after a failure and has
    /// delivered nothing yet is only being made: it may well fail again.
    [[nodiscard]] ConnectionState visibleConnection() const;

    [[nodiscard]] bool operator==(const LabelSnapshot&) const = default;
};

/// Whether somebody who sees the text, the connection with its failure, and the staleness must be told of `current`
/// after `previous`. The age of a price alone is no reason.
[[nodiscard]] bool differsVisibly(const LabelSnapshot& previous, const LabelSnapshot& current);

}  // namespace quillbar
