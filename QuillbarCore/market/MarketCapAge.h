// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/runtime/Time.h"

#include <optional>
#include <string>

/// How old market capitalisations are, for a user who is shown them. They move slowly and are
/// fetched seldom, so their age is not worth a word before two refreshes have been missed.
namespace quillbar::MarketCapAge {

/// Older ones are old.
inline constexpr Seconds kOldAge = 2 * MarketCapState::kPollInterval;

/// Says how old they are, in whole hours or from two days on in whole days: "数据为3 天前的".
/// Those of a time to come, since the clock was set back, count as old; the text says so. Absent when
/// they are not old, or were never fetched. Pure.
[[nodiscard]] std::optional<std::string> textIfOld(std::optional<Seconds> age);

}  // namespace quillbar::MarketCapAge
