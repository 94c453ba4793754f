// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quillbar::simulator {

/// Scrambles 64 bits so that neighbours come out unrelated (the splitmix64 finisher). Unlike the
/// standard library's distributions it gives the same answer everywhere.
[[nodiscard]] constexpr std::uint64_t mixed(std::uint64_t bits) {
    bits += 0x9E3779B97F4A7C15U;
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31U);
}

/// Scrambled bits as a number in [0, 1).
[[nodiscard]] constexpr double unitInterval(std::uint64_t bits) {
    return static_cast<double>(bits >> 11U) * 0x1p-53;
}

/// The quotient rounded down, also for a negative dividend.
[[nodiscard]] constexpr std::int64_t floorDivided(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t quotient = dividend / divisor;
    return quotient - (dividend % divisor < 0 ? 1 : 0);
}

}  // namespace quillbar::simulator
