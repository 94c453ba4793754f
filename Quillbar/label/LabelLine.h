// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/label/LabelOptions.h"
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
    /// Whether the data must not be taken for live: the stream is down or silent, or the text
    /// shows no price.
    bool isStale = true;

    /// Reads the application's state.
    [[nodiscard]] static LabelSnapshot of(const AppState& state);

    /// Whether the text shows a price.
    [[nodiscard]] bool showsPrice() const;
};

/// The line that `snapshot` makes in `format`, without a line feed; JSON formats give one compact
/// object. Pure, but for the time zone of the update's time of day in the waybar tooltip.
[[nodiscard]] std::string labelLine(const LabelSnapshot& snapshot, LabelFormat format);

/// Whether a reader of `format` must be told of `current` after `previous`: the text differs, or,
/// where the format carries them, the connection or the staleness. The age of a price alone is no
/// reason.
[[nodiscard]] bool differsVisibly(const LabelSnapshot& previous,
                                  const LabelSnapshot& current,
                                  LabelFormat format);

}  // namespace quillbar
