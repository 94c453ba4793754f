// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace quillbar {

/// How large the panel is drawn, beside the desktop's own scale.
enum class TextSize : std::uint8_t { normal, large, larger };

/// Every size, from the smallest up, in the order in which the user is offered them.
inline constexpr std::array kAllTextSizes{TextSize::normal, TextSize::large, TextSize::larger};

/// How many hundredths of the normal size this one is: 100, 115 or 130. The number stands for the
/// size in the preferences file, so it stays the same for ever.
[[nodiscard]] int percentOf(TextSize size);

/// The size of exactly this number; absent for any other number.
[[nodiscard]] std::optional<TextSize> textSizeFromPercent(std::int64_t percent);

/// By how much lengths grow at this size: 1, 1.15 or 1.3.
[[nodiscard]] double scaleOf(TextSize size);

}  // namespace quillbar
