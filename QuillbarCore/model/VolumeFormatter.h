// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

/// The text of a 24-hour quote volume. Follows no locale. Pure; callable from any thread.
namespace quillbar::VolumeFormatter {

/// From 10^8 in 亿 and from 10^4 in 万, with two decimals as printf rounds them (15.00亿, 12.35万);
/// below that grouped with two decimals (9,999.50); "—" when absent.
[[nodiscard]] std::string compact(std::optional<double> value);

}  // namespace quillbar::VolumeFormatter
