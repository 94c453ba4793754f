// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

/// Large amounts in the units of the language in use: 万, 亿 and 万亿 in Chinese, as the core's
/// formatters write them; K, M, B and T in English. UTF-8; "—" when absent. They follow no locale.
/// For the main thread.
namespace quillbar::AmountText {

/// A quote volume of 24 hours: 15.00亿, 12.35万, 9,999.50; in English 1.50B, 123.46K, 9,999.50.
[[nodiscard]] std::string volume(std::optional<double> value);

/// A market capitalisation. Its column has no unit smaller than 亿, or than M: 1.35万亿, 0.05亿; in
/// English 1.35T, 5.00M.
[[nodiscard]] std::string marketCap(std::optional<double> value);

}  // namespace quillbar::AmountText
