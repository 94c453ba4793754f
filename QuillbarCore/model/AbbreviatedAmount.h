// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quillbar {

/// The amount in a unit, such as "-2.00万": a "-" if it is negative, its magnitude divided by the
/// unit, with two decimals as printf rounds them, and the unit's name. Follows no locale. Pure.
[[nodiscard]] std::string abbreviatedAmount(double amount, double unit, std::string_view unitName);

}  // namespace quillbar
