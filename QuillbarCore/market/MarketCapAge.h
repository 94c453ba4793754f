// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/runtime/Time.h"

#include <optional>
#include <string>

/// Tells the user how old market capitalisations are. They change slowly and are fetched rarely, so
/// their age is shown only when two refreshes have been missed.
namespace quillbar::MarketCapAge {

/// Data count as old beyond this age.
inline constexpr Seconds kOldAge = 2 * MarketCapState::kPollInterval;

/// The age in whole hours, or from two days on in whole days: "数据为3 天前的". A negative age (the clock
/// was set back) has a text of its own. Absent when the data are not old, or were never fetched.
/// Pure.
[[nodiscard]] std::optional<std::string> textIfOld(std::optional<Seconds> age);

}  // namespace quillbar::MarketCapAge
