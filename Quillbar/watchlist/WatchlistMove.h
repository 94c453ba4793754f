// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/state/AppState.h"

#include <optional>
#include <string>

/// Moves coins by their symbols, for views whose list may be changed by other edits first.
namespace quillbar::WatchlistMove {

/// Moves the coin in front of another, or to the end when there is no `next`, in the watchlist as
/// it is when the task runs. Does nothing when one of them is not on it any more. All entries of a
/// coin that is there more than once are moved together. The state outlives the task.
[[nodiscard]] Task<void> inFrontOf(AppState& state,
                                   std::string symbol,
                                   std::optional<std::string> next);

}  // namespace quillbar::WatchlistMove
