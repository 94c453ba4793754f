// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

/// The widths of the columns that every table of coins has, in points at a text size of 100 %.
/// The coin's own column takes the rest.
namespace quillbar::ColumnWidths {

/// Of the volume or the market capitalisation.
inline constexpr int kAmount = 64;
inline constexpr int kPrice = 82;
inline constexpr int kChange = 62;
/// Behind the last column: a button, or nothing.
inline constexpr int kTrailing = 14;

}  // namespace quillbar::ColumnWidths
