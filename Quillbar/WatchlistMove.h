// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/state/AppState.h"

#include <optional>
#include <string>

/// Moves of coins by their symbols, for who shows a list that other edits may overtake.
namespace quillbar::WatchlistMove {

/// Moves the coin in front of another, or to the end when there is no `next`, in the watchlist as
/// it is when the task runs. Does nothing when one of them is not on it by then. A coin that stands
/// there more than once moves as one. The state outlives the task.
[[nodiscard]] Task<void> inFrontOf(AppState& state,
                                   std::string symbol,
                                   std::optional<std::string> next);

}  // namespace quillbar::WatchlistMove
