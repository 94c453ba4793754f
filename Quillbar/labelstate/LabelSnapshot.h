// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/PinnedQuote.h"

#include <optional>
#include <string>
#include <vector>

namespace quillbar {

class AppState;

/// Everything that the label can say, at one moment. A plain value.
struct LabelSnapshot final {
    /// The menu-bar text.
    std::string text;
    PinnedQuote quote = {};
    std::optional<TimePoint> lastUpdate = std::nullopt;
    /// When the pinned coin's own ticker came; tickers of other coins may be newer. Known only in
    /// the process that has the state.
    std::optional<TimePoint> coinUpdate = std::nullopt;
    /// Why no prices come in, in a few words for the user; absent while they do.
    std::optional<std::string> failure = std::nullopt;
    /// The message about an edit that was not saved.
    std::optional<std::string> lastError = std::nullopt;
    /// What stands beside the label where there is room for several coins. Known only in the
    /// process that has the state.
    std::vector<PinnedQuote> beside = {};
    /// Whether the user has hidden the numbers. Then there is no coin.
    bool isDiscreet = false;

    /// Reads the application's state: the label of the pinned coin.
    [[nodiscard]] static LabelSnapshot of(const AppState& state);

    /// What the label would say of this coin, which is on the state's list.
    [[nodiscard]] static LabelSnapshot of(const AppState& state, const Coin& coin);

    /// The same snapshot without the coin and everything that is known of it: "Quillbar". When the
    /// last price of any coin came stays, because silence must not look like a sound connection.
    [[nodiscard]] LabelSnapshot hidden() const;

    /// The connection as the user is told. After a failure, a new connection counts as being made
    /// until it has delivered something, because it may fail again.
    [[nodiscard]] ConnectionState visibleConnection() const;

    [[nodiscard]] bool operator==(const LabelSnapshot&) const = default;
};

/// Whether somebody who sees the text, the connection with its failure, and the staleness must be
/// told of `current` after `previous`. The age of a price alone is no reason.
[[nodiscard]] bool differsVisibly(const LabelSnapshot& previous, const LabelSnapshot& current);

}  // namespace quillbar
