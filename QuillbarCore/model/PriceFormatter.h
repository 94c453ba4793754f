// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The texts of prices and changes. They follow no locale. Pure; callable from any thread.
namespace quillbar::PriceFormatter {

/// A price: below 1 in magnitude up to four significant digits (0.1235), otherwise grouped with
/// two decimals (67,234.50). Rounds the shortest decimal half to even.
[[nodiscard]] std::string price(double value);

/// A price with exactly that many decimals, none or more, whatever its magnitude. Rounds in the
/// same way.
[[nodiscard]] std::string price(double value, int decimals);

/// A change in percent, always signed, with two decimals as printf rounds them: +1.23%, -0.50%,
/// +0.00% for 0.001; "0.00%" for either zero.
[[nodiscard]] std::string percent(double value);

/// The same with that many decimals, none or more. Without decimals either zero is "0%".
[[nodiscard]] std::string percent(double value, int decimals);

/// The magnitude of a change in percent, rounded in the same way: 0.50% for -0.5 and two decimals.
[[nodiscard]] std::string magnitude(double value, int decimals);

/// Where a change points: ▲ for a rise, ▼ for a fall, · otherwise.
[[nodiscard]] std::string_view arrow(double value);

/// The change beside the price in the menu bar: ▲ for a rise, ▼ for a fall, · otherwise, then the
/// magnitude padded to five places: "▲ 1.23%", "▼12.50%", "· 0.00%"; "—" when absent.
[[nodiscard]] std::string menuBarChange(std::optional<double> value);

}  // namespace quillbar::PriceFormatter
