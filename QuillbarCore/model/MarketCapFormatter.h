// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

/// The text of a market capitalisation. Follows no locale. Pure; callable from any thread.
namespace quillbar::MarketCapFormatter {

/// From 10^12 in 万亿, everything smaller in 亿, with two decimals as printf rounds them (1.35万亿,
/// 0.05亿): a column of market caps has no smaller unit. "—" when absent.
[[nodiscard]] std::string compact(std::optional<double> value);

}  // namespace quillbar::MarketCapFormatter
