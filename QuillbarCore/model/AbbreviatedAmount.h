// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quillbar {

/// The amount counted in a unit: "-" when it is negative, its magnitude divided by the unit with
/// two decimals as printf gives them, the unit's name: -2.00万. Follows no locale. Pure.
[[nodiscard]] std::string abbreviatedAmount(double amount, double unit, std::string_view unitName);

}  // namespace quillbar
