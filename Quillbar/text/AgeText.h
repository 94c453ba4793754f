// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Time.h"

#include <QString>

/// How old prices are, in words for tooltips.
namespace quillbar::AgeText {

/// Below this age prices count as live.
inline constexpr Seconds kLive{60};

/// How long before `now` an update came, and when: "刚刚更新" while it is live, and for one that is
/// yet to come; then "12 分钟前更新（20:00:00）", counted in minutes, hours or days, with the date
/// from a day on. Pure, but for the time zone of the time of day.
[[nodiscard]] QString of(TimePoint update, TimePoint now);

}  // namespace quillbar::AgeText
