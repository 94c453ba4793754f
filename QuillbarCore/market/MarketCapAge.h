// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/runtime/Time.h"

#include <optional>

namespace quillbar {

/// How old market capitalisations are, as far as the user is told. They change slowly and are
/// fetched rarely, so their age is told only when two refreshes have been missed. A plain value.
struct MarketCapAge final {
    enum class Unit {
        /// The clock was set back, so nobody knows how old they are.
        unknown,
        hours,
        days,
    };

    /// Data count as old beyond this age.
    static constexpr Seconds kOldAge = 2 * MarketCapState::kPollInterval;

    Unit unit = Unit::unknown;
    /// How many whole hours, or from two days on whole days; 0 for `unknown`.
    int count = 0;

    /// The age to tell; absent when the data are not old, or were never fetched. A negative age is
    /// `unknown`. Pure.
    [[nodiscard]] static std::optional<MarketCapAge> ifOld(std::optional<Seconds> age);

    [[nodiscard]] bool operator==(const MarketCapAge&) const = default;
};

}  // namespace quillbar
