// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar::simulator {

/// Red, green, blue and opacity, each from 0 to 255.
using Colour = std::array<std::uint8_t, 4>;

/// The bytes of a square PNG image. `pixels` are places in `palette` (at most 256 colours), row by
/// row from the top; `size` * (`size` + 1) is at most 65,535. Nothing is compressed.
[[nodiscard]] std::string pngOf(int size,
                                const std::vector<Colour>& palette,
                                std::string_view pixels);

}  // namespace quillbar::simulator
